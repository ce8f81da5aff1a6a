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

// LineCommands.cpp
Command line(Context &context);
Command point(Context &context);
Command solid(Context &context);

Command polyline(Context &context);  // PolylineCommand.cpp
Command rectangle(Context &context); // RectangleCommand.cpp
Command text(Context &context);      // TextCommand.cpp

// CurveCommands.cpp
Command circle(Context &context);
Command arc(Context &context);

// TransformCommands.cpp
Command move(Context &context);
Command copy(Context &context);
Command rotate(Context &context);
Command scale(Context &context);
Command mirror(Context &context);

// PropertyCommands.cpp
Command chprop(Context &context);
Command change(Context &context);
Command linetype(Context &context);

// LayerCommand.cpp
Command layer(Context &context);
// With the entities on it. Throws CommandError when the name is taken or no name.
void renameLayer(Context &context, RecordId layer, const std::u16string &name);

} // namespace commands
