#pragma once

#include "host/kernel/variables/SystemVariables.h"

// Whether the variable's rule allows the numbers of a value of its kind. Names are the drawing's matter (see
// VariableNames.h).
bool isInRange(const VariableRow &variable, const VariableValue &value);
