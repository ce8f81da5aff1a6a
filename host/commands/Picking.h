#pragma once

#include "host/commands/Session.h"
#include "host/drawing/snap/Snap.h"

// What lies where a person points. Places are in the user's coordinate system.
namespace commands {

// All of the current space but what is on frozen layers, in drawing order.
Selection thawedEntities(Session &session);
// The same without what is frozen in the viewport that is worked through.
Selection thawedEntitiesInSight(Session &session);
// What can be seen of it.
Selection visibleEntities(Session &session);
// "Last": NoRecord when that is frozen or invisible itself.
RecordId newestEntity(Session &session);

// The entity within the pick box that is nearest; NoRecord when there is none.
RecordId entityAt(Session &session, const Point &place);

enum class Reach { Inside, Crossing };

std::vector<Point> rectangle(const Point &corner, const Point &opposite);
Selection entitiesIn(Session &session, const std::vector<Point> &polygon, Reach reach);
Selection entitiesCrossed(Session &session, const std::vector<Point> &fence);

// The place that a point near it means, within the aperture; perpendiculars and tangents begin at `from`. None: nothing
// there has such a place.
std::optional<snap::Snap> snapAt(Session &session, const Point &near, snap::Modes modes,
                                 const std::optional<Point> &from);
std::optional<Point> snapped(Session &session, const Point &near, snap::Modes modes, const std::optional<Point> &from);

} // namespace commands
