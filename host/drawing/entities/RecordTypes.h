#pragma once

#include "host/drawing/Database.h"

#include <string_view>

// Which types a program may make: those that the DXF reference describes, and those that the drawing declares in its
// CLASSES section.
namespace drawing {

bool isEntityType(const Database &database, std::u16string_view type);
// Whether drawings of this version have entities of the type; one that it declares is of R13 or later.
bool canHoldEntities(const Database &database, std::u16string_view type);
bool canHoldObjects(const Database &database); // from R13 on
bool isObjectType(const Database &database, std::u16string_view type);
bool isTableRecordType(NameId type); // without those of blocks, which come with their blocks

} // namespace drawing
