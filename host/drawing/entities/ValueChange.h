#pragma once

#include "host/drawing/entities/EntityListing.h"

#include <QVarLengthArray>

namespace drawing {

// Items of a record's listing, and as many groups that are to stand there instead: of the same codes, angles in
// radians. The items are in the order of the listing, and none of them is fixed or stands in its head.
struct ValueChanges
{
    QVarLengthArray<ListedItem, 4> items;
    GroupList groups;
};

// The change that programs make most: other values here and there. Only these are written, where the old ones are,
// which is many times as fast as to find a place for every group. False, and nothing is changed, when that is not
// enough.
bool changeValues(Drawing &drawing, RecordId record, const ValueChanges &changes);

// The same where `wanted` is the record's listing, in its order, with other values here and there. False, and nothing
// is changed, for any other list; changeRecord() takes all of them.
bool changeValues(Drawing &drawing, RecordId record, const GroupList &wanted);

} // namespace drawing
