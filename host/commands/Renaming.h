#pragma once

#include "host/commands/Context.h"

namespace commands {

enum class Renaming { Possible, OfWhatIsKept, ToAnUnusableName };

// Whether a table record or block, which is its start or its table record, can have the name: no drawing can do without
// some (see isKept), names with an asterisk belong to the system, and the new one must be valid and free. Letters may
// change their case.
Renaming renamingOf(drawing::Drawing &drawing, RecordId record, std::u16string_view name);

// Gives a table record or block another name, which it can have, and follows in everything that calls it by the old
// one: in the drawing and in the settings.
void renameRecord(Session &session, RecordId record, const std::u16string &name);

// The same where a person wants it, who calls the record "layer", say. Throws CommandError when it is not possible.
void renameRecord(Context &context, std::u16string_view kind, RecordId record, const std::u16string &name);

} // namespace commands
