#pragma once

#include "host/commands/Context.h"

// The commands, each written as its prompts, top to bottom. A family is one source.
namespace commands {

// UndoCommands.cpp
Command undo(Context &context);
Command undoOne(Context &context);
Command redo(Context &context);

// VariableCommands.cpp
Command setVariable(Context &context);    // SETVAR
Command changeVariable(Context &context); // the name of a variable
Command color(Context &context);

// SelectionCommands.cpp
Command erase(Context &context);
Command select(Context &context);

} // namespace commands
