#pragma once

#include "host/drawing/Drawing.h"

#include <string>

// Where a record stands in its drawing.
namespace drawing {

// Whether an entity stands in the entities section and not in paper space.
bool isInModelSpace(const Database &database, RecordId entity);

// The name of the layout that an entity stands in; empty for those of other blocks.
std::u16string layoutOf(const Drawing &drawing, RecordId entity);

// The table record (before R2000: none), table or dictionary that the record belongs to.
Handle ownerOf(const Drawing &drawing, RecordId record);

} // namespace drawing
