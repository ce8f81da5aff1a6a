#include "host/drawing/edit/Similarity.h"

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

constexpr double FullTurn = 360;

// Rounding must not tilt what was drawn flat: almost upright is upright.
Vector cleaned(const Vector &direction)
{
    constexpr double Tiny = 1e-14;
    const auto clean = [](double value) { return std::abs(value) < Tiny ? 0.0 : value; };
    return geometry::normalized({clean(direction.x), clean(direction.y), clean(direction.z)});
}

} // namespace

ObjectSimilarity::ObjectSimilarity(const Similarity &similarity, const Vector &extrusion)
    : m_extrusion(cleaned(geometry::normalized(similarity.matrix.direction(extrusion)))),
      m_matrix(geometry::inverse(Matrix::ofExtrusion(m_extrusion)) * similarity.matrix *
               Matrix::ofExtrusion(extrusion)),
      m_scale(similarity.scale()), m_mirrors(similarity.mirrors())
{
}

double ObjectSimilarity::angle(double degrees) const
{
    const double radians = geometry::radians(degrees);
    const Vector turned = m_matrix.direction({std::cos(radians), std::sin(radians), 0});
    double angle = std::atan2(turned.y, turned.x) * (FullTurn / geometry::FullTurn);
    if (angle < 0)
        angle += FullTurn;
    constexpr double Tiny = 1e-12;
    return FullTurn - angle < Tiny ? 0 : angle;
}

} // namespace drawing
