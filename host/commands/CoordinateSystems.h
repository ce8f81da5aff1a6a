#pragma once

#include "host/commands/Context.h"
#include "host/drawing/geometry/Matrix.h"

namespace commands {

// The coordinate systems with a name, as matrices to the world's.

// The record of one. Throws CommandError when there is none of that name.
RecordId namedSystem(Context &context, const std::u16string &name);
geometry::Matrix systemToWorld(Context &context, RecordId system);

// Asks for the name of one, and lists them when that is wanted.
Task<geometry::Matrix> askNamedSystem(Context &context);

} // namespace commands
