// BREAK: takes a piece out of a curve, or cuts it in two.

#include "host/commands/Commands.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/CurveWay.h"

#include <algorithm>
#include <cmath>

namespace commands {

using drawing::CurveWay;
using drawing::WayPart;

namespace {

constexpr double Rounding = 1e-9;

// What is left of a closed curve: of circles and ellipses the piece between the places, counter-clockwise, goes; of
// others the one that runs from the first to the second.
std::vector<WayPart> partsOfClosed(const CurveWay &way, double first, double second)
{
    if (std::abs(first - second) < Rounding && way.pieces().size() == 1)
        throw CommandError{u"Arc cannot be full 360 degrees."};
    const double end = first > second + Rounding ? first : first + way.count();
    return {{second, end}};
}

// A place before the start or behind the end is that end.
std::vector<WayPart> partsOfOpen(const CurveWay &way, double first, double second)
{
    const double from = std::min(first, second), to = std::max(first, second);
    std::vector<WayPart> parts;
    if (from > Rounding)
        parts.push_back({0, from});
    if (to < way.count() - Rounding)
        parts.push_back({to, way.count()});
    return parts;
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
    const Point start = co_await firstPoint(context, object);
    if (second.is(u"First"))
        second = co_await context.ask().point({u"Specify second break point: ", {}, Enter::Refused, start});
    const Vector from = plane.world(start), to = plane.world(second.value);
    const std::optional<CurveWay> way = CurveWay::of(context.drawing(), object.entity);
    if (!way)
        throw CommandError{u"Cannot break that object."};
    const double begin = way->nearest(from), end = way->nearest(to);
    const std::vector<WayPart> parts =
        way->isClosed() ? partsOfClosed(*way, begin, end) : partsOfOpen(*way, begin, end);
    if (!drawing::keepParts(context.drawing(), object.entity, parts))
        throw CommandError{u"Cannot break that object."};
}

} // namespace commands
