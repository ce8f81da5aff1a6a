#pragma once

#include "host/drawing/Drawing.h"

namespace drawing {

// Moves an entity along its normal until all its places have this z in its own coordinates. False where they have
// several now, or cannot be moved; then nothing is changed.
bool setElevation(Drawing &drawing, RecordId entity, double elevation);

} // namespace drawing
