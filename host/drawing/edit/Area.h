#pragma once

#include "host/drawing/Drawing.h"

#include <optional>

namespace drawing {

struct Measured
{
    double area = 0;
    double length = 0; // the circumference; of an open curve its own length
};

// Of a CIRCLE, ELLIPSE, ARC, SPLINE, polyline or LINE, without its width and thickness; an open curve's area is that of
// the curve with a line between its ends. None for others.
std::optional<Measured> measured(const Drawing &drawing, RecordId entity);

} // namespace drawing
