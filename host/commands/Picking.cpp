#include "host/commands/Picking.h"

#include "host/commands/WorkPlane.h"
#include "host/drawing/selection/Candidates.h"
#include "host/drawing/selection/EntityIndex.h"
#include "host/drawing/selection/Region.h"
#include "host/drawing/snap/Snap.h"

#include <algorithm>
#include <cmath>

namespace commands {

namespace {

selection::Space currentSpace(const Session &session)
{
    return session.isPaperSpaceCurrent() ? selection::Space::Paper : selection::Space::Model;
}

selection::Sight sight(const Session &session)
{
    return {currentSpace(session), session.currentViewport()};
}

std::vector<selection::Place> seen(const Session &session, const std::vector<Point> &points)
{
    const WorkPlane plane(session);
    std::vector<selection::Place> places;
    for (const Point &point : points) {
        const Vector world = plane.world(point);
        places.push_back({world.x, world.y});
    }
    return places;
}

double pixelSize(const Session &session)
{
    return session.real(u"VIEWSIZE") / session.point(u"SCREENSIZE").y;
}

// Those among which a place in the world, or a line through some, can find something within the distance.
Selection visibleNear(Session &session, const std::vector<selection::Place> &places, double distance)
{
    constexpr double Rounding = 1e-9;
    geometry::Box box;
    for (const selection::Place &place : places)
        box.add(Vector{place.x, place.y, 0});
    const double size =
        std::max(std::abs(box.maximum.x) + std::abs(box.minimum.x), std::abs(box.maximum.y) + std::abs(box.minimum.y));
    const Vector reach = Vector{1, 1, 0} * (distance + Rounding * size);
    Selection entities = session.entityIndex().entitiesNear({box.minimum - reach, box.maximum + reach});
    selection::keepVisible(entities, session.drawing(), sight(session), [&] { session.pulse(); });
    return entities;
}

} // namespace

Selection thawedEntities(Session &session)
{
    return selection::thawedEntities(session.drawing(), {.space = currentSpace(session)});
}

Selection thawedEntitiesInSight(Session &session)
{
    return selection::thawedEntities(session.drawing(), sight(session));
}

Selection visibleEntities(Session &session)
{
    return selection::visibleEntities(session.drawing(), sight(session));
}

RecordId newestEntity(Session &session)
{
    return selection::newestEntity(session.drawing(), sight(session));
}

RecordId entityAt(Session &session, const Point &place)
{
    const double distance = pixelSize(session) * std::max(session.integer(u"PICKBOX"), 1);
    const std::vector<selection::Place> places = seen(session, {place});
    return selection::entityAt(session.drawing(), visibleNear(session, places, distance), places.front(), distance);
}

std::vector<Point> rectangle(const Point &corner, const Point &opposite)
{
    return {corner, {opposite.x, corner.y, corner.z}, opposite, {corner.x, opposite.y, corner.z}};
}

Selection entitiesIn(Session &session, const std::vector<Point> &polygon, Reach reach)
{
    const selection::Polygon places = seen(session, polygon);
    const auto how = reach == Reach::Inside ? selection::Reach::Inside : selection::Reach::Crossing;
    Selection entities = visibleNear(session, places, 0);
    std::erase_if(entities, [&](RecordId entity) {
        session.pulse();
        return !selection::takes(session.drawing(), entity, places, how);
    });
    return entities;
}

Selection entitiesCrossed(Session &session, const std::vector<Point> &fence)
{
    const std::vector<selection::Place> places = seen(session, fence);
    Selection entities = visibleNear(session, places, 0);
    std::erase_if(entities, [&](RecordId entity) {
        session.pulse();
        return !selection::isCrossed(session.drawing(), entity, places);
    });
    return entities;
}

std::optional<snap::Snap> snapAt(Session &session, const Point &near, snap::Modes modes,
                                 const std::optional<Point> &from)
{
    const WorkPlane plane(session);
    const double aperture = pixelSize(session) * session.integer(u"APERTURE");
    snap::Aim aim{plane.world(near), aperture, std::nullopt};
    if (from)
        aim.from = plane.world(*from);
    const Selection candidates = visibleNear(session, seen(session, {near}), aperture);
    return snap::snapAt(session.drawing(), candidates, aim, modes);
}

std::optional<Point> snapped(Session &session, const Point &near, snap::Modes modes, const std::optional<Point> &from)
{
    const std::optional<snap::Snap> found = snapAt(session, near, modes, from);
    return found ? std::optional(WorkPlane(session).user(found->place)) : std::nullopt;
}

} // namespace commands
