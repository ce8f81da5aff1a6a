#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Shapes.h"

#include <vector>

namespace drawing {

// The curves that a CIRCLE, ELLIPSE, ARC, SPLINE, polyline or LINE follows, one after the other, in world coordinates:
// in the middle of a wide polyline, at the foot of a thick curve. None for others.
std::vector<geometry::Curve> centreLine(const Drawing &drawing, RecordId entity);

} // namespace drawing
