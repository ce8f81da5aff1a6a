// BREAK: takes a piece out of a line, an arc or a circle, or cuts it in two.

#include "host/commands/Commands.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/edit/Transform.h"

#include <algorithm>
#include <cmath>

namespace commands {

using drawing::GroupList;
using drawing::placeOf;
using drawing::pointGroup;
using drawing::realGroup;
using drawing::realOf;
using drawing::setGroup;
using drawing::groupcode::FirstX;

namespace {

constexpr int EndCode = 11, RadiusCode = 40, StartAngleCode = 50, EndAngleCode = 51;
constexpr double Turn = 360;

void replace(Context &context, RecordId entity, const GroupList &groups)
{
    if (!context.database().replace(entity, groups))
        throw CommandError{u"The object cannot be changed."};
}

// What is left of a line: from its start to the first place, and from the second to its end.
void breakLine(Context &context, RecordId entity, const Vector &first, const Vector &second)
{
    const GroupList groups = context.database().groups(entity);
    const Vector start = placeOf(groups, FirstX), along = placeOf(groups, EndCode) - start;
    const double whole = dot(along, along);
    if (whole == 0)
        throw CommandError{u"The line has no length."};
    const auto parameter = [&](const Vector &place) { return std::clamp(dot(place - start, along) / whole, 0.0, 1.0); };
    const double from = std::min(parameter(first), parameter(second)),
                 to = std::max(parameter(first), parameter(second));
    GroupList left = groups, right = groups;
    setGroup(left, pointGroup(EndCode, start + along * from));
    setGroup(right, pointGroup(FirstX, start + along * to));
    if (from > 0)
        replace(context, entity, left);
    else if (to < 1)
        replace(context, entity, right);
    else
        context.database().erase(entity);
    if (from > 0 && to < 1)
        replace(context, drawing::copyEntity(context.drawing(), entity), right);
}

double angleOf(const GroupList &groups, const Vector &place)
{
    const geometry::Matrix toObject = geometry::inverse(geometry::Matrix::ofExtrusion(drawing::extrusionOf(groups)));
    const Vector from = toObject.place(place) - placeOf(groups, FirstX);
    return degrees(std::atan2(from.y, from.x));
}

// Counter-clockwise from one angle to another: 0 to a full turn.
double sweep(double from, double to)
{
    const double angle = std::fmod(to - from, Turn);
    return angle < 0 ? angle + Turn : angle;
}

void breakArc(Context &context, RecordId entity, const Vector &first, const Vector &second)
{
    const GroupList groups = context.database().groups(entity);
    const double start = realOf(groups, StartAngleCode), whole = sweep(start, realOf(groups, EndAngleCode));
    const double a = std::min(sweep(start, angleOf(groups, first)), whole);
    const double b = std::min(sweep(start, angleOf(groups, second)), whole);
    GroupList left = groups, right = groups;
    setGroup(left, realGroup(EndAngleCode, std::fmod(start + std::min(a, b), Turn)));
    setGroup(right, realGroup(StartAngleCode, std::fmod(start + std::max(a, b), Turn)));
    const bool hasLeft = std::min(a, b) > 0, hasRight = std::max(a, b) < whole;
    if (hasLeft)
        replace(context, entity, left);
    else if (hasRight)
        replace(context, entity, right);
    else
        context.database().erase(entity);
    if (hasLeft && hasRight)
        replace(context, drawing::copyEntity(context.drawing(), entity), right);
}

// What is taken out of a circle lies counter-clockwise between the places; an arc is left.
void breakCircle(Context &context, RecordId entity, const Vector &first, const Vector &second)
{
    const GroupList groups = context.database().groups(entity);
    const double from = angleOf(groups, second), to = angleOf(groups, first);
    if (from == to)
        throw CommandError{u"Arc cannot be full 360 degrees."};
    GroupList arc = drawing::commonGroups(groups, u"ARC");
    arc.push_back(pointGroup(FirstX, placeOf(groups, FirstX)));
    arc.push_back(realGroup(RadiusCode, realOf(groups, RadiusCode)));
    arc.push_back(realGroup(StartAngleCode, from));
    arc.push_back(realGroup(EndAngleCode, to));
    for (const int code : {39, 210})
        if (const drawing::Group *group = drawing::findGroup(groups, code))
            arc.push_back(*group);
    drawing::addEntityTo(context.drawing(), arc, drawing::destinationOf(context.database(), entity));
    context.database().erase(entity);
}

Task<Point> firstPoint(Context &context, const PickedEntity picked)
{
    if (picked.at)
        co_return *picked.at;
    const auto asked = co_await context.ask().point({u"Specify first break point: ", {}, Enter::Refused});
    co_return asked.value;
}

} // namespace

Command breakObject(Context &context)
{
    const auto picked = co_await context.ask().entity({u"Select object: ", {}, Enter::Refused});
    PickedEntity object = picked.value;
    const WorkPlane plane(context.session());
    auto second =
        co_await context.ask().point({u"Specify second break point or [First point]: ", u"First", Enter::Refused});
    if (second.is(u"First"))
        object.at.reset();
    const Point first = co_await firstPoint(context, object);
    if (second.is(u"First"))
        second = co_await context.ask().point({u"Specify second break point: ", {}, Enter::Refused, first});
    const Vector from = plane.world(first), to = plane.world(second.value);
    const std::u16string type = context.database().type(object.entity);
    if (type == u"LINE")
        breakLine(context, object.entity, from, to);
    else if (type == u"ARC")
        breakArc(context, object.entity, from, to);
    else if (type == u"CIRCLE")
        breakCircle(context, object.entity, from, to);
    else
        throw CommandError{u"Cannot break that object."};
}

} // namespace commands
