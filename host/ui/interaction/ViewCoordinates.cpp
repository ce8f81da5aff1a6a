#include "host/ui/interaction/ViewCoordinates.h"

#include "host/commands/WorkPlane.h"
#include "host/kernel/Document.h"

#include <cmath>

using geometry::Vector;

namespace {

constexpr double LeastSlope = 1e-9; // of a plane that can be seen from above

} // namespace

LispPoint ViewCoordinates::user(const QPointF &world) const
{
    const commands::WorkPlane plane(m_document.session());
    const double elevation = m_document.session().real(u"ELEVATION");
    const commands::Point below = plane.user({world.x(), world.y(), 0});
    const commands::Point above = plane.user({world.x(), world.y(), 1});
    const Vector step{above.x - below.x, above.y - below.y, above.z - below.z};
    if (std::abs(step.z) < LeastSlope)
        return {below.x, below.y, below.z};
    const double height = (elevation - below.z) / step.z;
    return {below.x + height * step.x, below.y + height * step.y, elevation};
}

LispPoint ViewCoordinates::user(const Vector &world) const
{
    const commands::Point place = commands::WorkPlane(m_document.session()).user(world);
    return {place.x, place.y, place.z};
}

QPointF ViewCoordinates::world(const LispPoint &user) const
{
    const Vector place = commands::WorkPlane(m_document.session()).world({user.x, user.y, user.z});
    return {place.x, place.y};
}
