// ID and DIST: where a place is, and how far it is from one to another.

#include "host/commands/Commands.h"
#include "host/commands/WorkPlane.h"

#include <cmath>
#include <vector>

namespace commands {

namespace {

double distanceBetween(const Point &from, const Point &to)
{
    return geometry::length(geometry::vectorOf(to) - geometry::vectorOf(from));
}

// DISTANCE keeps it.
void tell(Context &context, const Point &from, const Point &to)
{
    Session &session = context.session();
    const Vector way = geometry::vectorOf(to) - geometry::vectorOf(from);
    const double inPlane = std::atan2(way.y, way.x) - session.real(u"ANGBASE");
    const double fromPlane = std::atan2(way.z, std::hypot(way.x, way.y));
    session.assign(u"DISTANCE", geometry::length(way));
    context.say(u"Distance = " + session.distanceText(geometry::length(way)) + u",  Angle in XY Plane = " +
                session.angleText(inPlane) + u",  Angle from XY Plane = " + session.angleText(fromPlane));
    context.say(u"Delta X = " + session.distanceText(way.x) + u",  Delta Y = " + session.distanceText(way.y) +
                u",   Delta Z = " + session.distanceText(way.z));
}

double alongAll(const std::vector<Point> &points)
{
    double sum = 0;
    for (std::size_t index = 1; index < points.size(); ++index)
        sum += distanceBetween(points[index - 1], points[index]);
    return sum;
}

void tellTotal(Context &context, const std::vector<Point> &points)
{
    const double distance = alongAll(points);
    context.session().assign(u"DISTANCE", distance);
    context.say(u"Distance = " + context.session().distanceText(distance));
}

// From point to point, until Enter.
Command addUp(Context &context, const Point first)
{
    std::vector<Point> points{first};
    for (;;) {
        const auto next = co_await context.ask().point({u"Specify next point or [Close/Undo/Total] <Total>: ",
                                                        u"Close Undo Total", Enter::Allowed, points.back()});
        if (next.hasValue())
            points.push_back(next.value);
        else if (next.is(u"Close"))
            points.push_back(first);
        else if (next.is(u"Undo") && points.size() > 1)
            points.pop_back();
        tellTotal(context, points);
        if (!next.hasValue() && !next.is(u"Undo"))
            co_return;
    }
}

} // namespace

// The place becomes LASTPOINT, as every point that is given.
Command identify(Context &context)
{
    const auto place = co_await context.ask().point({u"Specify point: ", {}, Enter::Refused});
    const Session &session = context.session();
    context.say(u"X = " + session.distanceText(place.value.x) + u"     Y = " + session.distanceText(place.value.y) +
                u"     Z = " + session.distanceText(place.value.z));
}

Command distance(Context &context)
{
    const auto first = co_await context.ask().point({u"Specify first point: ", {}, Enter::Refused});
    const auto second = co_await context.ask().point(
        {u"Specify second point or [Multiple points]: ", u"Multiple", Enter::Refused, first.value});
    if (second.is(u"Multiple"))
        co_return co_await addUp(context, first.value);
    tell(context, first.value, second.value);
}

} // namespace commands
