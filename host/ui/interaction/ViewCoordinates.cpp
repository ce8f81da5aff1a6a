#include "host/ui/interaction/ViewCoordinates.h"

#include "host/commands/WorkPlane.h"
#include "host/kernel/Document.h"
#include "host/ui/view/DrawingView.h"

#include <cmath>

using geometry::Vector;

namespace {

constexpr double LeastSlope = 1e-9; // of a plane that can be seen

} // namespace

// Along the line of sight to the plane; where that is seen from its edge, wherever the line begins.
LispPoint ViewCoordinates::user(const QPointF &scene) const
{
    const commands::WorkPlane plane(m_document.session());
    const geometry::Matrix toWorld = geometry::inverse(m_view.space().toPage);
    const double elevation = m_document.session().real(u"ELEVATION");
    const commands::Point begin = plane.user(toWorld.place({scene.x(), scene.y(), 0}));
    const commands::Point further = plane.user(toWorld.place({scene.x(), scene.y(), 1}));
    const Vector step{further.x - begin.x, further.y - begin.y, further.z - begin.z};
    if (std::abs(step.z) < LeastSlope * length(step))
        return {begin.x, begin.y, begin.z};
    const double steps = (elevation - begin.z) / step.z;
    return {begin.x + steps * step.x, begin.y + steps * step.y, elevation};
}

LispPoint ViewCoordinates::user(const Vector &world) const
{
    const commands::Point place = commands::WorkPlane(m_document.session()).user(world);
    return {place.x, place.y, place.z};
}

Vector ViewCoordinates::world(const LispPoint &user) const
{
    return commands::WorkPlane(m_document.session()).world({user.x, user.y, user.z});
}
