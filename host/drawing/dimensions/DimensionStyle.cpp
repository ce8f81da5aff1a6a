#include "host/drawing/dimensions/DimensionStyle.h"

#include "host/drawing/HeaderVariables.h"
#include "host/drawing/RawValues.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/entities/ExtendedData.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

constexpr std::u16string_view Application = u"ACAD", Overrides = u"DSTYLE", StandardStyle = u"Standard";
constexpr int StyleNameCode = 3;

enum ExtendedCode : int {
    TextCode = groupcode::ExtendedString,
    BraceCode = 1002,
    ExtendedHandleCode = 1005,
    RealCode = 1040,
    IntegerCode = 1070
};

// Files and programs write whole numbers as reals now and then, and the other way round. None for one that nothing can
// be drawn by.
std::optional<double> numberOf(const GroupValue &value)
{
    constexpr double Largest = 1e9;
    if (const auto *real = std::get_if<double>(&value))
        return std::abs(*real) <= Largest ? std::optional(*real) : std::nullopt;
    if (const auto *integer = std::get_if<std::int64_t>(&value))
        return static_cast<double>(*integer);
    return std::nullopt;
}

double numberOf(const GroupList &variables, const DimensionVariable &variable)
{
    const Group *group = findGroup(variables, variable.code);
    return group ? numberOf(group->value).value_or(variable.standard) : variable.standard;
}

// The header has the current values, which stand in for a style that is not there.
GroupList currentVariables(const Database &database)
{
    GroupList variables;
    for (const DimensionVariable &one : dimensionVariables) {
        std::string name = "$";
        for (const char16_t letter : one.name)
            name += static_cast<char>(letter);
        if (const std::optional<Group> value = variable(database, name))
            variables.push_back({one.code, value->value});
    }
    if (const std::optional<Group> post = variable(database, "$DIMPOST"))
        variables.push_back({DimensionPostCode, post->value});
    return variables;
}

GroupList variablesOfStyle(const Drawing &drawing, const std::u16string &name)
{
    const RecordId style = drawing.tables().find(known::DimensionStyle, name);
    return style != NoRecord ? drawing.database().groups(style) : currentVariables(drawing.database());
}

std::u16string textStyleName(const Drawing &drawing, const GroupList &variables)
{
    const auto *handle = findValue<Handle>(variables, DimensionTextStyleCode);
    const RecordId style = handle ? drawing.database().find(*handle) : NoRecord;
    return style != NoRecord ? drawing.database().name(style) : std::u16string(StandardStyle);
}

// The groups of one application: its name first.
struct Extent
{
    GroupList::iterator begin, end;
};

Extent dataOf(GroupList &groups, std::u16string_view application)
{
    const auto begin = std::ranges::find_if(groups, [&](const Group &group) {
        const auto *name = std::get_if<std::u16string>(&group.value);
        return group.code == groupcode::Application && name && folded(*name) == folded(application);
    });
    if (begin == groups.end())
        return {begin, begin};
    return {begin, std::find_if(begin + 1, groups.end(),
                                [](const Group &group) { return group.code == groupcode::Application; })};
}

// From the word that they begin with to the closing brace.
Extent overridesOf(GroupList &groups)
{
    const Extent data = dataOf(groups, Application);
    const auto begin = std::find(data.begin, data.end, textGroup(TextCode, std::u16string(Overrides)));
    const auto end = std::find(begin, data.end, textGroup(BraceCode, u"}"));
    return {begin, end != data.end ? end + 1 : end};
}

// As the style's record has it.
Group inRecord(int code, const Group &value)
{
    if (value.code == ExtendedHandleCode)
        if (const auto *digits = std::get_if<std::u16string>(&value.value))
            return {code, Handle{handleOf(*digits)}};
    return {code, value.value};
}

void applyOverrides(GroupList &variables, GroupList dimension)
{
    const Extent overrides = overridesOf(dimension);
    for (auto code = overrides.begin; code != overrides.end && code + 1 != overrides.end; ++code) {
        const auto *number = std::get_if<std::int64_t>(&code->value);
        if (code->code != IntegerCode || !number || (code + 1)->code == BraceCode)
            continue;
        const Group value = inRecord(static_cast<int>(*number), *++code);
        removeGroups(variables, value.code);
        variables.push_back(value);
    }
}

bool differs(double first, double second)
{
    constexpr double Rounding = 1e-9;
    return std::abs(first - second) > Rounding * std::max(1.0, std::abs(first));
}

Group extendedNumber(const GroupValue &value)
{
    return {std::holds_alternative<double>(value) ? RealCode : IntegerCode, value};
}

