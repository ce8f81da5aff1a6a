// Straight things: lines, points, rectangles, filled quadrilaterals.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"

#include <cmath>

namespace commands {

using drawing::pointGroup;
using drawing::groupcode::FirstX;

namespace {

std::u16string_view nextPointPrompt(std::size_t points)
{
    constexpr std::size_t PointsOfATriangle = 3;
    return points < PointsOfATriangle ? u"Specify next point or [Undo]: " : u"Specify next point or [Close/Undo]: ";
}

double directionOf(const Point &from, const Point &to)
{
    return std::atan2(to.y - from.y, to.x - from.x);
}

// The end of what was drawn last, as the first point. Behind an arc the first line goes on in its direction, so that
// its length says the second point, too.
Task<std::vector<Point>> goOnFrom(Context &context, const WorkPlane &plane, const DrawnEnd end)
{
    std::vector<Point> points{plane.user(end.place)};
    if (end.isArc) {
        const auto length = co_await context.ask().distance({u"Length of line: ", {}, Enter::Refused, points.front()});
        points.push_back(plane.user(end.place + end.direction * length.value));
    }
    context.session().assign(u"LASTPOINT", points.back());
    co_return points;
}

Task<std::vector<Point>> askStart(Context &context, const WorkPlane &plane)
{
    for (;;) {
        const auto first = co_await context.ask().point({u"Specify first point: "});
        if (first.hasValue())
            co_return std::vector<Point>{first.value};
        if (const std::optional<DrawnEnd> end = context.memory().drawnEnd) {
            std::vector<Point> points = co_await goOnFrom(context, plane, *end);
            co_return points;
        }
        context.session().print(u"\nNo line or arc to continue.\n");
    }
}

RecordId addSegment(Context &context, const WorkPlane &plane, const Point &from, const Point &to)
{
    rememberEnd(context, plane, to, directionOf(from, to), Shape::Straight);
    return addLine(context, plane.world(from), plane.world(to));
}

} // namespace

Command line(Context &context)
{
    const WorkPlane plane(context.session());
    const std::optional<DrawnEnd> before = context.memory().drawnEnd;
    std::vector<Point> points = co_await askStart(context, plane);
    Selection lines;
    if (points.size() > 1)
        lines.push_back(addSegment(context, plane, points.front(), points.back()));
    for (;;) {
        const auto next = co_await context.ask().point(
            {nextPointPrompt(points.size()), u"Close Undo", Enter::Allowed, points.back()});
        if (next.isNothing())
            co_return;
        if (next.is(u"Undo")) {
            if (lines.empty())
                continue;
            context.database().erase(lines.back());
            lines.pop_back();
            points.pop_back();
            context.memory().drawnEnd = before;
            if (points.size() > 1)
                rememberEnd(context, plane, points.back(), directionOf(points[points.size() - 2], points.back()),
                            Shape::Straight);
            context.session().assign(u"LASTPOINT", points.back());
            continue;
        }
        const bool closes = next.is(u"Close");
        if (closes && points.size() < 3)
            continue;
        const Point end = closes ? points.front() : next.value;
        lines.push_back(addSegment(context, plane, points.back(), end));
        points.push_back(end);
        if (closes)
            co_return;
    }
}

Command point(Context &context)
{
    const WorkPlane plane(context.session());
    const auto place = co_await context.ask().point({u"Specify a point: ", {}, Enter::Refused});
    drawing::GroupList groups = newEntity(context, u"POINT");
    groups.push_back(pointGroup(FirstX, plane.world(place.value)));
    extrude(context, plane, groups);
    addEntity(context, groups);
}

// Corners go zigzag: the third lies opposite the second.
Command solid(Context &context)
{
    const WorkPlane plane(context.session());
    const auto first = co_await context.ask().point({u"Specify first point: ", {}, Enter::Refused});
    const auto second = co_await context.ask().point({u"Specify second point: ", {}, Enter::Refused});
    const auto third = co_await context.ask().point({u"Specify third point: ", {}, Enter::Refused});
    Vector corners[] = {plane.object(first.value), plane.object(second.value), plane.object(third.value), {}};
    for (;;) {
        const auto fourth = co_await context.ask().point({u"Specify fourth point or <exit>: "});
        corners[3] = fourth.hasValue() ? plane.object(fourth.value) : corners[2];
        drawing::GroupList groups = newEntity(context, u"SOLID");
        for (int corner = 0; corner < 4; ++corner)
            groups.push_back(pointGroup(FirstX + corner, corners[corner]));
        extrude(context, plane, groups);
        addEntity(context, groups);
        if (fourth.isNothing())
            co_return;
        corners[0] = corners[2];
        corners[1] = corners[3];
        const auto next = co_await context.ask().point({u"Specify third point or <exit>: "});
        if (next.isNothing())
            co_return;
        corners[2] = plane.object(next.value);
    }
}

} // namespace commands
