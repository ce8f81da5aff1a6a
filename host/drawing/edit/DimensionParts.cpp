#include "host/drawing/edit/DimensionParts.h"

#include "host/drawing/edit/GroupEditing.h"

#include <algorithm>
#include <vector>

namespace drawing {

namespace {

constexpr int KindCode = 70;
constexpr const char16_t *DimensionMarker = u"AcDbDimension";

// The markers of each kind, by the last bits of its flags; the measured places stand behind the first.
std::vector<std::u16string> markersOf(std::int64_t kind)
{
    switch (kind & 7) {
    case 0:
        return {u"AcDbAlignedDimension", u"AcDbRotatedDimension"};
    case 1:
        return {u"AcDbAlignedDimension"};
    case 2:
        return {u"AcDb2LineAngularDimension"};
    case 3:
        return {u"AcDbDiametricDimension"};
    case 4:
        return {u"AcDbRadialDimension"};
    case 5:
        return {u"AcDb3PointAngularDimension"};
    default:
        return {u"AcDbOrdinateDimension"};
    }
}

enum class Part { Common, Dimension, Kind, Extended };

Part partOf(int code)
{
    if (code >= groupcode::ExtendedString)
        return Part::Extended;
    for (const int own : {1, 2, 3, 10, 11, 12, 41, 42, 51, 53, 70, 71, 72, 210})
        if (code == own)
            return Part::Dimension;
    for (const int own : {13, 14, 15, 16, 40, 50, 52})
        if (code == own)
            return Part::Kind;
    return Part::Common;
}

void append(GroupList &groups, const GroupList &dimension, Part part)
{
    std::ranges::copy_if(dimension, std::back_inserter(groups),
                         [part](const Group &group) { return partOf(group.code) == part; });
}

} // namespace

GroupList withDimensionParts(const GroupList &dimension)
{
    const std::vector<std::u16string> markers = markersOf(integerOf(dimension, KindCode));
    GroupList groups;
    append(groups, dimension, Part::Common);
    groups.push_back(textGroup(groupcode::Subclass, DimensionMarker));
    append(groups, dimension, Part::Dimension);
    groups.push_back(textGroup(groupcode::Subclass, markers.front()));
    append(groups, dimension, Part::Kind);
    for (std::size_t next = 1; next < markers.size(); ++next)
        groups.push_back(textGroup(groupcode::Subclass, markers[next]));
    append(groups, dimension, Part::Extended);
    return groups;
}

bool hasDimensionParts(const GroupList &dimension)
{
    return std::ranges::find(dimension, textGroup(groupcode::Subclass, DimensionMarker)) != dimension.end();
}

void setInDimensionPart(GroupList &dimension, const Group &group)
{
    const auto marker = std::ranges::find(dimension, textGroup(groupcode::Subclass, DimensionMarker));
    if (hasGroup(dimension, group.code) || marker == dimension.end())
        setGroup(dimension, group);
    else
        dimension.insert(marker + 1, group);
}

} // namespace drawing
