#include "app/Interrupts.h"

#include "host/interpreter/Machine.h"

#include <atomic>
#include <csignal>

namespace {

constexpr int PatientInterrupts = 2;

std::atomic<lisp::Machine *> interruptible = nullptr;
std::atomic<int> signalCount = 0;

} // namespace

extern "C" void onInterrupt(int signal)
{
    lisp::Machine *machine = interruptible.load(std::memory_order_relaxed);
    if (machine && signalCount.fetch_add(1, std::memory_order_relaxed) < PatientInterrupts) {
        machine->interrupt();
        std::signal(signal, onInterrupt); // some systems reset the handler at its call
    } else {
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
}

InterruptScope::InterruptScope(lisp::Machine &machine)
{
    machine.clearInterrupts();
    signalCount = 0;
    interruptible = &machine;
    std::signal(SIGINT, onInterrupt);
}

InterruptScope::~InterruptScope()
{
    std::signal(SIGINT, SIG_DFL);
    interruptible = nullptr;
}

bool InterruptScope::hasInterrupted() const
{
    return signalCount > 0;
}
