#pragma once

#include "host/drawing/geometry/Shapes.h"

namespace geometry {

// Adds points of the curve, its end but not its start, such that no place of the curve is farther than the tolerance
// from the lines between them (and no fewer than four for a full turn). The points lie on the curve.
void flatten(const Curve &curve, double tolerance, std::vector<Vector> &points);

// All points of the path; a closed one's last is its first.
std::vector<Vector> flattened(const Path &path, double tolerance);

} // namespace geometry
