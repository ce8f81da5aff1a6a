#pragma once

#include "host/drawing/Group.h"

namespace drawing {

// A dimension of a drawing before R2000 with the subclass markers that newer drawings have.
GroupList withDimensionParts(const GroupList &dimension);
bool hasDimensionParts(const GroupList &dimension);

// Changes the first group with the code, or adds it to what all kinds of dimensions have.
void setInDimensionPart(GroupList &dimension, const Group &group);

} // namespace drawing
