#pragma once

#include "host/drawing/geometry/Vector.h"

namespace commands {

// How what was drawn last ends, in the world: LINE and ARC go on from there when their first question gets Enter.
struct DrawnEnd
{
    geometry::Vector place, direction;
    bool isArc = false;
};

} // namespace commands
