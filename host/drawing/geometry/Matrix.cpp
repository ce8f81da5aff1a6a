#include "host/drawing/geometry/Matrix.h"

namespace geometry {

Matrix Matrix::rotation(double angle)
{
    const double c = std::cos(angle), s = std::sin(angle);
    return {{c, s, 0}, {-s, c, 0}, {0, 0, 1}, {}};
}

Matrix Matrix::rotation(const Vector &axis, double angle)
{
    const Vector a = normalized(axis);
    const auto turned = [&](const Vector &v) {
        return v * std::cos(angle) + cross(a, v) * std::sin(angle) + a * (dot(a, v) * (1 - std::cos(angle)));
    };
    return {turned({1, 0, 0}), turned({0, 1, 0}), turned({0, 0, 1}), {}};
}

Matrix Matrix::mirror(const Vector &on, const Vector &normal)
{
    const Vector n = normalized(normal);
    const auto mirrored = [&](const Vector &v) { return v - n * (2 * dot(n, v)); };
    return {mirrored({1, 0, 0}), mirrored({0, 1, 0}), mirrored({0, 0, 1}), n * (2 * dot(n, on))};
}

Matrix Matrix::ofExtrusion(const Vector &direction)
{
    if (direction == Vector{0, 0, 1})
        return {};
    constexpr double Near = 1.0 / 64; // a direction closer to the world's z axis than this takes the y axis
    const Vector z = normalized(direction);
    const bool isNear = std::abs(z.x) < Near && std::abs(z.y) < Near;
    const Vector x = normalized(cross(isNear ? Vector{0, 1, 0} : Vector{0, 0, 1}, z));
    return {x, normalized(cross(z, x)), z, {}};
}

Matrix operator*(const Matrix &first, const Matrix &second)
{
    return {first.direction(second.x), first.direction(second.y), first.direction(second.z),
            first.place(second.origin)};
}

Matrix inverse(const Matrix &matrix)
{
    const double factor = 1 / matrix.determinant();
    const Vector a = cross(matrix.y, matrix.z) * factor, b = cross(matrix.z, matrix.x) * factor,
                 c = cross(matrix.x, matrix.y) * factor; // the rows
    Matrix result{{a.x, b.x, c.x}, {a.y, b.y, c.y}, {a.z, b.z, c.z}, {}};
    result.origin = -result.direction(matrix.origin);
    return result;
}

} // namespace geometry
