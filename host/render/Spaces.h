#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/Layouts.h"

#include <vector>

namespace render {

// The entities of a space, in the order they are drawn in, without erased ones and without the parts of polylines and
// inserts. The order is that of the drawing, or the one that its table of sorted entities gives.
std::vector<drawing::RecordId> modelEntities(const drawing::Drawing &drawing);
bool isInModel(const drawing::Drawing &drawing, drawing::RecordId entity); // whether it is one of them
std::vector<drawing::RecordId> paperEntities(const drawing::Drawing &drawing, const drawing::Layout &layout);
std::vector<drawing::RecordId> activePaperEntities(const drawing::Drawing &drawing); // also of drawings without layouts

} // namespace render
