#pragma once

#include "host/drawing/Group.h"

namespace drawing {

// A dimension of a drawing before R2000 with the subclass markers that newer drawings have.
GroupList withDimensionParts(const GroupList &dimension);

} // namespace drawing
