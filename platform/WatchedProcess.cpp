#include "platform/WatchedProcess.h"

#include "platform/Processes.h"

#include <algorithm>
#include <chrono>
#include <climits>
#include <csignal>

#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

class WatchedProcess::Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { ::close(m_number); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int number() const { return m_number; }

private:
    const int m_number;
};

namespace {

constexpr int SignalExit = 128; // a shell's way to tell that a signal ended a process

// Whether it becomes readable, as a pidfd does at the end of its process.
bool pollUntilReadable(int descriptor, DWORD milliseconds)
{
    using namespace std::chrono;
    const auto deadline = steady_clock::now() + std::chrono::milliseconds(milliseconds);
    pollfd request{descriptor, POLLIN, 0};
    for (;;) {
        int patience = -1;
        if (milliseconds != INFINITE) {
            const auto left = ceil<std::chrono::milliseconds>(deadline - steady_clock::now()).count();
            patience = static_cast<int>(std::clamp<long long>(left, 0, INT_MAX));
        }
        const int ready = ::poll(&request, 1, patience);
        if (ready > 0)
            return true;
        if (ready == 0 && patience < INT_MAX)
            return false;
    }
}

// Linux tells a process how its children ended and nobody else. 0 for other processes, and for a child whose end the
// process has taken note of already.
DWORD exitCodeOfChild(int descriptor)
{
    siginfo_t information{};
    const auto id = static_cast<id_t>(descriptor);
    if (::waitid(P_PIDFD, id, &information, WEXITED | WNOHANG | WNOWAIT) != 0 || information.si_pid == 0)
        return 0;
    const bool exited = information.si_code == CLD_EXITED;
    return static_cast<DWORD>(exited ? information.si_status : SignalExit + information.si_status);
}

} // namespace

std::shared_ptr<WatchedProcess> WatchedProcess::open(pid_t id)
{
    const auto number = static_cast<int>(::syscall(SYS_pidfd_open, id, 0));
    if (number < 0)
        return nullptr;
    return std::shared_ptr<WatchedProcess>(new WatchedProcess(id, std::make_shared<const Descriptor>(number)));
}

WatchedProcess::WatchedProcess(pid_t id, std::shared_ptr<const Descriptor> descriptor)
    : m_id(id), m_descriptor(std::move(descriptor))
{
}

bool WatchedProcess::waitForEnd(DWORD milliseconds)
{
    const std::shared_ptr<const Descriptor> open = descriptor();
    if (open && !pollUntilReadable(open->number(), milliseconds))
        return false;
    noteEnd();
    return true;
}

DWORD WatchedProcess::exitCode()
{
    const std::lock_guard lock(m_mutex);
    return m_exitCode.value_or(0);
}

bool WatchedProcess::terminate(UINT exitCode)
{
    if (hasEnded())
        return false;
    const std::lock_guard lock(m_mutex);
    if (!m_descriptor || ::syscall(SYS_pidfd_send_signal, m_descriptor->number(), SIGKILL, nullptr, 0) != 0)
        return false;
    m_exitCode = exitCode;
    return true;
}

std::shared_ptr<const WatchedProcess::Descriptor> WatchedProcess::descriptor()
{
    const std::lock_guard lock(m_mutex);
    return m_descriptor;
}

void WatchedProcess::noteEnd()
{
    const std::lock_guard lock(m_mutex);
    if (m_descriptor && !m_exitCode)
        m_exitCode = exitCodeOfChild(m_descriptor->number());
    m_descriptor.reset();
}
