#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Vector.h"
#include "host/drawing/snap/Modes.h"

#include <optional>
#include <span>

namespace snap {

// Where a person points, in the world as seen from above.
struct Aim
{
    geometry::Vector cursor;
    double aperture = 0;                  // half the side of the square about the cursor, in drawing units
    std::optional<geometry::Vector> from; // the point before: perpendiculars and tangents begin there
};

struct Snap
{
    geometry::Vector place; // in world coordinates
    Mode mode = None;
    drawing::RecordId entity = drawing::NoRecord; // of the candidates; of an intersection one of the two
};

// The place that is meant. An entity counts when a curve, point or text of it touches the aperture, and then each of
// its places does, also those outside of the aperture: the end of a line that the cursor is on somewhere. Of several
// places the nearest to the cursor is taken; Nearest only where no other lies in the aperture.
//
// The candidates are the caller's: what is seen and may be near. Each costs a walk over its shapes.
std::optional<Snap> snapAt(const drawing::Drawing &drawing, std::span<const drawing::RecordId> candidates,
                           const Aim &aim, Modes modes);

} // namespace snap