GroupList differences(const Drawing &drawing, const GroupList &style, const GroupList &variables)
{
    GroupList result;
    const auto add = [&result](int code, const Group &value) {
        result.push_back(integerGroup(IntegerCode, code));
        result.push_back(value);
    };
    if (const std::u16string post = textOf(variables, DimensionPostCode); post != textOf(style, DimensionPostCode))
        add(DimensionPostCode, textGroup(TextCode, post));
    for (const DimensionVariable &variable : dimensionVariables)
        if (const Group *group = findGroup(variables, variable.code);
            group && differs(numberOf(variables, variable), numberOf(style, variable)))
            add(variable.code, extendedNumber(group->value));
    const auto *textStyle = findValue<Handle>(variables, DimensionTextStyleCode);
    if (textStyle && folded(textStyleName(drawing, variables)) != folded(textStyleName(drawing, style)))
        add(DimensionTextStyleCode,
            textGroup(ExtendedHandleCode, QString::number(textStyle->value, 16).toUpper().toStdU16String()));
    return result;
}

} // namespace

DimensionStyle dimensionStyle(const GroupList &variables, std::u16string textStyle)
{
    const auto number = [&variables](std::u16string_view name) {
        return numberOf(variables, *std::ranges::find(dimensionVariables, name, &DimensionVariable::name));
    };
    const auto integer = [&number](std::u16string_view name) {
        constexpr double Largest = 1 << 15; // of a group of 16 bits
        return static_cast<int>(std::clamp(number(name), -Largest, Largest));
    };
    const double scale = number(u"DIMSCALE") > 0 ? number(u"DIMSCALE") : 1;
    const auto size = [&](std::u16string_view name) { return number(name) * scale; };
    return {.arrowSize = size(u"DIMASZ"),
            .tickSize = size(u"DIMTSZ"),
            .extensionOffset = size(u"DIMEXO"),
            .overhang = size(u"DIMEXE"),
            .textHeight = size(u"DIMTXT"),
            .gap = std::abs(size(u"DIMGAP")),
            .centreSize = std::abs(size(u"DIMCEN")),
            .lineStep = size(u"DIMDLI"),
            .lengthFactor = number(u"DIMLFAC"),
            .rounding = number(u"DIMRND"),
            .decimals = integer(u"DIMDEC"),
            .zeros = integer(u"DIMZIN"),
            .angleDecimals = integer(u"DIMADEC"),
            .angleZeros = integer(u"DIMAZIN"),
            .lineColor = integer(u"DIMCLRD"),
            .extensionColor = integer(u"DIMCLRE"),
            .textColor = integer(u"DIMCLRT"),
            .hidesFirstExtension = integer(u"DIMSE1") != 0,
            .hidesSecondExtension = integer(u"DIMSE2") != 0,
            .isTextAbove = integer(u"DIMTAD") != 0,
            .isTextLevel = integer(u"DIMTIH") != 0,
            .post = textOf(variables, DimensionPostCode),
            .textStyle = std::move(textStyle)};
}

DimensionStyle styleOfDimension(const Drawing &drawing, const GroupList &dimension)
{
    GroupList variables = variablesOfStyle(drawing, textOf(dimension, StyleNameCode, std::u16string(StandardStyle)));
    applyOverrides(variables, dimension);
    return dimensionStyle(variables, textStyleName(drawing, variables));
}

void removeOverrides(GroupList &dimension)
{
    const Extent overrides = overridesOf(dimension);
    dimension.erase(overrides.begin, overrides.end);
    const Extent data = dataOf(dimension, Application);
    if (data.end - data.begin == 1)
        dimension.erase(data.begin);
}

void overrideStyle(Drawing &drawing, GroupList &dimension, const GroupList &variables)
{
    removeOverrides(dimension);
    const GroupList style = variablesOfStyle(drawing, textOf(dimension, StyleNameCode, std::u16string(StandardStyle)));
    GroupList own = differences(drawing, style, variables);
    if (own.empty())
        return;
    own.insert(own.begin(), {textGroup(TextCode, std::u16string(Overrides)), textGroup(BraceCode, u"{")});
    own.push_back(textGroup(BraceCode, u"}"));
    if (dataOf(dimension, Application).begin == dimension.end()) {
        registerApplication(drawing, Application);
        dimension.push_back(textGroup(groupcode::Application, std::u16string(Application)));
    }
    const Extent data = dataOf(dimension, Application);
    dimension.insert(data.begin + 1, own.begin(), own.end());
}

} // namespace drawing
