#include "app/sandbox/TimeLimit.h"

#include "app/Interrupts.h"

#include <atomic>
#include <csignal>
#include <string_view>

#include <sys/time.h>
#include <unistd.h>

namespace {

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
