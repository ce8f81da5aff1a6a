#pragma once

#include "host/drawing/Drawing.h"
#include "host/kernel/variables/SystemVariables.h"

// The variables that a drawing keeps in its header.

// Gives them the values of the drawing. Those that it does not have stay as they are.
void loadVariables(SystemVariables &variables, const drawing::Drawing &drawing);

// Writes a value to the header where the drawing has the variable.
void keepVariable(drawing::Drawing &drawing, const VariableRow &variable, const VariableValue &value);
