#pragma once

#include "host/interpreter/Value.h"

namespace lisp {

// As `eq`: identity for lists; numbers by value, strings by their characters.
bool isSame(Value a, Value b);
// As `equal`: lists item by item, numbers within the fuzz. Without recursion along the list; nesting is limited by
// the native stack, whose end raises a LISP error through the machine's own check.
class Machine;
bool isEqual(const Machine &machine, Value a, Value b, double fuzz = 0.0);

} // namespace lisp
