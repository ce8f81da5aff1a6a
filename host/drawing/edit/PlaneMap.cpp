#include "host/drawing/edit/PlaneMap.h"

#include <cmath>
#include <utility>

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

Vector newExtrusion(const Matrix &matrix, const Vector &extrusion)
{
    const Matrix plane = Matrix::ofExtrusion(extrusion);
    return geometry::normalized(geometry::cross(matrix.direction(plane.x), matrix.direction(plane.y)), {});
}

} // namespace

PlaneMap::PlaneMap(const Matrix &matrix, const Vector &extrusion)
    : m_extrusion(newExtrusion(matrix, extrusion)),
      m_matrix(geometry::inverse(Matrix::ofExtrusion(m_extrusion)) * matrix * Matrix::ofExtrusion(extrusion))
{
}

PrincipalAxes principalAxes(const Vector &u, const Vector &v)
{
    const double turn = 0.5 * std::atan2(2 * dot(u, v), dot(u, u) - dot(v, v));
    const Vector a = u * std::cos(turn) + v * std::sin(turn), b = v * std::cos(turn) - u * std::sin(turn);
    if (length(b) > length(a))
        return {b, -a, turn + geometry::FullTurn / 4};
    return {a, b, turn};
}

} // namespace drawing
