#pragma once

#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/geometry/Shapes.h"

#include <vector>

namespace drawing {

using Loop = std::vector<geometry::Curve>; // closed; each curve begins where the one before ends

// As a polyline at a height: lines and arcs of circles as they are, others by short lines.
PolylineData polylineOf(const Loop &loop);

// A loop by short lines, from each place to the next; the last place is the first again.
using Outline = std::vector<geometry::Vector>;
Outline outlineOf(const Loop &loop);

// As seen from above.
double areaOf(const Outline &outline); // positive: counter-clockwise
bool isInside(const Outline &outline, const geometry::Vector &place);

} // namespace drawing
