#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Vector.h"

#include <functional>

namespace drawing {

using IsWithin = std::function<bool(const geometry::Vector &)>; // of a place in the world

// Moves what of an entity lies within an area: ends of lines and arcs, vertices, corners, control points. An arc keeps
// its height over its chord, a spline loses the places that it was fitted to. Entities without such places move as a
// whole when the place that they stand at lies within. False when only a part lies within and the entity cannot change
// its shape, as dimensions and hatches cannot, or when a value cannot be written; then nothing is changed.
bool dragEntity(Drawing &drawing, RecordId entity, const geometry::Vector &by, const IsWithin &isWithin);

} // namespace drawing
