#pragma once

#include "lisp/LispHandler.h"
#include "lisp/LispStatus.h"

// The handler as the interpreter may call it: no exception leaves it. A call that an exception (in practice, lack of
// memory) cut short ends normally with whatever result it had set, nil when none.
template <LispHandler handler> int guarded() noexcept
{
    try {
        return handler();
    } catch (...) {
        return StatusNormal;
    }
}
