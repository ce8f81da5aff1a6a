#pragma once

#include "host/drawing/geometry/Matrix.h"

namespace drawing {

// A transformation that keeps shapes: translation, rotation, mirror and a scale that is the same in all directions.
struct Similarity
{
    geometry::Matrix matrix;
    bool mirrorsTexts = false; // else a mirrored text stays readable (MIRRTEXT)

    double scale() const { return geometry::length(matrix.x); }
    bool mirrors() const { return matrix.determinant() < 0; }
};

// The same for what an extruded entity says in its own coordinates. Its new extrusion direction is where the old one
// goes, so a mirror turns round what runs counter-clockwise: angles, bulges.
class ObjectSimilarity
{
public:
    ObjectSimilarity(const Similarity &similarity, const geometry::Vector &extrusion);

    geometry::Vector place(const geometry::Vector &old) const { return m_matrix.place(old); }
    geometry::Vector direction(const geometry::Vector &old) const { return m_matrix.direction(old); }
    double angle(double degrees) const; // 0 to 360
    double scale() const { return m_scale; }
    bool mirrors() const { return m_mirrors; }
    const geometry::Vector &extrusion() const { return m_extrusion; }

private:
    geometry::Vector m_extrusion;
    geometry::Matrix m_matrix;
    double m_scale;
    bool m_mirrors;
};

} // namespace drawing
