#include "host/drawing/edit/PolylineSegments.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/geometry/Matrix.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace drawing {

using geometry::Vector;

namespace {

enum Code : int {
    ElevationCode = 38,
    ThicknessCode = 39,
    StartWidthCode = 40,
    EndWidthCode = 41,
    BulgeCode = 42,
    ConstantWidthCode = 43,
    FlagsCode = 70,
    ExtrusionCode = 210
};

constexpr std::int64_t ClosedFlag = 1, GenerateFlag = 128, SplineFrameFlag = 16, SpaceFlag = 8, MeshFlags = 16 | 64;

void readLight(const GroupList &groups, PolylineData &polyline)
{
    const double elevation = realOf(groups, ElevationCode), width = realOf(groups, ConstantWidthCode);
    for (const Group &group : groups) {
        if (const auto *point = std::get_if<Point>(&group.value); point && group.code == groupcode::FirstX)
            polyline.vertices.push_back({{point->x, point->y, elevation}, width, width, 0});
        const auto *number = std::get_if<double>(&group.value);
        if (!number || polyline.vertices.empty())
            continue;
        if (group.code == StartWidthCode)
            polyline.vertices.back().startWidth = *number;
        else if (group.code == EndWidthCode)
            polyline.vertices.back().endWidth = *number;
        else if (group.code == BulgeCode)
            polyline.vertices.back().bulge = *number;
    }
}

template <class Wanted> std::vector<RecordId> vertices(const Database &database, RecordId polyline, Wanted wanted)
{
    std::vector<RecordId> found;
    for (RecordId part = database.record(polyline).next;
         part != NoRecord && database.record(part).container == polyline; part = database.record(part).next)
        if (!database.record(part).isGone() && database.record(part).type == known::Vertex && wanted(part))
            found.push_back(part);
    return found;
}

// Such vertices are seen only with SPLFRAME.
bool isOfFrame(const Database &database, RecordId vertex)
{
    const std::optional<Group> flags = database.firstGroup(vertex, FlagsCode);
    return flags && (std::get<std::int64_t>(flags->value) & SplineFrameFlag) != 0;
}

void readVertices(const Database &database, RecordId entity, const GroupList &whole, PolylineData &polyline)
{
    for (const RecordId part : shownVerticesOf(database, entity)) {
        const GroupList groups = database.groups(part);
        polyline.vertices.push_back(
            {placeOf(groups, groupcode::FirstX), realOf(groups, StartWidthCode, realOf(whole, StartWidthCode)),
             realOf(groups, EndWidthCode, realOf(whole, EndWidthCode)), realOf(groups, BulgeCode)});
    }
}

GroupList lineSegment(const PolylineData &polyline, const Vector &from, const Vector &to, GroupList groups)
{
    const geometry::Matrix toWorld =
        polyline.isInSpace ? geometry::Matrix() : geometry::Matrix::ofExtrusion(polyline.extrusion);
    groups.push_back(pointGroup(groupcode::FirstX, toWorld.place(from)));
    groups.push_back(pointGroup(groupcode::FirstX + 1, toWorld.place(to)));
    return groups;
}

GroupList arcSegment(const Vector &from, const Vector &to, double bulge, GroupList groups)
{
    constexpr int RadiusCode = 40, StartCode = 50, EndCode = 51;
    constexpr double Turn = 360;
    const Vector chord = to - from, middle = (from + to) * 0.5;
    // The centre lies this many chord lengths to the left of the chord's middle.
    const double offset = (1 - bulge * bulge) / (4 * bulge);
    const Vector centre{middle.x - chord.y * offset, middle.y + chord.x * offset, from.z};
    const auto angleTo = [&centre](const Vector &place) {
        const double angle = std::atan2(place.y - centre.y, place.x - centre.x) * (Turn / geometry::FullTurn);
        return angle < 0 ? angle + Turn : angle;
    };
    groups.push_back(pointGroup(groupcode::FirstX, centre));
    groups.push_back(realGroup(RadiusCode, geometry::length(from - centre)));
    groups.push_back(realGroup(StartCode, angleTo(bulge > 0 ? from : to)));
    groups.push_back(realGroup(EndCode, angleTo(bulge > 0 ? to : from)));
    return groups;
}

} // namespace

std::optional<PolylineData> polylineOf(const Database &database, RecordId entity)
{
    const GroupList groups = database.groups(entity);
    const std::u16string type = database.type(entity);
    const std::int64_t flags = integerOf(groups, FlagsCode);
    const bool isLight = type == u"LWPOLYLINE";
    if (!isLight && (type != u"POLYLINE" || (flags & MeshFlags) != 0))
        return std::nullopt;
    PolylineData polyline;
    polyline.isClosed = (flags & ClosedFlag) != 0;
    polyline.generatesLinetype = (flags & GenerateFlag) != 0;
    polyline.isInSpace = !isLight && (flags & SpaceFlag) != 0;
    polyline.extrusion = extrusionOf(groups);
    polyline.thickness = realOf(groups, ThicknessCode);
    if (isLight)
        readLight(groups, polyline);
    else
        readVertices(database, entity, groups, polyline);
    return polyline;
}

