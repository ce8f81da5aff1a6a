#pragma once

#include "host/drawing/Drawing.h"

#include <vector>

namespace drawing {

// The order in which the entities of a space or block are drawn, which need not be that of the file: a SORTENTSTABLE in
// the extension dictionary of the block's record gives entities other handles to be sorted by.

// Sorts what stands in the order of the file.
void sortForDrawing(const Database &database, RecordId blockRecord, std::vector<RecordId> &entities);

// Makes this the order; all entities of the block, each once. False when it cannot be written, as before R2000.
bool setDrawOrder(Database &database, RecordId blockRecord, const std::vector<RecordId> &entities);

} // namespace drawing
