#pragma once

#include "host/commands/Session.h"
#include "host/drawing/geometry/Matrix.h"

namespace commands {

using geometry::Vector;

// The user's coordinate system, in which points are typed, and the coordinates of what is drawn in its plane.
class WorkPlane
{
public:
    explicit WorkPlane(const Session &session);
    explicit WorkPlane(const geometry::Matrix &toWorld); // another plane

    const geometry::Matrix &toWorld() const { return m_toWorld; }
    Vector world(const Point &point) const { return m_toWorld.place(geometry::vectorOf(point)); }
    Point user(const Vector &world) const; // the other way
    const Vector &normal() const { return m_toWorld.z; }

    // Coordinates and angles (radians) of an object that is extruded along the normal.
    Vector object(const Point &point) const { return m_fromWorldToObject.place(world(point)); }
    double objectAngle(double angle) const;

private:
    geometry::Matrix m_toWorld, m_toUser, m_fromWorldToObject;
};

double degrees(double radians); // 0 to 360

} // namespace commands
