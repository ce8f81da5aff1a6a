#pragma once

#include "host/drawing/Group.h"
#include "host/drawing/edit/Similarity.h"

namespace drawing {

// The groups of a HATCH at its new place: its boundaries, with edges of all kinds, its pattern and its seeds.
GroupList transformedHatch(const GroupList &groups, const Similarity &similarity);

} // namespace drawing
