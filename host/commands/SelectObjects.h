#pragma once

#include "host/commands/Context.h"

namespace commands {

// Which objects a command may take: those that it changes must not lie on locked layers.
enum class Purpose { Look, Edit };

// "Select objects:", again and again until Enter: entities, selection sets, Last, Previous, ALL, windows, fences.
// Objects that were selected before the command began are taken without asking. What is given becomes "Previous".
Task<Selection> selectObjects(Context &context, Purpose purpose = Purpose::Edit);

// The same, but the first answer that finds objects is the last.
Task<Selection> selectOnce(Context &context, Purpose purpose = Purpose::Edit);

} // namespace commands
