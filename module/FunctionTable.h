#pragma once

#include "lisp/LispHandler.h"

#include <span>

struct FunctionRow
{
    const char *name; // as LISP programs write it, in 8-bit text
    LispHandler handler;
};

// Every LISP function of the module, in the order in which they are defined.
std::span<const FunctionRow> functionTable();
