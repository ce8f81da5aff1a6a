#pragma once

#include "host/commands/Context.h"
#include "host/drawing/geometry/Matrix.h"

namespace commands {

// The variable of the drawing's header that has a variable of the model's system, as UCSORG, or of the paper's.
std::string headerNameOf(bool isPaper, std::u16string_view variable);

// The coordinate systems with a name, as matrices to the world's.

// The record of one. Throws CommandError when there is none of that name.
RecordId namedSystem(Context &context, const std::u16string &name);
geometry::Matrix systemToWorld(Context &context, RecordId system);

// Asks for the name of one, and lists them when that is wanted.
Task<geometry::Matrix> askNamedSystem(Context &context);

} // namespace commands
