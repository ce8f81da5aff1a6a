// STRETCH: moves what lies in crossing windows and polygons, and lets everything else follow.

#include "host/commands/Commands.h"
#include "host/commands/Displacement.h"
#include "host/commands/SelectObjects.h"
#include "host/drawing/edit/Drag.h"
#include "host/drawing/edit/Loop.h"

#include <QString>

namespace commands {

namespace {

// The window that an object was selected by, in the user's coordinate system; empty when it came otherwise, and moves
// as a whole.
drawing::Outline windowOf(const SelectionWays &ways, RecordId entity)
{
    const auto found = ways.find(entity);
    drawing::Outline window;
    if (found == ways.end() || found->second->kind != SelectionWay::Kind::Crossing)
        return window;
    for (const Point &place : found->second->places)
        window.push_back(geometry::vectorOf(place));
    window.push_back(window.front());
    return window;
}

} // namespace

Command stretch(Context &context)
{
    context.say(u"Select objects to stretch by crossing-window or crossing-polygon...");
    const Selection entities = co_await selectObjects(context);
    const SelectionWays ways = context.memory().ways;
    const WorkPlane plane(context.session());
    const auto base =
        co_await context.ask().point({u"Specify base point or [Displacement] <Displacement>: ", u"Displacement"});
    const Displacement displacement = co_await askDisplacement(context, plane, base);
    int left = 0;
    for (const RecordId entity : entities) {
        context.session().pulse();
        const drawing::Outline window = windowOf(ways, entity);
        const auto isWithin = [&](const Vector &place) {
            return window.empty() || drawing::isInside(window, geometry::vectorOf(plane.user(place)));
        };
        left += drawing::dragEntity(context.drawing(), entity, displacement.by, isWithin) ? 0 : 1;
    }
    if (left > 0)
        context.session().print(QStringLiteral("\n%1 object(s) could not be changed.\n").arg(left).toStdU16String());
}

} // namespace commands
