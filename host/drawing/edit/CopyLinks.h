#pragma once

#include "host/drawing/Drawing.h"

#include <vector>

namespace drawing {

struct EntityCopy
{
    RecordId original, copy;
};

// What was copied together, and what stands for itself beside it, points to itself as the originals do: handles in
// extended data and in an entity's groups that lead from one original to another lead from the copy to the other's
// copy. Those that lead elsewhere stay.
void linkCopies(Drawing &drawing, const std::vector<EntityCopy> &copies);

} // namespace drawing
