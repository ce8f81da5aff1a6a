#pragma once

#include "host/interpreter/Builtins.h"
#include "host/kernel/NodePool.h"

// One running call of a module function: its arguments, the result that it has set, the nodes that it was given. While
// it lives it is the host's current frame; frames of nested calls stack up.
class CallFrame
{
public:
    CallFrame(lisp::Machine &machine, lisp::Args arguments, NodePool &pool, CallFrame *&current)
        : m_arguments(arguments), m_result(machine, lisp::Value()), m_pool(pool), m_current(current), m_caller(current)
    {
        m_current = this;
    }
    // Gives nodes that were not released back to the pool.
    ~CallFrame()
    {
        if (m_nodes)
            m_pool.reclaim(*this);
        m_current = m_caller;
    }
    CallFrame(const CallFrame &) = delete;
    CallFrame &operator=(const CallFrame &) = delete;

    const lisp::Args &arguments() const { return m_arguments; }

    // Builds with assertions abort on a second result. A result may follow nil all the same: a refused argument is
    // answered with nil, and a few functions go on to an answer of their own.
    void setResult(lisp::Value value)
    {
#ifndef NDEBUG
        checkFirstResult();
#endif
        m_result.set(value);
    }
    lisp::Value result() const
    {
        return m_result.get();
    }

private:
    friend class NodePool;

    void checkFirstResult() const;

    lisp::Args m_arguments;
    lisp::Rooted m_result;
    NodePool &m_pool;
    CallFrame *&m_current;
    CallFrame *m_caller;
    void *m_nodes = nullptr; // the pool's list of what it gave
};
