#pragma once

#include "host/drawing/Drawing.h"

#include <cstdint>
#include <unordered_set>
#include <vector>

namespace drawing {

// The windows of the current layout into the model that are on, in the drawing's order. The sheet itself, which is a
// viewport too, with the number 1, is none of them.
std::vector<RecordId> viewports(const Drawing &drawing);
bool isViewport(const Drawing &drawing, RecordId id); // whether it is one of them; it may be no record
std::int64_t viewportNumber(const Database &database, RecordId viewport); // group 69, as in CVPORT

// The layers whose entities are not seen through it, though they may be elsewhere: groups 331 and 341, and before R2000
// names in its extended data.
std::unordered_set<RecordId> layersFrozenIn(const Drawing &drawing, RecordId viewport);

// Moves what a viewport shows, by so much in units of the model as it shows them, and makes it so high.
void changeView(Database &database, RecordId viewport, double right, double up, double height);

} // namespace drawing
