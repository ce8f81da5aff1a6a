#pragma once

#include "host/drawing/geometry/Matrix.h"

namespace drawing {

// Where the plane of an extruded entity goes under any affine matrix, in the coordinates of the old plane and of the
// new one. The new plane is looked at from the side from which the old one was: what runs counter-clockwise still does.
class PlaneMap
{
public:
    PlaneMap(const geometry::Matrix &matrix, const geometry::Vector &extrusion);

    bool isFlat() const { return !(geometry::length(m_extrusion) > 0); } // the plane becomes a line
    const geometry::Vector &extrusion() const { return m_extrusion; }
    geometry::Vector place(const geometry::Vector &old) const { return m_matrix.place(old); }
    geometry::Vector direction(const geometry::Vector &old) const { return m_matrix.direction(old); }
    double thickness() const { return m_matrix.z.z; } // of what is one unit thick

private:
    geometry::Vector m_extrusion;
    geometry::Matrix m_matrix;
};

// The half axes of the ellipse whose conjugate half diameters are u and v; what was at the parameter t of these is at
// t - turn of those.
struct PrincipalAxes
{
    geometry::Vector major, minor;
    double turn; // in radians
};
PrincipalAxes principalAxes(const geometry::Vector &u, const geometry::Vector &v);

} // namespace drawing
