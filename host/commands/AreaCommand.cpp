// AREA: of points and of objects, added up and subtracted; AREA and PERIMETER keep the result.

#include "host/commands/Commands.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/Area.h"

#include <cmath>

namespace commands {

namespace {

using drawing::Measured;

constexpr std::u16string_view HasNoArea = u"Selected object does not have an area.";

void tell(Context &context, const Measured &measured)
{
    Session &session = context.session();
    session.assign(u"AREA", measured.area);
    session.assign(u"PERIMETER", measured.length);
    context.say(u"Area = " + session.distanceText(measured.area) + u", Perimeter = " +
                session.distanceText(measured.length));
}

Measured areaOf(const std::vector<Point> &points)
{
    Measured measured;
    for (std::size_t index = 0; index < points.size(); ++index) {
        const Point &a = points[index], &b = points[(index + 1) % points.size()];
        measured.area += (a.x * b.y - b.x * a.y) / 2;
        measured.length += std::hypot(b.x - a.x, b.y - a.y);
    }
    measured.area = std::abs(measured.area);
    return measured;
}

Task<Measured> askPoints(Context &context, const Point first)
{
    std::vector<Point> points{first};
    for (;;) {
        const auto next = co_await context.ask().point(
            {u"Specify next point or [Undo/Total]: ", u"Undo Total", Enter::Allowed, points.back()});
        if (next.hasValue())
            points.push_back(next.value);
        else if (next.is(u"Undo") && points.size() > 1)
            points.pop_back();
        else if (!next.is(u"Undo"))
            co_return areaOf(points);
    }
}

Task<Measured> askObject(Context &context)
{
    const auto picked = co_await context.ask().entity({u"Select objects: ", {}, Enter::Refused});
    const std::optional<Measured> measured = drawing::measured(context.drawing(), picked.value.entity);
    if (!measured)
        throw CommandError{std::u16string(HasNoArea)};
    co_return *measured;
}

// The total so far, and how long the last one is around.
void addOne(Context &context, double sign, const Measured &one, Measured &total)
{
    total.area += sign * one.area;
    total.length = one.length;
    tell(context, total);
}

// One object after the other, until Enter.
Command addObjects(Context &context, double sign, Measured &total)
{
    for (;;) {
        const auto picked = co_await context.ask().entity(
            {sign > 0 ? u"(ADD mode) Select objects: " : u"(SUBTRACT mode) Select objects: "});
        if (!picked.hasValue())
            co_return;
        if (const std::optional<Measured> one = drawing::measured(context.drawing(), picked.value.entity))
            addOne(context, sign, *one, total);
        else
            context.session().print(u'\n' + std::u16string(HasNoArea) + u'\n');
    }
}

// Until Enter: one area after the other, each added to the total or taken from it.
Command addUp(Context &context, double sign)
{
    Measured total;
    for (;;) {
        const auto next =
            co_await context.ask().point({sign > 0 ? u"Specify first corner point or [Object/Subtract area]: "
                                                   : u"Specify first corner point or [Object/Add area]: ",
                                          sign > 0 ? u"Object Subtract" : u"Object Add"});
        if (next.isNothing())
            co_return;
        if (next.is(u"Add") || next.is(u"Subtract")) {
            sign = -sign;
            continue;
        }
        if (next.hasValue()) {
            const Measured one = co_await askPoints(context, next.value);
            addOne(context, sign, one, total);
        } else {
            co_await addObjects(context, sign, total);
        }
    }
}

} // namespace

Command area(Context &context)
{
    const auto first = co_await context.ask().point(
        {u"Specify first corner point or [Object/Add area/Subtract area] <Object>: ", u"Object Entity Add Subtract"});
    if (first.is(u"Add") || first.is(u"Subtract")) {
        co_await addUp(context, first.is(u"Add") ? 1 : -1);
        co_return;
    }
    Measured measured;
    if (first.hasValue())
        measured = co_await askPoints(context, first.value);
    else
        measured = co_await askObject(context);
    tell(context, measured);
}

} // namespace commands
