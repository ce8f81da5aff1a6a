#pragma once

#include "host/drawing/geometry/EntityShapes.h"

#include <optional>

namespace geometry {

// The smallest box that holds the entity, in world coordinates: exact for curves, widths and thickness, by the
// outlines of the font for texts. Hidden edges count, what is visible does not matter; of an image the part that is
// shown.
// None for entities without geometry, without an end (RAY, XLINE), of unknown types, for inserts of nothing else, and
// for those with too many parts (see shapesOf).
std::optional<Box> extentsOf(const drawing::Drawing &drawing, drawing::RecordId entity);
// The same in other coordinates, to which the matrix goes from the world's.
std::optional<Box> extentsOf(const drawing::Drawing &drawing, drawing::RecordId entity, const Matrix &fromWorld);

} // namespace geometry
