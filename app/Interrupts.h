#pragma once

namespace lisp {
class Machine;
}

// While it lives, Ctrl-C makes the machine's program fail with "Function cancelled"; a second Ctrl-C before that has
// happened ends the process.
class InterruptScope
{
public:
    explicit InterruptScope(lisp::Machine &machine);
    ~InterruptScope();
    InterruptScope(const InterruptScope &) = delete;
    InterruptScope &operator=(const InterruptScope &) = delete;
};
