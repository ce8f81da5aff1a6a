#pragma once

namespace lisp {
class Machine;
}

// The handler of signals that interrupt the program that runs: see InterruptScope. Without one, or after too many, the
// signal does what it does to any process.
extern "C" void onInterrupt(int signal);

// While it lives, Ctrl-C makes the machine's program fail with "Function cancelled", a second one does so even if the
// program catches the error and goes on, and a third ends the process. A process that was started to ignore Ctrl-C
// ignores it here.
class InterruptScope
{
public:
    explicit InterruptScope(lisp::Machine &machine);
    ~InterruptScope();
    InterruptScope(const InterruptScope &) = delete;
    InterruptScope &operator=(const InterruptScope &) = delete;

    bool hasInterrupted() const; // whether there was a signal while it lived
};

// While it lives, a signal that comes between two programs is not lost and does not end the process: it interrupts the
// next program when that begins.
class KeptInterrupts
{
public:
    KeptInterrupts();
    ~KeptInterrupts();
    KeptInterrupts(const KeptInterrupts &) = delete;
    KeptInterrupts &operator=(const KeptInterrupts &) = delete;

    bool hasInterrupted() const; // whether there was a signal, since the last call of forget()
    void forget();               // what came so far interrupts nothing
};
