// Circles, arcs and ellipses.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"
#include "host/commands/TouchingCircle.h"

#include <cmath>
#include <optional>

namespace commands {

using drawing::pointGroup;
using drawing::realGroup;
using drawing::groupcode::FirstX;

namespace {

constexpr int RadiusCode = 40, StartAngleCode = 50, EndAngleCode = 51;
constexpr double RightAngle = geometry::FullTurn / 4;

struct Circle
{
    Point centre;
    double radius;
};

double distanceBetween(const Point &from, const Point &to)
{
    return std::hypot(to.x - from.x, to.y - from.y);
}

double angleOf(const Point &from, const Point &to)
{
    return std::atan2(to.y - from.y, to.x - from.x);
}

Point onCircle(const Circle &circle, double angle)
{
    return {circle.centre.x + circle.radius * std::cos(angle), circle.centre.y + circle.radius * std::sin(angle),
            circle.centre.z};
}

Circle circleThrough(const Point &a, const Point &b, const Point &c)
{
    const double bx = b.x - a.x, by = b.y - a.y, cx = c.x - a.x, cy = c.y - a.y;
    const double twiceArea = 2 * (bx * cy - by * cx);
    if (twiceArea == 0)
        throw CommandError{u"The points lie on one line."};
    const double b2 = bx * bx + by * by, c2 = cx * cx + cy * cy;
    const double x = (cy * b2 - by * c2) / twiceArea, y = (bx * c2 - cx * b2) / twiceArea;
    return {{a.x + x, a.y + y, a.z}, std::hypot(x, y)};
}

void addCircle(Context &context, const WorkPlane &plane, const Circle &circle)
{
    if (!(circle.radius > 0))
        throw CommandError{u"Value must be positive and nonzero."};
    drawing::GroupList groups = newEntity(context, u"CIRCLE");
    groups.push_back(pointGroup(FirstX, plane.object(circle.centre)));
    groups.push_back(realGroup(RadiusCode, circle.radius));
    extrude(context, plane, groups);
    addEntity(context, groups);
    context.session().assign(u"CIRCLERAD", circle.radius);
}

enum class Way { CounterClockwise, Clockwise };

// As it is drawn, from start to end, radians in the user's coordinate system. The entity itself goes counter-clockwise.
void addArc(Context &context, const WorkPlane &plane, const Circle &circle, double from, double to,
            Way way = Way::CounterClockwise)
{
    if (!(circle.radius > 0))
        throw CommandError{u"The arc does not exist."};
    const bool isClockwise = way == Way::Clockwise;
    const double start = isClockwise ? to : from, end = isClockwise ? from : to;
    drawing::GroupList groups = newEntity(context, u"ARC");
    groups.push_back(pointGroup(FirstX, plane.object(circle.centre)));
    groups.push_back(realGroup(RadiusCode, circle.radius));
    groups.push_back(realGroup(StartAngleCode, degrees(plane.objectAngle(start))));
    groups.push_back(realGroup(EndAngleCode, degrees(plane.objectAngle(end))));
    extrude(context, plane, groups);
    addEntity(context, groups);
    const Point last = onCircle(circle, to);
    context.session().assign(u"LASTPOINT", last);
    rememberEnd(context, plane, last, to + (isClockwise ? -RightAngle : RightAngle), Shape::Curved);
}

Way wayOf(double turn)
{
    return turn < 0 ? Way::Clockwise : Way::CounterClockwise;
}

Task<Circle> circleOfThreePoints(Context &context)
{
    const auto first = co_await context.ask().point({u"Specify first point on circle: ", {}, Enter::Refused});
    const auto second = co_await context.ask().point({u"Specify second point on circle: ", {}, Enter::Refused});
    const auto third = co_await context.ask().point({u"Specify third point on circle: ", {}, Enter::Refused});
    co_return circleThrough(first.value, second.value, third.value);
}

Task<Circle> circleOfTwoPoints(Context &context)
{
    const auto first =
        co_await context.ask().point({u"Specify first end point of circle's diameter: ", {}, Enter::Refused});
    const auto second =
        co_await context.ask().point({u"Specify second end point of circle's diameter: ", {}, Enter::Refused});
    const Point a = first.value, b = second.value;
    co_return Circle{{(a.x + b.x) / 2, (a.y + b.y) / 2, a.z}, distanceBetween(a, b) / 2};
}

Task<double> askRadius(Context &context, const Point centre)
{
    const double last = context.session().real(u"CIRCLERAD"); // 0: there is none yet
    const auto radius = co_await context.ask().distance(
        {u"Specify radius of circle or [Diameter]: ", u"Diameter", last > 0 ? Enter::Allowed : Enter::Refused, centre},
        Positive);
    if (radius.hasValue())
        co_return radius.value;
    if (radius.isNothing())
        co_return last;
    const auto diameter =
        co_await context.ask().distance({u"Specify diameter of circle: ", {}, Enter::Refused, centre}, Positive);
    co_return diameter.value / 2;
}

Task<Side> askTangent(Context &context, const WorkPlane plane, std::u16string_view prompt)
{
    for (;;) {
        const auto picked = co_await context.ask().entity({prompt, {}, Enter::Refused});
        const std::optional<Side> side = pickedSide(context, picked.value, plane);
        if (side && isParallelToPlane(*side))
            co_return *side;
        context.session().print(side ? u"\nThe object is not parallel to the plane of the UCS.\n"
                                     : u"\nRequires a line, circle, or arc.\n");
    }
}

// At the height of the first object, where another has another height: as seen from above.
Command circleTouchingTwo(Context &context, const WorkPlane &plane)
{
    const Side first = co_await askTangent(context, plane, u"Specify point on object for first tangent of circle: ");
    const Side second = co_await askTangent(context, plane, u"Specify point on object for second tangent of circle: ");
    const double last = context.session().real(u"CIRCLERAD");
    const auto asked = co_await context.ask().distance(
        {u"Specify radius of circle: ", {}, last > 0 ? Enter::Allowed : Enter::Refused}, Positive);
    const double radius = asked.hasValue() ? asked.value : last;
    const Touching found = touching(first, second, radius);
    if (!found.isFound)
        throw CommandError{u"Circle does not exist."};
    addCircle(context, plane, {{found.centre.x, found.centre.y, first.picked.z}, radius});
}

// The part of an arc command that begins with its centre.
Command arcAboutCentre(Context &context, const WorkPlane &plane, const Point centre, std::optional<Point> start)
{
    if (!start) {
        const auto asked = co_await context.ask().point({u"Specify start point of arc: ", {}, Enter::Refused});
        start = asked.value;
    }
    const Circle circle{centre, distanceBetween(centre, *start)};
    const double from = angleOf(centre, *start);
    const auto end = co_await context.ask().point(
        {u"Specify end point of arc or [Angle/chord Length]: ", u"Angle Length", Enter::Refused});
    if (end.hasValue()) {
        addArc(context, plane, circle, from, angleOf(centre, end.value));
    } else if (end.is(u"Angle")) {
        const auto angle =
            co_await context.ask().angle({u"Specify included angle: ", {}, Enter::Refused, centre}, Nonzero);
        addArc(context, plane, circle, from, from + angle.value, wayOf(angle.value));
    } else {
        const auto chord =
            co_await context.ask().distance({u"Specify length of chord: ", {}, Enter::Refused, *start}, Nonzero);
        if (std::abs(chord.value) > 2 * circle.radius)
            throw CommandError{u"The arc does not exist."};
        const double small = 2 * std::asin(std::abs(chord.value) / (2 * circle.radius));
        addArc(context, plane, circle, from, from + (chord.value < 0 ? geometry::FullTurn - small : small));
    }
}

// The arc from start to end whose included angle is known; a negative one goes clockwise.
void addArcOfAngle(Context &context, const WorkPlane &plane, const Point &start, const Point &end, double angle)
{
    constexpr double Smallest = 1e-12; // below it is the straight line, or all around
    if (std::abs(std::sin(angle / 2)) < Smallest)
        throw CommandError{u"The arc does not exist."};
    const double half = distanceBetween(start, end) / 2;
    const double radius = std::abs(half / std::sin(angle / 2));
    const double toCentre = std::sqrt(std::max(0.0, radius * radius - half * half)) *
                            (std::abs(angle) > geometry::FullTurn / 2 ? -1 : 1) * (angle < 0 ? -1 : 1);
    const double direction = angleOf(start, end);
    const Point centre{(start.x + end.x) / 2 - toCentre * std::sin(direction),
                       (start.y + end.y) / 2 + toCentre * std::cos(direction), start.z};
    const double from = angleOf(centre, start), to = angleOf(centre, end);
    addArc(context, plane, {centre, radius}, from, to, wayOf(angle));
}

// The arc that begins in the direction.
void addArcOfDirection(Context &context, const WorkPlane &plane, const Point &start, const Point &end, double direction)
{
    const double angle = 2 * std::remainder(angleOf(start, end) - direction, geometry::FullTurn);
    addArcOfAngle(context, plane, start, end, angle);
}

// The part of an arc command where both ends are known.
Command arcBetween(Context &context, const WorkPlane &plane, const Point start, const Point end)
{
    const auto choice = co_await context.ask().point(
        {u"Specify center point of arc or [Angle/Direction/Radius]: ", u"Angle Direction Radius", Enter::Refused});
    if (choice.hasValue()) {
        const Circle circle{choice.value, distanceBetween(choice.value, start)};
        addArc(context, plane, circle, angleOf(choice.value, start), angleOf(choice.value, end));
    } else if (choice.is(u"Angle")) {
        const auto angle = co_await context.ask().angle({u"Specify included angle: ", {}, Enter::Refused}, Nonzero);
        addArcOfAngle(context, plane, start, end, angle.value);
    } else if (choice.is(u"Direction")) {
        const auto direction = co_await context.ask().direction(
            {u"Specify tangent direction for the start point of arc: ", {}, Enter::Refused, start});
        addArcOfDirection(context, plane, start, end, direction.value);
    } else {
        const auto radius =
            co_await context.ask().distance({u"Specify radius of arc: ", {}, Enter::Refused, end}, Nonzero);
        const double half = distanceBetween(start, end) / 2;
        if (std::abs(radius.value) < half)
            throw CommandError{u"The arc does not exist."};
        const double small = 2 * std::asin(half / std::abs(radius.value));
        addArcOfAngle(context, plane, start, end, radius.value < 0 ? geometry::FullTurn - small : small);
    }
}

// Nothing where the arc goes on from what was drawn last.
Task<Reply<Point>> askArcStart(Context &context)
{
    for (;;) {
        const auto first = co_await context.ask().point({u"Specify start point of arc or [Center]: ", u"Center"});
        if (!first.isNothing() || context.memory().drawnEnd)
            co_return first;
        context.session().print(u"\nNo line or arc to continue.\n");
    }
}

Command arcGoingOn(Context &context, const WorkPlane &plane, const DrawnEnd last)
{
    const Point start = plane.user(last.place), ahead = plane.user(last.place + last.direction);
    context.session().assign(u"LASTPOINT", start);
    const auto end = co_await context.ask().point({u"Specify end point of arc: ", {}, Enter::Refused, start});
    addArcOfDirection(context, plane, start, end.value, angleOf(start, ahead));
}

} // namespace

Command circle(Context &context)
{
    const WorkPlane plane(context.session());
    const auto centre = co_await context.ask().point(
        {u"Specify center point for circle or [3P/2P/Ttr (tan tan radius)]: ", u"3P 2P Ttr", Enter::Refused});
    if (centre.is(u"3P")) {
        const Circle found = co_await circleOfThreePoints(context);
        addCircle(context, plane, found);
    } else if (centre.is(u"2P")) {
        const Circle found = co_await circleOfTwoPoints(context);
        addCircle(context, plane, found);
    } else if (centre.is(u"Ttr")) {
        co_await circleTouchingTwo(context, plane);
    } else {
        const double radius = co_await askRadius(context, centre.value);
        addCircle(context, plane, {centre.value, radius});
    }
}

Command arc(Context &context)
{
    const WorkPlane plane(context.session());
    const auto first = co_await askArcStart(context);
    if (first.isNothing()) {
        co_await arcGoingOn(context, plane, *context.memory().drawnEnd);
        co_return;
    }
    if (first.is(u"Center")) {
        const auto centre = co_await context.ask().point({u"Specify center point of arc: ", {}, Enter::Refused});
        co_await arcAboutCentre(context, plane, centre.value, std::nullopt);
        co_return;
    }
    const Point start = first.value;
    const auto second =
        co_await context.ask().point({u"Specify second point of arc or [Center/End]: ", u"Center End", Enter::Refused});
    if (second.is(u"Center")) {
        const auto centre = co_await context.ask().point({u"Specify center point of arc: ", {}, Enter::Refused});
        co_await arcAboutCentre(context, plane, centre.value, start);
    } else if (second.is(u"End")) {
        const auto end = co_await context.ask().point({u"Specify end point of arc: ", {}, Enter::Refused});
        co_await arcBetween(context, plane, start, end.value);
    } else {
        const auto third = co_await context.ask().point({u"Specify end point of arc: ", {}, Enter::Refused});
        const Point through = second.value, end = third.value;
        const Circle circle = circleThrough(start, through, end);
        const double from = angleOf(circle.centre, start), to = angleOf(circle.centre, end);
        const double turn = (through.x - start.x) * (end.y - start.y) - (through.y - start.y) * (end.x - start.x);
        addArc(context, plane, circle, from, to, wayOf(turn));
    }
}

} // namespace commands
