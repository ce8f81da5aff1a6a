#include "host/drawing/edit/Offset.h"

#include "host/drawing/edit/CurveWay.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/edit/Transform.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

constexpr int EndCode = 11, RadiusCode = 40;

// A segment of a plane polyline: a line, or an arc when it has a radius.
struct Segment
{
    Vector start, end;
    double bulge = 0;
    Vector centre;
    double radius = 0; // 0: a line

    bool isArc() const { return bulge != 0; }
};

Segment segmentBetween(const Vector &start, const Vector &end, double bulge)
{
    Segment segment{start, end, bulge, {}, 0};
    if (bulge == 0)
        return segment;
    const Vector chord = end - start, middle = (start + end) * 0.5;
    const double offset = (1 - bulge * bulge) / (4 * bulge);
    segment.centre = {middle.x - chord.y * offset, middle.y + chord.x * offset, start.z};
    segment.radius = geometry::length(start - segment.centre);
    return segment;
}

// To the left of the direction of travel where the distance is positive. None: an arc that would vanish.
std::optional<Segment> parallel(const Segment &segment, double distance)
{
    Segment moved = segment;
    if (!segment.isArc()) {
        const Vector along = geometry::normalized(segment.end - segment.start, {1, 0, 0});
        const Vector left{-along.y * distance, along.x * distance, 0};
        moved.start += left;
        moved.end += left;
        return moved;
    }
    moved.radius -= segment.bulge > 0 ? distance : -distance; // the centre lies to the left of a counter-clockwise arc
    if (moved.radius <= 0)
        return std::nullopt;
    const double factor = moved.radius / segment.radius;
    moved.start = segment.centre + (segment.start - segment.centre) * factor;
    moved.end = segment.centre + (segment.end - segment.centre) * factor;
    return moved;
}

double crossed(const Vector &a, const Vector &b)
{
    return a.x * b.y - a.y * b.x;
}

// Where the lines and circles that the segments lie on meet, nearest to where the segments' ends would be.
std::optional<Vector> meeting(const Segment &first, const Segment &second)
{
    const Vector near = (first.end + second.start) * 0.5;
    std::vector<Vector> found;
    const auto lineAndCircle = [&found](const Segment &line, const Segment &circle) {
        const Vector along = geometry::normalized(line.end - line.start, {1, 0, 0});
        const Vector toLine = line.start - circle.centre;
        const double middle = -dot(toLine, along);
        const double square = circle.radius * circle.radius - dot(toLine, toLine) + middle * middle;
        if (square < 0)
            return;
        for (const double sign : {-1.0, 1.0})
            found.push_back(line.start + along * (middle + sign * std::sqrt(square)));
    };
    if (!first.isArc() && !second.isArc()) {
        const Vector a = first.end - first.start, b = second.end - second.start;
        const double determinant = crossed(a, b);
        if (std::abs(determinant) < 1e-12 * geometry::length(a) * geometry::length(b))
            return near;
        found.push_back(first.start + a * (crossed(second.start - first.start, b) / determinant));
    } else if (first.isArc() && second.isArc()) {
        const Vector between = second.centre - first.centre;
        const double distance = geometry::length(between);
        if (distance == 0)
            return near;
        const double along =
            (first.radius * first.radius - second.radius * second.radius + distance * distance) / (2 * distance);
        const double square = first.radius * first.radius - along * along;
        const Vector unit = between * (1 / distance);
        if (square >= 0)
            for (const double sign : {-1.0, 1.0})
                found.push_back(first.centre + unit * along + Vector{-unit.y, unit.x, 0} * (sign * std::sqrt(square)));
    } else if (first.isArc()) {
        lineAndCircle(second, first);
    } else {
        lineAndCircle(first, second);
    }
    const auto nearest =
        std::ranges::min_element(found, {}, [&near](const Vector &place) { return geometry::length(place - near); });
    return nearest != found.end() ? std::optional(*nearest) : std::nullopt;
}

void setBulge(Segment &segment)
{
    if (!segment.isArc())
        return;
    const auto angleTo = [&segment](const Vector &place) {
        return std::atan2(place.y - segment.centre.y, place.x - segment.centre.x);
    };
    const bool isLeft = segment.bulge > 0;
    double sweep =
        isLeft ? angleTo(segment.end) - angleTo(segment.start) : angleTo(segment.start) - angleTo(segment.end);
    if (sweep < 0)
        sweep += geometry::FullTurn;
    segment.bulge = std::copysign(std::tan(sweep / 4), segment.bulge);
}

