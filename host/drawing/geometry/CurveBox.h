#pragma once

#include "host/drawing/geometry/Shapes.h"

namespace geometry {

// Adds the curve's box: that of its extreme places, not of places along it.
void addBox(const Curve &curve, Box &box);

} // namespace geometry
