#include "app/Interrupts.h"

#include "app/OutputBuffer.h"
#include "host/interpreter/Machine.h"

#include <atomic>
#include <csignal>

namespace {

constexpr int PatientInterrupts = 2;

std::atomic<lisp::Machine *> interruptible = nullptr;
std::atomic<int> signalCount = 0;
std::atomic<bool> areKept = false; // signals while no program runs

// As shells have it for what they start in the background: then Ctrl-C is for somebody else.
bool isIgnoredFromTheStart()
{
    const auto atStart = std::signal(SIGINT, SIG_IGN); // there is no other way to ask that every system has
    std::signal(SIGINT, atStart);
    return atStart == SIG_IGN;
}

void handleInterrupts(void (*handler)(int))
{
    static const bool areIgnored = isIgnoredFromTheStart();
    if (!areIgnored)
        std::signal(SIGINT, handler);
}

} // namespace

extern "C" void onInterrupt(int signal)
{
    lisp::Machine *machine = interruptible.load(std::memory_order_relaxed);
    const bool isHeard = machine || areKept.load(std::memory_order_relaxed);
    if (isHeard && signalCount.fetch_add(1, std::memory_order_relaxed) < PatientInterrupts) {
        if (machine)
            machine->interrupt();
        std::signal(signal, onInterrupt); // some systems reset the handler at its call
    } else {
        std::signal(signal, SIG_DFL);
        OutputBuffer::sendTheLast();
        std::raise(signal);
    }
}

InterruptScope::InterruptScope(lisp::Machine &machine)
{
    machine.clearInterrupts();
    if (!areKept)
        signalCount = 0;
    interruptible = &machine;
    if (signalCount > 0)
        machine.interrupt();
    handleInterrupts(onInterrupt);
}

InterruptScope::~InterruptScope()
{
    if (!areKept)
        handleInterrupts(SIG_DFL);
    interruptible = nullptr;
}

bool InterruptScope::hasInterrupted() const
{
    return signalCount > 0;
}

KeptInterrupts::KeptInterrupts()
{
    signalCount = 0;
    areKept = true;
    handleInterrupts(onInterrupt);
}

KeptInterrupts::~KeptInterrupts()
{
    handleInterrupts(SIG_DFL);
    areKept = false;
}

bool KeptInterrupts::hasInterrupted() const
{
    return signalCount > 0;
}

void KeptInterrupts::forget()
{
    signalCount = 0;
}
