#pragma once

#include "host/drawing/Drawing.h"

#include <string>

// Where a record stands in its drawing.
namespace drawing {

// Whether an entity stands in the entities section and not in paper space.
bool isInModelSpace(const Database &database, RecordId entity);

// The name of the layout that an entity stands in; empty for those of other blocks.
std::u16string layoutOf(const Drawing &drawing, RecordId entity);

// Whether a block of this name holds the entities of the model or of a sheet of paper. Before R2000 their names could
// not begin with an asterisk.
bool isSpaceBlock(const Database &database, std::u16string_view block);

// Whether an entity's list leaves it where it is: its space (67) and layout (410) are those of now. To change these
// alone would make an entity that says it is where it is not.
bool leavesInPlace(const Drawing &drawing, RecordId entity, const GroupList &wanted);

// The table record (before R2000: none), table or dictionary that the record belongs to.
Handle ownerOf(const Drawing &drawing, RecordId record);

} // namespace drawing
