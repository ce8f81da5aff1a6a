#pragma once

#include "host/interpreter/Builtins.h"

// One running call of a module function: its arguments, the result that it has set, the nodes that it was given.
class CallFrame
{
public:
    CallFrame(lisp::Machine &machine, lisp::Args arguments) : m_arguments(arguments), m_result(machine, lisp::Value()) {}

    const lisp::Args &arguments() const { return m_arguments; }

    // Builds with assertions abort on a second result. A result may follow nil all the same: a refused argument is
    // answered with nil, and a few functions go on to an answer of their own.
    void setResult(lisp::Value value);
    lisp::Value result() const { return m_result.get(); }

private:
    friend class NodePool;

    lisp::Args m_arguments;
    lisp::Rooted m_result;
    void *m_nodes = nullptr; // the pool's list of what it gave
};
