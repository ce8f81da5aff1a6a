#include "host/kernel/variables/DrawingVariables.h"

#include "host/drawing/HeaderVariables.h"

#include <QString>

#include <numbers>

using drawing::Group;
using drawing::GroupValue;
using drawing::RecordId;

namespace {

constexpr int ColorCode = 62, AngleCode = 50;
constexpr int ByBlock = 0, ByLayer = 256;
constexpr double DegreesPerRadian = 180 / std::numbers::pi;

// Colours have numbers in a drawing and names for programs.
std::u16string colorName(std::int64_t number)
{
    if (number == ByLayer)
        return u"BYLAYER";
    return number == ByBlock ? u"BYBLOCK" : QString::number(number).toStdU16String();
}

std::int64_t colorNumber(const std::u16string &name)
{
    const QString text = QString::fromStdU16String(name).toUpper();
    if (text == u"BYBLOCK")
        return ByBlock;
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber ? number : ByLayer;
}

std::optional<VariableValue> valueOf(const Group &group, VariableType type)
{
    if (const auto *number = std::get_if<std::int64_t>(&group.value)) {
        if (type == VariableType::Text && group.code == ColorCode)
            return colorName(*number);
        return static_cast<int>(*number);
    }
    if (const auto *number = std::get_if<double>(&group.value))
        return group.code == AngleCode ? *number / DegreesPerRadian : *number;
    if (const auto *text = std::get_if<std::u16string>(&group.value))
        return *text;
    if (const auto *point = std::get_if<drawing::Point>(&group.value))
        return LispPoint{point->x, point->y, point->z};
    return std::nullopt;
}

// As the drawing has it now, with another value; nothing when the two are of different kinds.
std::optional<GroupValue> changed(const Group &group, const VariableValue &value)
{
    if (std::holds_alternative<std::int64_t>(group.value)) {
        if (const auto *name = std::get_if<std::u16string>(&value); name && group.code == ColorCode)
            return colorNumber(*name);
        const int *number = std::get_if<int>(&value);
        return number ? std::optional<GroupValue>(std::int64_t{*number}) : std::nullopt;
    }
    if (const auto *number = std::get_if<double>(&value); number && std::holds_alternative<double>(group.value))
        return group.code == AngleCode ? *number * DegreesPerRadian : *number;
    if (const auto *text = std::get_if<std::u16string>(&value);
        text && std::holds_alternative<std::u16string>(group.value))
        return *text;
    const auto *old = std::get_if<drawing::Point>(&group.value);
    const auto *point = std::get_if<LispPoint>(&value);
    return old && point ? std::optional<GroupValue>(drawing::Point{point->x, point->y, point->z, old->dimensions})
                        : std::nullopt;
}

} // namespace

void loadVariables(SystemVariables &variables, const drawing::Drawing &drawing)
{
    const drawing::Database &database = drawing.database();
    const RecordId section = database.section(drawing::known::Header);
    for (RecordId id = section != drawing::NoRecord ? database.firstIn(section) : drawing::NoRecord;
         id != drawing::NoRecord; id = database.nextIn(id)) {
        const std::u16string name = database.name(id);
        const VariableRow *row = name.empty() || database.record(id).isGone() ? nullptr : findVariable(name.substr(1));
        if (!row || row->scope != VariableScope::Drawing || variables.isComputed(*row)) // which may cost much
            continue;
        const drawing::GroupList groups = database.groups(id);
        if (groups.size() < 2 || changed(groups[1], variables.get(*row)) == groups[1].value)
            continue; // the variable may know more, as a colour that has no number
        if (const std::optional<VariableValue> value = valueOf(groups[1], row->type))
            variables.load(*row, *value);
    }
}

void keepVariable(drawing::Drawing &drawing, const VariableRow &variable, const VariableValue &value)
{
    const std::string name = "$" + std::string(variable.name.begin(), variable.name.end());
    const std::optional<Group> group = drawing::variable(drawing.database(), name);
    if (!group)
        return;
    if (std::optional<GroupValue> now = changed(*group, value))
        drawing::setVariable(drawing.database(), name, {group->code, std::move(*now)});
}
