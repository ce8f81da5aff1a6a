// Things that other commands could draw with more answers: ellipses, polygons, rings, endless lines.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"

#include <cmath>
#include <numbers>

namespace commands {

using drawing::pointGroup;
using drawing::realGroup;
using drawing::textGroup;
using drawing::groupcode::FirstX;

namespace {

double distanceBetween(const Point &from, const Point &to)
{
    return std::hypot(to.x - from.x, to.y - from.y);
}

double angleOf(const Point &from, const Point &to)
{
    return std::atan2(to.y - from.y, to.x - from.x);
}

Point middleOf(const Point &a, const Point &b)
{
    return {(a.x + b.x) / 2, (a.y + b.y) / 2, (a.z + b.z) / 2};
}

// The longer of the two half axes is the major one.
void addEllipse(Context &context, const Point &centre, double half, double angle, double other)
{
    if (!(half > 0) || !(other > 0))
        throw CommandError{u"The ellipse cannot be made."};
    const bool isMajor = half >= other;
    const double major = isMajor ? half : other, direction = isMajor ? angle : angle + std::numbers::pi / 2;
    const WorkPlane plane(context.session());
    constexpr int AxisCode = 11, RatioCode = 40, StartCode = 41, EndCode = 42, ExtrusionCode = 210;
    drawing::GroupList groups = newEntity(context, u"ELLIPSE");
    groups.push_back(textGroup(drawing::groupcode::Subclass, u"AcDbEllipse"));
    groups.push_back(pointGroup(FirstX, plane.world(centre)));
    groups.push_back(
        pointGroup(AxisCode, plane.toWorld().direction({major * std::cos(direction), major * std::sin(direction), 0})));
    groups.push_back(pointGroup(ExtrusionCode, plane.normal()));
    groups.push_back(realGroup(RatioCode, std::min(half, other) / major));
    groups.push_back(realGroup(StartCode, 0));
    groups.push_back(realGroup(EndCode, geometry::FullTurn));
    addEntity(context, groups);
}

// An XLINE or a RAY.
void addEndless(Context &context, const std::u16string &type, const std::u16string &marker, const Point &base,
                double angle)
{
    const WorkPlane plane(context.session());
    drawing::GroupList groups = newEntity(context, type);
    groups.push_back(textGroup(drawing::groupcode::Subclass, marker));
    groups.push_back(pointGroup(FirstX, plane.world(base)));
    groups.push_back(pointGroup(FirstX + 1, plane.toWorld().direction({std::cos(angle), std::sin(angle), 0})));
    addEntity(context, groups);
}

} // namespace

Command ellipse(Context &context)
{
    const auto first =
        co_await context.ask().point({u"Specify axis endpoint of ellipse or [Center]: ", u"Center", Enter::Refused});
    Point centre, end;
    if (first.is(u"Center")) {
        const auto asked = co_await context.ask().point({u"Specify center of ellipse: ", {}, Enter::Refused});
        centre = asked.value;
        const auto axis = co_await context.ask().point({u"Specify endpoint of axis: ", {}, Enter::Refused, centre});
        end = axis.value;
    } else {
        const auto axis =
            co_await context.ask().point({u"Specify other endpoint of axis: ", {}, Enter::Refused, first.value});
        end = axis.value;
        centre = middleOf(first.value, end);
    }
    const double half = distanceBetween(centre, end);
    const auto other = co_await context.ask().distance(
        {u"Specify distance to other axis or [Rotation]: ", u"Rotation", Enter::Refused, centre}, Positive);
    double otherHalf = other.value;
    if (other.is(u"Rotation")) { // of a circle, seen from the side
        const auto turn = co_await context.ask().angle({u"Specify rotation around major axis: ", {}, Enter::Refused});
        otherHalf = half * std::cos(turn.value);
    }
    addEllipse(context, centre, half, angleOf(centre, end), otherHalf);
}

Command polygon(Context &context)
{
    const std::u16string prompt =
        u"Enter number of sides <" + shown(std::int64_t{context.session().integer(u"POLYSIDES")}) + u">: ";
    const auto asked = co_await context.ask().integer({prompt}, {3, 1024});
    const int sides = asked.hasValue() ? asked.value : context.session().integer(u"POLYSIDES");
    context.session().assign(u"POLYSIDES", sides);
    const auto centre =
        co_await context.ask().point({u"Specify center of polygon or [Edge]: ", u"Edge", Enter::Refused});
    const double step = geometry::FullTurn / sides;
    Point middle = centre.value;
    double radius = 0, start = 0;
    if (centre.is(u"Edge")) {
        const auto first = co_await context.ask().point({u"Specify first endpoint of edge: ", {}, Enter::Refused});
        const auto second =
            co_await context.ask().point({u"Specify second endpoint of edge: ", {}, Enter::Refused, first.value});
        const double direction = angleOf(first.value, second.value);
        radius = distanceBetween(first.value, second.value) / 2 / std::sin(step / 2);
        const double toCentre = direction + (std::numbers::pi - step) / 2;
        middle = {first.value.x + radius * std::cos(toCentre), first.value.y + radius * std::sin(toCentre),
                  first.value.z};
        start = angleOf(middle, first.value);
    } else {
        const auto kind = co_await context.ask().keyword(
            {u"Enter an option [Inscribed in circle/Circumscribed about circle] <I>: ", u"Inscribed Circumscribed"});
        const auto edge =
            co_await context.ask().distance({u"Specify radius of circle: ", {}, Enter::Refused, middle}, Positive);
        const bool isAround = kind.is(u"Circumscribed");
        radius = isAround ? edge.value / std::cos(step / 2) : edge.value;
        start = -std::numbers::pi / 2 - step / 2; // the lowest side is level
    }
    const WorkPlane plane(context.session());
    std::vector<PolylineVertex> vertices;
    for (int side = 0; side < sides; ++side)
        vertices.push_back({plane.object({middle.x + radius * std::cos(start + side * step),
                                          middle.y + radius * std::sin(start + side * step), middle.z})});
    addPolyline(context, plane, vertices, Closing::Closed);
}

// A closed polyline of two half circles that is as wide as the ring.
Command donut(Context &context)
{
    const auto inside = co_await context.ask().distance({u"Specify inside diameter of donut <0.5>: "}, NotNegative);
    const auto outside = co_await context.ask().distance({u"Specify outside diameter of donut <1.0>: "}, Positive);
    const double inner = inside.hasValue() ? inside.value : 0.5, outer = outside.hasValue() ? outside.value : 1;
    const double width = std::abs(outer - inner) / 2, radius = (inner + outer) / 4;
    for (;;) {
        const auto centre = co_await context.ask().point({u"Specify center of donut or <exit>: "});
        if (centre.isNothing())
            co_return;
        const WorkPlane plane(context.session());
        const Point &at = centre.value;
        addPolyline(context, plane,
                    {{plane.object({at.x - radius, at.y, at.z}), width, width, 1},
                     {plane.object({at.x + radius, at.y, at.z}), width, width, 1}},
                    Closing::Closed);
    }
}

Command xline(Context &context)
{
    const auto first =
        co_await context.ask().point({u"Specify a point or [Hor/Ver/Ang]: ", u"Hor Ver Ang", Enter::Refused});
    double angle = first.is(u"Ver") ? std::numbers::pi / 2 : 0;
    if (first.is(u"Ang")) {
        const auto asked = co_await context.ask().direction({u"Enter angle of xline (0): "});
        angle = asked.value;
    }
    for (;;) {
        const auto through = co_await context.ask().point({u"Specify through point: "});
        if (through.isNothing())
            co_return;
        const Point base = first.hasValue() ? first.value : through.value;
        addEndless(context, u"XLINE", u"AcDbXline", base, first.hasValue() ? angleOf(base, through.value) : angle);
    }
}

Command ray(Context &context)
{
    const auto start = co_await context.ask().point({u"Specify start point: ", {}, Enter::Refused});
    for (;;) {
        const auto through =
            co_await context.ask().point({u"Specify through point: ", {}, Enter::Allowed, start.value});
        if (through.isNothing())
            co_return;
        addEndless(context, u"RAY", u"AcDbRay", start.value, angleOf(start.value, through.value));
    }
}

} // namespace commands
