#pragma once

#include "host/drawing/geometry/Vector.h"

namespace geometry {

// An affine transformation: where the three unit vectors and the origin go. One whose x, y and z lie in one plane has
// no inverse.
struct Matrix
{
    Vector x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1}, origin;

    bool operator==(const Matrix &) const = default;

    Vector direction(const Vector &a) const { return x * a.x + y * a.y + z * a.z; }
    Vector place(const Vector &a) const { return direction(a) + origin; }
    double determinant() const { return dot(cross(x, y), z); } // negative: it mirrors

    static Matrix translation(const Vector &by) { return {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, by}; }
    static Matrix scale(double x, double y, double z) { return {{x, 0, 0}, {0, y, 0}, {0, 0, z}, {}}; }
    static Matrix rotation(double angle);                         // about the z axis, in radians, counterclockwise
    static Matrix rotation(const Vector &axis, double angle);     // about an axis through the origin
    static Matrix mirror(const Vector &on, const Vector &normal); // at the plane through `on`

    // From the coordinates of a plane object to those of the world: its z axis is the extrusion direction, and its x
    // axis follows from that by the "Arbitrary Axis Algorithm" of the DXF reference. A null vector is taken as (0 0 1).
    static Matrix ofExtrusion(const Vector &direction);
};

// The second first, then the first.
Matrix operator*(const Matrix &first, const Matrix &second);
Matrix inverse(const Matrix &matrix); // not a number where there is none

} // namespace geometry
