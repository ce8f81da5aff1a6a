#pragma once

#include "host/drawing/entities/EntityListing.h"

#include <span>

namespace drawing {

// One item of a record's listing, and the group that is to stand there instead: of the same code.
struct ChangedItem
{
    ListedItem listed;
    Group group;
};

// The change that programs make most: other values here and there. Only these are written, where the old ones are,
// which is many times as fast as to find a place for every group. The items are in the order of the listing, and none
// of them is fixed or stands in its head. False, and nothing is changed, when that is not enough.
bool changeValues(Drawing &drawing, RecordId record, std::span<const ChangedItem> changes);

// The same where `wanted` is the record's listing, in its order, with other values here and there. False, and nothing
// is changed, for any other list; changeRecord() takes all of them.
bool changeValues(Drawing &drawing, RecordId record, const GroupList &wanted);

} // namespace drawing
