#include "host/kernel/CallFrame.h"

#include "host/kernel/NodePool.h"

#include <cstdio>
#include <cstdlib>

CallFrame::CallFrame(lisp::Machine &machine, lisp::Args arguments, NodePool &pool, CallFrame *&current)
    : m_arguments(arguments), m_result(machine, lisp::Value()), m_pool(pool), m_current(current), m_caller(current)
{
    m_current = this;
}

CallFrame::~CallFrame()
{
    m_pool.reclaim(*this);
    m_current = m_caller;
}

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
