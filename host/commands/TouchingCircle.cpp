#include "host/commands/TouchingCircle.h"

#include "host/drawing/edit/CurveWay.h"
#include "host/drawing/geometry/Crossings.h"

#include <cmath>

namespace commands {

using drawing::CurveWay;
using geometry::Course;
using geometry::EllipticArc;
using geometry::Line;
using geometry::Span;

namespace {

// Where the centres of circles lie that touch a curve: parallel lines, or circles about the same centre.
std::vector<Course> parallels(const Course &course, double distance)
{
    std::vector<Course> found;
    if (const Line *line = course.line()) {
        const Vector along = normalized(line->end - line->start, {1, 0, 0});
        const Vector left = Vector{-along.y, along.x, 0} * distance;
        found.emplace_back(Line{line->start + left, line->end + left});
        found.emplace_back(Line{line->start - left, line->end - left});
        return found;
    }
    EllipticArc arc = *course.arc();
    const double radius = length(arc.cosineAxis);
    for (const double other : {radius + distance, std::abs(radius - distance)}) {
        if (other == 0)
            continue;
        found.emplace_back(EllipticArc{arc.centre, arc.cosineAxis * (other / radius), arc.sineAxis * (other / radius)});
    }
    return found;
}

// Of the places where a line from the centre stands upright on the curve, the one that is a radius away.
Vector touchedPlace(const Course &course, const Vector &centre, double radius)
{
    Vector touched = centre;
    double least = INFINITY;
    for (const double foot : course.feet(centre, Span::Extended))
        if (const double away = std::abs(length(course.at(foot) - centre) - radius); away < least) {
            least = away;
            touched = course.at(foot);
        }
    return touched;
}

} // namespace

std::optional<Side> pickedSide(Context &context, const PickedEntity &object, const WorkPlane &plane)
{
    const std::optional<CurveWay> way = CurveWay::of(context.drawing(), object.entity);
    const std::u16string type = context.database().type(object.entity);
    if (!way || (type != u"LINE" && type != u"ARC" && type != u"CIRCLE"))
        return std::nullopt;
    const geometry::Matrix toPlane = geometry::inverse(plane.toWorld());
    const Course course(geometry::transformed(way->pieces().front().curve(), toPlane));
    const Vector place =
        object.at ? toPlane.place(WorkPlane(context.session()).world(*object.at)) : course.at(course.middle());
    return Side{object.entity, course.at(course.nearest(place)), course};
}

bool isParallelToPlane(const Side &side)
{
    constexpr double Tolerance = 1e-9; // of the size
    const auto isLevel = [](const Vector &along) { return std::abs(along.z) <= length(along) * Tolerance; };
    if (const Line *line = side.course.line())
        return isLevel(line->end - line->start);
    return isLevel(side.course.arc()->cosineAxis) && isLevel(side.course.arc()->sineAxis);
}

Touching touching(const Side &first, const Side &second, double radius)
{
    Touching best;
    double least = INFINITY;
    for (const Course &a : parallels(first.course, radius))
        for (const Course &b : parallels(second.course, radius))
            for (const geometry::Crossing &crossing : crossings(a, b, Span::Extended, Span::Extended)) {
                const Vector &centre = crossing.place;
                const Vector onFirst = touchedPlace(first.course, centre, radius),
                             onSecond = touchedPlace(second.course, centre, radius);
                const double away = length(onFirst - first.picked) + length(onSecond - second.picked);
                if (away < least) {
                    least = away;
                    best = {centre, onFirst, onSecond, true};
                }
            }
    return best;
}

} // namespace commands
