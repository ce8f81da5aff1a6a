#pragma once

#include "host/interpreter/Errors.h"
#include "host/interpreter/Printer.h"

namespace lisp {

// The character that an integer is the code of: one UTF-16 unit.
inline char16_t characterOfCode(Value code)
{
    if (!code.isInteger())
        badArgument(u"fixnump:", code);
    if (code.asInteger() < 0 || code.asInteger() > 0xFFFF)
        fail(u"bad argument value: character code " + printed(code));
    return static_cast<char16_t>(code.asInteger());
}

} // namespace lisp
