#include "host/drawing/entities/EntityValues.h"

#include "host/drawing/Lineweights.h"
#include "host/drawing/entities/ExtendedData.h"
#include "host/drawing/entities/RecordTypes.h"

#include <algorithm>
#include <set>

namespace drawing {

namespace {

constexpr int LinetypeCode = 6, StyleCode = 7, RadiusCode = 40, ColorCode = 62, LineweightCode = 370, BraceCode = 1002;
constexpr std::int64_t ByLayer = 256;

class Check
{
public:
    Check(const Drawing &drawing, NameId type) : m_drawing(drawing), m_type(type) {}

    bool accepts(const Group &group) const
    {
        const auto *text = std::get_if<std::u16string>(&group.value);
        switch (group.code) {
        case groupcode::Name:
            return !text || !isTableRecordType(m_type) || isValidName(*text);
        case LinetypeCode:
            return !text || m_type == known::DimensionStyle || isLinetype(*text);
        case StyleCode:
            return !text || !isText() || isThere(known::Style, *text);
        case groupcode::Layer:
            return !text || isValidName(*text) || isThere(known::Layer, *text);
        case ColorCode:
            return acceptsColor(std::get_if<std::int64_t>(&group.value));
        case LineweightCode:
            return acceptsLineweight(std::get_if<std::int64_t>(&group.value));
        case RadiusCode:
            return !isRound() || isPositive(std::get_if<double>(&group.value));
        default:
            return true;
        }
    }

private:
    bool isThere(NameId table, std::u16string_view name) const
    {
        return m_drawing.tables().find(table, name) != NoRecord;
    }
    bool isLinetype(std::u16string_view name) const
    {
        const std::u16string plain = folded(name);
        return plain == folded(u"ByLayer") || plain == folded(u"ByBlock") || isThere(known::Linetype, name);
    }
    bool isText() const
    {
        return m_type == known::Text || m_type == known::Paragraphs || m_type == known::Attribute ||
               m_type == known::AttributeDefinition;
    }
    bool isRound() const { return m_type == known::Circle || m_type == known::Arc; }
    // A layer that is off has a negative one.
    bool acceptsColor(const std::int64_t *color) const
    {
        return !color || (*color <= ByLayer && *color >= (m_type == known::Layer ? -ByLayer : 0));
    }
    static bool acceptsLineweight(const std::int64_t *weight)
    {
        return !weight || nearestLineweight(*weight) == *weight;
    }
    static bool isPositive(const double *value) { return value && *value > 0; }

    const Drawing &m_drawing;
    NameId m_type;
};

// Braces open and close lists within the data of one application.
bool isExtendedDataWhole(const GroupList &list)
{
    int depth = 0, size = 0;
    for (const Group &group : list) {
        if (group.code < groupcode::ExtendedString)
            continue;
        size += extendedSize(group);
        if (group.code == groupcode::Application && depth != 0)
            return false;
        const auto *brace = group.code == BraceCode ? std::get_if<std::u16string>(&group.value) : nullptr;
        if (brace)
            depth += *brace == u"{" ? 1 : -1;
        if (depth < 0)
            return false;
    }
    return depth == 0 && size <= ExtendedSizeLimit;
}

} // namespace

bool hasValidValues(const Drawing &drawing, NameId type, const GroupList &list, const GroupList &present)
{
    const Check check(drawing, type);
    const auto isFine = [&](const Group &group) {
        return check.accepts(group) || std::ranges::find(present, group) != present.end();
    };
    return std::ranges::all_of(list, isFine) && isExtendedDataWhole(list);
}

bool holdsExtendedData(const Drawing &drawing, RecordId record, const GroupList &list)
{
    int size = 0;
    std::set<std::u16string> given;
    for (const Group &group : list) {
        if (group.code >= groupcode::ExtendedString)
            size += extendedSize(group);
        if (const auto *name = std::get_if<std::u16string>(&group.value); name && group.code == groupcode::Application)
            given.insert(folded(*name));
    }
    if (given.empty())
        return true;
    const auto stays = [&given](std::u16string_view application) { return !given.contains(folded(application)); };
    for (const Group &group : extendedData(drawing, record, stays))
        size += extendedSize(group);
    return size <= ExtendedSizeLimit;
}

bool usesKnownApplications(const Drawing &drawing, const GroupList &list)
{
    return std::ranges::all_of(list, [&drawing](const Group &group) {
        const auto *name = std::get_if<std::u16string>(&group.value);
        return group.code != groupcode::Application || (name && isApplication(drawing, *name));
    });
}

bool isValidName(std::u16string_view name)
{
    return !name.empty() && name.find_first_of(u"<>/\\\":;?*|,=`") == name.npos &&
           std::ranges::none_of(name, [](char16_t unit) { return unit < u' '; });
}

} // namespace drawing
