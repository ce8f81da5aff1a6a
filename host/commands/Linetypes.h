#pragma once

#include "host/commands/Context.h"

namespace commands {

// The linetype of this name in the drawing; one of the standard ones is added when it is not there. NoRecord when it is
// neither.
RecordId ensureLinetype(Context &context, const std::u16string &name);

// The linetypes of a definition file whose names fit the pattern are added; of the standard ones when the file cannot
// be read. Gives how many were found.
std::size_t loadLinetypes(Context &context, const std::u16string &pattern, const QString &file);

} // namespace commands
