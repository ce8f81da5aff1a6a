#pragma once

#include "host/interpreter/Value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lisp {

// One line of a back trace, innermost first.
struct TraceEntry
{
    std::u16string function;
    std::u16string file; // empty: not from a file
    std::uint32_t line = 0;
    std::uint32_t column = 0; // 0: unknown
};

// A LISP error on its way to vl-catch-all-apply or to the top level.
class LispError
{
public:
    enum class Kind { Failure, Exit };

    explicit LispError(std::u16string text, Kind errorKind = Kind::Failure) : message(std::move(text)), kind(errorKind)
    {
    }

    std::u16string message;
    Kind kind;
    std::vector<TraceEntry> trace; // filled where the error is first seen by the machine
    bool traced = false;
    bool offered = false;          // to the program's *error*, which sees an error once
    std::u16string handlerFailure; // what went wrong in the program's own *error*; empty: nothing
};

[[noreturn]] void fail(std::u16string_view message);
// "bad argument type: PREDICATE VALUE", for example (u"stringp", nil) or (u"numberp:", "a").
[[noreturn]] void badArgument(std::u16string_view predicate, Value value);

// One line a frame: "  in FUNCTION at FILE:LINE".
std::u16string traceText(const std::vector<TraceEntry> &trace);

} // namespace lisp
