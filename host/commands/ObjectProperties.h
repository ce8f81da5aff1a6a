#pragma once

#include "host/commands/Context.h"

namespace commands {

// Asks for one property after the other until Enter, and gives them to the objects.
Command changeProperties(Context &context, const Selection &entities);

} // namespace commands
