#include "app/Interrupts.h"

#include "host/interpreter/Machine.h"

#include <atomic>
#include <csignal>
#include <string_view>

#include <sys/time.h>
#include <unistd.h>

namespace {

constexpr int PatientInterrupts = 2;

std::atomic<lisp::Machine *> interruptible = nullptr;

extern "C" void onInterrupt(int signal)
{
    lisp::Machine *machine = interruptible.load(std::memory_order_relaxed);
    if (machine && machine->interrupt() <= PatientInterrupts) {
        std::signal(signal, onInterrupt); // some systems reset the handler at its call
    } else {
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
}

extern "C" void onTimeLimit(int signal)
{
    constexpr std::string_view message = "lisphost: the time limit is reached\n";
    static std::atomic<bool> isSaid = false;
    if (!isSaid.exchange(true)) [[maybe_unused]]
        const ssize_t written = ::write(STDERR_FILENO, message.data(), message.size());
    onInterrupt(signal);
}

} // namespace

void interruptAfter(int seconds)
{
    std::signal(SIGALRM, onTimeLimit);
    itimerval timer{};
    timer.it_value.tv_sec = seconds;
    timer.it_interval.tv_sec = 1;
    ::setitimer(ITIMER_REAL, &timer, nullptr);
}

InterruptScope::InterruptScope(lisp::Machine &machine)
{
    machine.clearInterrupts();
    interruptible = &machine;
    std::signal(SIGINT, onInterrupt);
}

InterruptScope::~InterruptScope()
{
    std::signal(SIGINT, SIG_DFL);
    interruptible = nullptr;
}
