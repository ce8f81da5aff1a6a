#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Vector.h"

#include <memory>
#include <vector>

namespace drawing {

// Drawings made of a part of another, with all its tables, styles and blocks. The part becomes the model, moved so that
// the base point is its origin; sheets are empty.

std::unique_ptr<Drawing> extractedEntities(const Drawing &drawing, const std::vector<RecordId> &entities,
                                           const geometry::Vector &base);
// What a block holds; the block itself stays only where something else inserts it. The start of the block is given.
std::unique_ptr<Drawing> extractedBlock(const Drawing &drawing, RecordId block);

} // namespace drawing