std::vector<Segment> segmentsOfPolyline(const PolylineData &polyline)
{
    std::vector<Segment> segments;
    const std::size_t vertices = polyline.vertices.size();
    const std::size_t count = polyline.isClosed ? vertices : std::max<std::size_t>(vertices, 1) - 1;
    for (std::size_t index = 0; index < count; ++index) {
        const auto &from = polyline.vertices[index];
        const Vector &to = polyline.vertices[(index + 1) % vertices].place;
        if (!(from.place == to))
            segments.push_back(segmentBetween(from.place, to, from.bulge));
    }
    return segments;
}

// How far a place is from a segment, and on which side: positive to the left.
double signedDistance(const Segment &segment, const Vector &place)
{
    if (segment.isArc()) {
        const double outside =
            geometry::length(Vector{place.x - segment.centre.x, place.y - segment.centre.y, 0}) - segment.radius;
        return segment.bulge > 0 ? -outside : outside;
    }
    const Vector along = geometry::normalized(segment.end - segment.start, {1, 0, 0});
    return crossed(along, place - segment.start);
}

// Of the place to the segment itself, not to the line or circle that it lies on.
double distanceTo(const Segment &segment, const Vector &place)
{
    const double toEnds = std::min(geometry::length(place - segment.start), geometry::length(place - segment.end));
    if (segment.isArc())
        return std::min(toEnds, std::abs(signedDistance(segment, place)));
    const Vector along = segment.end - segment.start;
    const double t = dot(place - segment.start, along) / dot(along, along);
    return t >= 0 && t <= 1 ? std::abs(signedDistance(segment, place)) : toEnds;
}

const Segment &nearestSegment(const std::vector<Segment> &segments, const Vector &place)
{
    return *std::ranges::min_element(segments, {}, [&place](const Segment &one) { return distanceTo(one, place); });
}

// The whole polyline at its new place; empty when an arc of it vanishes.
std::vector<Segment> offsetSegments(const std::vector<Segment> &segments, double distance, bool isClosed)
{
    std::vector<Segment> moved;
    for (const Segment &segment : segments) {
        const std::optional<Segment> one = parallel(segment, distance);
        if (!one)
            return {};
        moved.push_back(*one);
    }
    std::vector<Segment> joined = moved;
    const std::size_t joints = isClosed ? moved.size() : moved.size() - 1;
    for (std::size_t index = 0; index < joints; ++index) {
        const std::size_t next = (index + 1) % moved.size();
        const Vector corner = meeting(moved[index], moved[next]).value_or((moved[index].end + moved[next].start) * 0.5);
        joined[index].end = corner;
        joined[next].start = corner;
    }
    std::ranges::for_each(joined, setBulge);
    return joined;
}

// Parallel polylines have no width, as the old one's may not fit.
PolylineData withSegments(const PolylineData &old, const std::vector<Segment> &segments)
{
    PolylineData polyline = old;
    polyline.vertices.clear();
    for (const Segment &segment : segments)
        polyline.vertices.push_back({segment.start, 0, 0, segment.bulge});
    if (!old.isClosed)
        polyline.vertices.push_back({segments.back().end});
    return polyline;
}

RecordId offsetPolyline(Drawing &drawing, RecordId entity, double distance, const Vector &side)
{
    const std::optional<PolylineData> polyline = polylineOf(drawing.database(), entity);
    if (!polyline || polyline->isInSpace || drawing.database().isBefore2000())
        return NoRecord;
    const std::vector<Segment> segments = segmentsOfPolyline(*polyline);
    if (segments.empty())
        return NoRecord;
    const Vector place = geometry::inverse(Matrix::ofExtrusion(polyline->extrusion)).place(side);
    const double sign = signedDistance(nearestSegment(segments, place), place) < 0 ? -1 : 1;
    const std::vector<Segment> moved = offsetSegments(segments, sign * distance, polyline->isClosed);
    if (moved.empty())
        return NoRecord;
    const GroupList common = commonGroups(drawing.database().groups(entity), u"LWPOLYLINE");
    const GroupList groups = lightPolyline(common, withSegments(*polyline, moved));
    return addEntityTo(drawing, groups, destinationOf(drawing.database(), entity));
}

RecordId offsetLine(Drawing &drawing, RecordId entity, double distance, const Vector &side)
{
    const GroupList groups = drawing.database().groups(entity);
    const Vector start = placeOf(groups, groupcode::FirstX),
                 along = geometry::normalized(placeOf(groups, EndCode) - start);
    const Vector normal = extrusionOf(groups);
    const Vector left = geometry::normalized(geometry::cross(normal, along));
    const double sign = dot(side - start, left) < 0 ? -1 : 1;
    const RecordId copy = copyEntity(drawing, entity);
    if (copy != NoRecord)
        transformEntity(drawing, copy, {Matrix::translation(left * (sign * distance)), false});
    return copy;
}

