#pragma once

#include "host/commands/Context.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/entities/EntityValues.h"

namespace commands {

// The records of a symbol table whose names fit a list of wildcard patterns, "A*,WALL?"; without the case of letters.
std::vector<RecordId> recordsLike(Context &context, drawing::NameId table, std::u16string_view patterns);

// Changes groups of a record. Throws CommandError when a value cannot be written.
void changeRecord(Context &context, RecordId record, const drawing::Group &group);

using drawing::isValidName;

// Whether it is one that no drawing can do without: it is neither purged nor renamed.
bool isKept(drawing::NameId table, std::u16string_view name);

// NoRecord when it is not there.
RecordId findRecord(Context &context, drawing::NameId table, std::u16string_view name);

// Adds a record with these groups behind its name; the same as entmake would.
RecordId addRecord(Context &context, const drawing::GroupList &groups);

} // namespace commands
