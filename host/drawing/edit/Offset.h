#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Vector.h"

namespace drawing {

// Adds a parallel curve of a LINE, CIRCLE, ARC or plane polyline at a distance, on the side where the place is, and
// gives it. Of an ELLIPSE or SPLINE it is a spline through parallel places. NoRecord when there is none: the radius
// would be nothing, or the type has no parallel curves here.
RecordId offsetEntity(Drawing &drawing, RecordId entity, double distance, const geometry::Vector &side);

// How far the place is from the curve, to go through it.
std::optional<double> offsetThrough(const Drawing &drawing, RecordId entity, const geometry::Vector &place);

} // namespace drawing
