#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Vector.h"

namespace drawing {

// Of a TEXT, ATTRIB or ATTDEF, in the coordinates of its plane:

// Moves where it is aligned, of one between two places the first, to another place.
void moveText(GroupList &text, const geometry::Vector &place);

// Gives what follows from its letters, its style and where it is aligned: of an aligned one the rotation and the
// height, of a fitted one the rotation and the width factor, of any other that does not begin at its place, where its
// base line begins.
void settleText(const Drawing &drawing, GroupList &text);

} // namespace drawing
