// Straight things: lines, points, rectangles, filled quadrilaterals.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"

namespace commands {

using drawing::pointGroup;
using drawing::groupcode::FirstX;

namespace {

std::u16string_view nextPointPrompt(std::size_t points)
{
    constexpr std::size_t PointsOfATriangle = 3;
    return points < PointsOfATriangle ? u"Specify next point or [Undo]: " : u"Specify next point or [Close/Undo]: ";
}

} // namespace

Command line(Context &context)
{
    const WorkPlane plane(context.session());
    const auto first = co_await context.ask().point({u"Specify first point: "});
    std::vector<Point> points{first.hasValue() ? first.value : context.session().point(u"LASTPOINT")};
    Selection lines;
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
            context.session().assign(u"LASTPOINT", points.back());
            continue;
        }
        const bool closes = next.is(u"Close");
        if (closes && points.size() < 3)
            continue;
        const Point end = closes ? points.front() : next.value;
        lines.push_back(addLine(context, plane.world(points.back()), plane.world(end)));
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
