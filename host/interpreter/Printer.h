#pragma once

#include "host/interpreter/Value.h"

#include <string>

namespace lisp {

enum class PrintStyle {
    Readable, // as prin1: strings quoted and escaped
    Plain,    // as princ
};

// Appends the printed form of a value; without recursion, so that no nesting is too deep for it.
void print(std::u16string &text, Value value, PrintStyle style);
std::u16string printed(Value value, PrintStyle style = PrintStyle::Readable);

} // namespace lisp
