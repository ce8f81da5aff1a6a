#include "host/kernel/CallFrame.h"

#include <cstdio>
#include <cstdlib>

void CallFrame::setResult(lisp::Value value)
{
#ifndef NDEBUG
    if (m_result.get().isTrue()) {
        std::fputs("call check: a second result was set\n", stderr);
        std::abort();
    }
#endif
    m_result.set(value);
}
