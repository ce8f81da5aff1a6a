#pragma once

#include "host/drawing/Drawing.h"

namespace drawing {

// Gives an entity the geometry of another one that was made from it. It stays the same record with its handle, owner,
// extension dictionary, reactors and extended data, also where it becomes one of another type; then it goes to the end
// of its space or block, where programs look for what was made last. False when a value cannot be written.
bool rewriteEntity(Drawing &drawing, RecordId entity, const GroupList &made);

// A new piece of an entity has its extended data.
GroupList withExtendedDataOf(const GroupList &old, GroupList groups);

} // namespace drawing
