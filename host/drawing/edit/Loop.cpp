#include "host/drawing/edit/Loop.h"

#include "host/drawing/geometry/CurveBox.h"
#include "host/drawing/geometry/Flatten.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace drawing {

using geometry::Box;
using geometry::Curve;
using geometry::EllipticArc;
using geometry::Line;
using geometry::Vector;

namespace {

// How far short lines may be away from what they stand for, as a part of its size.
double toleranceOf(std::span<const Curve> curves, double fineness)
{
    constexpr double Smallest = 1e-12;
    Box box;
    for (const Curve &curve : curves)
        addBox(curve, box);
    return std::max(length(box.maximum - box.minimum) * fineness, Smallest);
}

// The arc when the curve is one of a circle.
const EllipticArc *roundArc(const Curve &curve)
{
    constexpr double Rounding = 1e-9;
    const EllipticArc *arc = std::get_if<EllipticArc>(&curve);
    const double radius = arc ? length(arc->cosineAxis) : 0;
    return arc && std::abs(radius - length(arc->sineAxis)) <= Rounding * radius ? arc : nullptr;
}

void addPlace(PolylineData &polyline, const Vector &place, double bulge = 0)
{
    polyline.vertices.push_back({place, 0, 0, bulge});
}

// A bulge is less than half a turn. The arc turns to the right where its axes stand that way.
void addArc(PolylineData &polyline, const EllipticArc &arc)
{
    const double side = arc.cosineAxis.x * arc.sineAxis.y < arc.cosineAxis.y * arc.sineAxis.x ? -1 : 1;
    const int halves = arc.end - arc.start > geometry::FullTurn / 2 ? 2 : 1;
    const double sweep = (arc.end - arc.start) / halves;
    for (int i = 0; i < halves; ++i)
        addPlace(polyline, arc.at(arc.start + sweep * i), side * std::tan(sweep / 4));
}

void addShortLines(PolylineData &polyline, const Curve &curve)
{
    constexpr double Fineness = 1e-4;
    std::vector<Vector> places{geometry::startOf(curve)};
    flatten(curve, toleranceOf({&curve, 1}, Fineness), places);
    places.pop_back(); // where the next curve begins
    for (const Vector &place : places)
        addPlace(polyline, place);
}

} // namespace

PolylineData polylineOf(const Loop &loop)
{
    PolylineData polyline;
    polyline.isClosed = true;
    for (const Curve &curve : loop) {
        if (const EllipticArc *arc = roundArc(curve))
            addArc(polyline, *arc);
        else if (std::holds_alternative<Line>(curve))
            addPlace(polyline, geometry::startOf(curve));
        else
            addShortLines(polyline, curve);
    }
    return polyline;
}

Outline outlineOf(const Loop &loop)
{
    constexpr double Fineness = 1e-5;
    return geometry::flattened({loop, true}, toleranceOf(loop, Fineness));
}

double areaOf(const Outline &outline)
{
    double twice = 0;
    for (std::size_t i = 0; i + 1 < outline.size(); ++i)
        twice += (outline[i].x - outline[0].x) * (outline[i + 1].y - outline[0].y) -
                 (outline[i + 1].x - outline[0].x) * (outline[i].y - outline[0].y);
    return twice / 2;
}

bool isInside(const Outline &outline, const Vector &place)
{
    bool inside = false;
    for (std::size_t i = 0; i + 1 < outline.size(); ++i) {
        const Vector &a = outline[i], &b = outline[i + 1];
        if ((a.y > place.y) != (b.y > place.y) && place.x < (b.x - a.x) * (place.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

} // namespace drawing