RecordId offsetCircle(Drawing &drawing, RecordId entity, double distance, const Vector &side)
{
    const GroupList groups = drawing.database().groups(entity);
    const Vector place = geometry::inverse(Matrix::ofExtrusion(extrusionOf(groups))).place(side);
    const Vector from = place - placeOf(groups, groupcode::FirstX);
    const double radius = realOf(groups, RadiusCode);
    const double offset = radius + (std::hypot(from.x, from.y) < radius ? -distance : distance);
    if (!(offset > 0))
        return NoRecord;
    const RecordId copy = copyEntity(drawing, entity);
    if (copy == NoRecord)
        return NoRecord;
    GroupList changed = drawing.database().groups(copy);
    setGroup(changed, realGroup(RadiusCode, offset));
    drawing.database().replace(copy, changed);
    return copy;
}

// To the left of the way there, in the plane.
Vector leftAt(const geometry::Course &course, double parameter)
{
    const Vector along = course.slope(parameter);
    return geometry::normalized({-along.y, along.x, 0}, {0, 1, 0});
}

// Of a curve with no parallel of its own kind: the spline through parallel places.
RecordId offsetCurve(Drawing &drawing, RecordId entity, double distance, const Vector &side)
{
    constexpr int PlacesPerTurn = 128, PlacesPerPiece = 24;
    const std::optional<CurveWay> way = CurveWay::of(drawing, entity);
    if (!way)
        return NoRecord;
    const geometry::Course &course = way->pieces().front();
    const double nearest = course.nearest(side), first = course.first(), whole = course.last() - first;
    const double sign = dot(side - course.at(nearest), leftAt(course, nearest)) < 0 ? -1 : 1;
    const int count = course.arc() ? static_cast<int>(std::ceil(PlacesPerTurn * whole / geometry::FullTurn))
                                   : static_cast<int>(whole) * PlacesPerPiece;
    std::vector<Vector> places;
    for (int i = 0; i <= count; ++i) {
        const double at = first + whole * i / count;
        places.push_back(course.at(at) + leftAt(course, at) * (sign * distance));
    }
    const geometry::Nurbs spline = geometry::splineThrough(places, course.slope(first), course.slope(course.last()));
    const GroupList groups = splineGroups(commonGroups(drawing.database().groups(entity), u"SPLINE"), spline);
    return addEntityTo(drawing, groups, destinationOf(drawing.database(), entity));
}

} // namespace

RecordId offsetEntity(Drawing &drawing, RecordId entity, double distance, const Vector &side)
{
    const std::u16string type = drawing.database().type(entity);
    if (type == u"LINE")
        return offsetLine(drawing, entity, distance, side);
    if (type == u"CIRCLE" || type == u"ARC")
        return offsetCircle(drawing, entity, distance, side);
    if (type == u"ELLIPSE" || type == u"SPLINE")
        return offsetCurve(drawing, entity, distance, side);
    return offsetPolyline(drawing, entity, distance, side);
}

std::optional<double> offsetThrough(const Drawing &drawing, RecordId entity, const Vector &place)
{
    const GroupList groups = drawing.database().groups(entity);
    const std::u16string type = drawing.database().type(entity);
    const Vector first = placeOf(groups, groupcode::FirstX);
    if (type == u"LINE") {
        const Vector along = geometry::normalized(placeOf(groups, EndCode) - first);
        return geometry::length(geometry::cross(along, place - first));
    }
    const Vector inObject = geometry::inverse(Matrix::ofExtrusion(extrusionOf(groups))).place(place);
    if (type == u"CIRCLE" || type == u"ARC")
        return std::abs(std::hypot(inObject.x - first.x, inObject.y - first.y) - realOf(groups, RadiusCode));
    if (const std::optional<CurveWay> way = CurveWay::of(drawing, entity);
        way && !polylineOf(drawing.database(), entity))
        return geometry::length(way->at(way->nearest(place)) - place);
    const std::optional<PolylineData> polyline = polylineOf(drawing.database(), entity);
    const std::vector<Segment> segments = polyline ? segmentsOfPolyline(*polyline) : std::vector<Segment>();
    if (segments.empty())
        return std::nullopt;
    return std::abs(signedDistance(nearestSegment(segments, inObject), inObject));
}

} // namespace drawing
