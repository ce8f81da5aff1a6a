#pragma once

#include "host/commands/Context.h"
#include "host/drawing/edit/GroupEditing.h"

namespace commands {

// The records of a symbol table whose names fit a list of wildcard patterns, "A*,WALL?"; without the case of letters.
std::vector<RecordId> recordsLike(Context &context, drawing::NameId table, std::u16string_view patterns);

// Changes groups of a record. Throws CommandError when a value cannot be written.
void changeRecord(Context &context, RecordId record, const drawing::Group &group);

// Whether a name may be given to a table record or block: no characters that have a meaning of their own.
bool isValidName(std::u16string_view name);

// NoRecord when it is not there.
RecordId findRecord(Context &context, drawing::NameId table, std::u16string_view name);

// Adds a record with these groups behind its name; the same as entmake would.
RecordId addRecord(Context &context, const drawing::GroupList &groups);

} // namespace commands