std::optional<PolylineData> asPolyline(const Database &database, RecordId entity)
{
    const GroupList groups = database.groups(entity);
    const std::u16string type = database.type(entity);
    PolylineData polyline;
    polyline.extrusion = extrusionOf(groups);
    polyline.thickness = realOf(groups, ThicknessCode);
    const Vector first = placeOf(groups, groupcode::FirstX);
    if (type == u"LINE") {
        const Vector last = placeOf(groups, groupcode::FirstX + 1);
        if (polyline.extrusion != Vector{0, 0, 1} || first.z != last.z)
            return std::nullopt;
        polyline.vertices = {{first}, {last}};
        return polyline;
    }
    if (type != u"ARC")
        return polylineOf(database, entity);
    constexpr int RadiusCode = 40, StartCode = 50, EndCode = 51;
    const double start = geometry::radians(realOf(groups, StartCode)), radius = realOf(groups, RadiusCode);
    double end = geometry::radians(realOf(groups, EndCode));
    end += end < start ? geometry::FullTurn : 0;
    const auto at = [&](double angle) { return first + Vector{std::cos(angle), std::sin(angle), 0} * radius; };
    polyline.vertices = {{at(start), 0, 0, std::tan((end - start) / 4)}, {at(end)}};
    return polyline;
}

std::vector<RecordId> shownVerticesOf(const Database &database, RecordId polyline)
{
    return vertices(database, polyline, [&](RecordId vertex) { return !isOfFrame(database, vertex); });
}

std::vector<RecordId> splineFrameOf(const Database &database, RecordId polyline)
{
    return vertices(database, polyline, [&](RecordId vertex) { return isOfFrame(database, vertex); });
}

std::int64_t polylineFlags(const PolylineData &polyline, std::int64_t others)
{
    return (others & ~(ClosedFlag | GenerateFlag)) | (polyline.isClosed ? ClosedFlag : 0) |
           (polyline.generatesLinetype ? GenerateFlag : 0);
}

void reverse(PolylineData &polyline)
{
    std::vector<PolylineData::Vertex> &vertices = polyline.vertices;
    std::ranges::reverse(vertices);
    // What a vertex says of its segment belongs to the one before it now.
    const std::vector<PolylineData::Vertex> old = vertices;
    for (std::size_t index = 0; index < vertices.size(); ++index) {
        const PolylineData::Vertex &segment = old[(index + 1) % old.size()];
        vertices[index].startWidth = segment.endWidth;
        vertices[index].endWidth = segment.startWidth;
        vertices[index].bulge = -segment.bulge;
    }
}

GroupList lightPolyline(GroupList groups, const PolylineData &polyline)
{
    constexpr int CountCode = 90;
    groups.push_back(textGroup(groupcode::Subclass, u"AcDbPolyline"));
    groups.push_back(integerGroup(CountCode, static_cast<std::int64_t>(polyline.vertices.size())));
    groups.push_back(integerGroup(FlagsCode, polylineFlags(polyline)));
    groups.push_back(realGroup(ElevationCode, polyline.vertices.front().place.z));
    if (polyline.thickness != 0)
        groups.push_back(realGroup(ThicknessCode, polyline.thickness));
    for (const PolylineData::Vertex &vertex : polyline.vertices) {
        groups.push_back(flatPointGroup(groupcode::FirstX, vertex.place));
        groups.push_back(realGroup(StartWidthCode, vertex.startWidth));
        groups.push_back(realGroup(EndWidthCode, vertex.endWidth));
        groups.push_back(realGroup(BulgeCode, vertex.bulge));
    }
    if (polyline.extrusion != Vector{0, 0, 1})
        groups.push_back(pointGroup(ExtrusionCode, polyline.extrusion));
    return groups;
}

GroupList commonGroups(const GroupList &groups, std::u16string type)
{
    constexpr std::array codes{6, 8, 48, 60, 62, 67, 370, 420, 430, 440};
    GroupList common{textGroup(groupcode::Type, std::move(type))};
    if (hasGroup(groups, groupcode::Subclass))
        common.push_back(textGroup(groupcode::Subclass, u"AcDbEntity"));
    for (const Group &group : groups)
        if (std::ranges::count(codes, group.code) != 0 && !hasGroup(common, group.code))
            common.push_back(group);
    return common;
}

std::vector<GroupList> segmentsOf(const Database &database, RecordId entity)
{
    std::vector<GroupList> segments;
    const std::optional<PolylineData> polyline = polylineOf(database, entity);
    if (!polyline)
        return segments;
    const GroupList whole = database.groups(entity);
    const std::size_t vertices = polyline->vertices.size();
    const std::size_t count = polyline->isClosed ? vertices : std::max<std::size_t>(vertices, 1) - 1;
    for (std::size_t index = 0; index < count; ++index) {
        const auto &from = polyline->vertices[index], &to = polyline->vertices[(index + 1) % vertices];
        const bool isArc = from.bulge != 0 && !polyline->isInSpace;
        const GroupList common = commonGroups(whole, isArc ? u"ARC" : u"LINE");
        GroupList segment = isArc ? arcSegment(from.place, to.place, from.bulge, common)
                                  : lineSegment(*polyline, from.place, to.place, common);
        if (polyline->thickness != 0)
            segment.push_back(realGroup(ThicknessCode, polyline->thickness));
        if (polyline->extrusion != Vector{0, 0, 1})
            segment.push_back(pointGroup(ExtrusionCode, polyline->extrusion));
        segments.push_back(std::move(segment));
    }
    return segments;
}

} // namespace drawing
