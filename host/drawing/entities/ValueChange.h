#pragma once

#include "host/drawing/Drawing.h"

namespace drawing {

// The change that programs make most: `wanted` is the record's listing, in its order, with other values here and there.
// Only these are written, where the old ones were, which is many times as fast as to find a place for every group.
// False, and nothing is changed, for any other list; changeRecord() takes all of them.
bool changeValues(Drawing &drawing, RecordId record, const GroupList &wanted);

// A group that a program's list never changes, wherever it stands.
bool isFixed(int code);

} // namespace drawing
