#pragma once

#include "host/commands/Context.h"
#include "host/drawing/dimensions/DimensionStyle.h"

namespace commands {

// The variables of dimensions as they are now, into the groups of a style; and the other way.
void keepVariables(Context &context, drawing::GroupList &style);
void restoreVariables(Context &context, const drawing::GroupList &style);

// What new dimensions are drawn by.
drawing::DimensionStyle currentStyle(Context &context);

// Gives a dimension the current style by its name, and of its own what the variables have otherwise.
void giveCurrentStyle(Context &context, drawing::GroupList &dimension);

} // namespace commands
