#pragma once

namespace lisp {
class Machine;
}

// Interrupts the program that runs in so many seconds, and every second from then on.
void interruptAfter(int seconds);

// While it lives, Ctrl-C makes the machine's program fail with "Function cancelled", a second one does so even if the
// program catches the error and goes on, and a third ends the process.
class InterruptScope
{
public:
    explicit InterruptScope(lisp::Machine &machine);
    ~InterruptScope();
    InterruptScope(const InterruptScope &) = delete;
    InterruptScope &operator=(const InterruptScope &) = delete;
};
