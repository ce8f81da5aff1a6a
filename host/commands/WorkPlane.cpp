#include "host/commands/WorkPlane.h"

#include "host/drawing/edit/GroupEditing.h"

#include <cmath>
#include <numbers>

namespace commands {

using geometry::Matrix;

namespace {

Matrix userToWorld(const Session &session)
{
    const Vector x = geometry::vectorOf(session.point(u"UCSXDIR")), y = geometry::vectorOf(session.point(u"UCSYDIR"));
    return {x, y, geometry::cross(x, y), geometry::vectorOf(session.point(u"UCSORG"))};
}

} // namespace

WorkPlane::WorkPlane(const Session &session) : WorkPlane(userToWorld(session)) {}

WorkPlane::WorkPlane(const Matrix &toWorld) : m_toWorld(toWorld)
{
    m_toUser = geometry::inverse(m_toWorld);
    m_fromWorldToObject = geometry::inverse(Matrix::ofExtrusion(normal()));
}

Point WorkPlane::user(const Vector &world) const
{
    const Vector place = m_toUser.place(world);
    return {place.x, place.y, place.z};
}

double WorkPlane::objectAngle(double angle) const
{
    const Vector direction = m_fromWorldToObject.direction(m_toWorld.direction({std::cos(angle), std::sin(angle), 0}));
    return std::atan2(direction.y, direction.x);
}

double degrees(double radians)
{
    return drawing::turnInDegrees(radians);
}

} // namespace commands
