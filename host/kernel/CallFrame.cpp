#include "host/kernel/CallFrame.h"

#include <cstdio>
#include <cstdlib>

void CallFrame::checkFirstResult() const
{
    if (m_result.get().isTrue()) {
        std::fputs("call check: a second result was set\n", stderr);
        std::abort();
    }
}
