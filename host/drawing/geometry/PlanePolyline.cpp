#include "host/drawing/geometry/PlanePolyline.h"

namespace geometry {

namespace {

using Vertex = PlanePolyline::Vertex;

constexpr double SlightestBulge = 1e-6; // with a smaller one, the centre is too far away to compute with

Vector leftOf(const Vector &direction)
{
    return {-direction.y, direction.x, 0};
}

// An arc of less than half a turn, without its centre.
Nurbs slightArc(const Vector &start, const Vector &end, double bulge)
{
    // The ends' tangents meet at this height above the chord.
    const double height = bulge / (1 - bulge * bulge);
    const Vector apex = interpolated(start, end, 0.5) - leftOf(end - start) * height;
    const double weight = (1 - bulge * bulge) / (1 + bulge * bulge);
    return {2, {0, 0, 0, 1, 1, 1}, {start, apex, end}, {1, weight, 1}};
}

struct Segment
{
    Vertex vertex;
    Vector end;
    Vector left[2], right[2]; // the corners of a straight one, at its start and its end

    bool isWide() const { return (vertex.startWidth > 0 || vertex.endWidth > 0) && vertex.place != end; }
    bool isStraight() const { return std::abs(vertex.bulge) < SlightestBulge; }
    Vector direction() const { return normalized(end - vertex.place); }
};

std::vector<Segment> segmentsOf(const PlanePolyline &polyline)
{
    std::vector<Segment> segments;
    const std::size_t count = polyline.vertices.size();
    for (std::size_t i = 0; i < (polyline.isClosed ? count : count - 1); ++i)
        segments.push_back({polyline.vertices[i], polyline.vertices[(i + 1) % count].place, {}, {}});
    for (Segment &each : segments) {
        const Vector left = leftOf(each.direction());
        const double start = each.vertex.startWidth / 2, end = each.vertex.endWidth / 2;
        each.left[0] = each.vertex.place + left * start;
        each.right[0] = each.vertex.place - left * start;
        each.left[1] = each.end + left * end;
        each.right[1] = each.end - left * end;
    }
    return segments;
}

// Where the lines through two pairs of places cross.
Vector crossing(const Vector (&first)[2], const Vector (&second)[2])
{
    const Vector a = first[1] - first[0], b = second[1] - second[0];
    const double turn = cross(a, b).z;
    return turn == 0 ? first[1] : first[0] + a * (cross(second[0] - first[0], b).z / turn);
}

void join(Segment &first, Segment &second)
{
    constexpr double Straight = 1e-9;   // sine of a turn that is none
    constexpr double FarthestMitre = 4; // half widths: a turn of 151 degrees
    if (!first.isWide() || !second.isWide() || !first.isStraight() || !second.isStraight() ||
        std::abs(cross(first.direction(), second.direction()).z) < Straight)
        return;
    const Vector left = crossing(first.left, second.left), right = crossing(first.right, second.right);
    const double reach = FarthestMitre * std::max(first.vertex.endWidth, second.vertex.startWidth) / 2;
    if (length(left - first.end) > reach || length(right - first.end) > reach)
        return;
    first.left[1] = second.left[0] = left;
    first.right[1] = second.right[0] = right;
}

Area::Loop bentOutline(const Segment &each)
{
    const EllipticArc middle = std::get<EllipticArc>(segment(each.vertex.place, each.end, each.vertex.bulge));
    const double radius = length(middle.cosineAxis);
    const auto edge = [&](double side) {
        EllipticArc arc = middle;
        arc.startScale = std::max(0.0, 1 + side * each.vertex.startWidth / 2 / radius);
        arc.endScale = std::max(0.0, 1 + side * each.vertex.endWidth / 2 / radius);
        return arc;
    };
    const Curve outer = edge(1), inner = reversed(edge(-1));
    return {outer, Line{endOf(outer), startOf(inner)}, inner, Line{endOf(inner), startOf(outer)}};
}

Area wideArea(const Segment &each, const Matrix &plane)
{
    Area::Loop loop;
    if (each.isStraight())
        loop = {Line{each.left[0], each.left[1]}, Line{each.left[1], each.right[1]}, Line{each.right[1], each.right[0]},
                Line{each.right[0], each.left[0]}};
    else
        loop = bentOutline(each);
    for (Curve &curve : loop)
        curve = transformed(curve, plane);
    const Curve spine = segment(each.vertex.place, each.end, each.vertex.bulge);
    return {{std::move(loop)}, true, true, {transformed(spine, plane)}, {}};
}

} // namespace

Curve segment(const Vector &start, const Vector &end, double bulge)
{
    if (bulge == 0 || start == end || !std::isfinite(bulge))
        return Line{start, end};
    if (std::abs(bulge) < SlightestBulge)
        return slightArc(start, end, bulge);
    const Vector centre = interpolated(start, end, 0.5) + leftOf(end - start) * ((1 - bulge * bulge) / (4 * bulge));
    const Vector axis = start - centre;
    return EllipticArc{centre, axis, leftOf(axis) * (bulge > 0 ? 1 : -1), 0, 4 * std::atan(std::abs(bulge))};
}

void planePolylineShapes(ShapeWalk &walk, const PlanePolyline &polyline, const Matrix &plane, double thickness)
{
    if (polyline.vertices.empty())
        return;
    std::vector<Segment> segments = segmentsOf(polyline);
    for (std::size_t i = 0; i + 1 < segments.size(); ++i)
        join(segments[i], segments[i + 1]);
    if (polyline.isClosed && segments.size() > 1)
        join(segments.back(), segments.front());

    const Vector up = plane.z * thickness;
    const bool isThin =
        std::none_of(segments.begin(), segments.end(), [](const Segment &each) { return each.isWide(); });
    std::vector<Curve> path;
    for (const Segment &each : segments) {
        if (!each.isWide()) {
            path.push_back(transformed(segment(each.vertex.place, each.end, each.vertex.bulge), plane));
            continue;
        }
        walk.thickPath(std::exchange(path, {}), false, up);
        walk.thickArea(wideArea(each, plane), up);
    }
    if (segments.empty())
        path.push_back(Line{plane.place(polyline.vertices[0].place), plane.place(polyline.vertices[0].place)});
    walk.thickPath(path, polyline.isClosed && isThin, up);
}

} // namespace geometry
