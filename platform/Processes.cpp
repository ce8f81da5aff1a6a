#include "platform/Processes.h"

#include "platform/LastError.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <map>
#include <mutex>

#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::intptr_t HandleStep = 4;
constexpr int SignalExit = 128; // a shell's way to tell that a signal ended a process

struct OpenedProcess
{
    int descriptor; // a pidfd
    pid_t id;
    DWORD access;
};

// The process's handles. Windows programs are used to handles that any thread may use.
class HandleTable
{
public:
    HANDLE add(const OpenedProcess &process)
    {
        const std::lock_guard lock(m_mutex);
        std::intptr_t number = HandleStep;
        while (m_processes.contains(number))
            number += HandleStep;
        m_processes[number] = process;
        return reinterpret_cast<HANDLE>(number);
    }
    bool find(HANDLE handle, OpenedProcess &process)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_processes.find(numberOf(handle));
        if (found == m_processes.end())
            return false;
        process = found->second;
        return true;
    }
    bool remove(HANDLE handle)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_processes.find(numberOf(handle));
        if (found == m_processes.end())
            return false;
        ::close(found->second.descriptor);
        m_processes.erase(found);
        return true;
    }
    void noteTermination(pid_t process, UINT exitCode)
    {
        const std::lock_guard lock(m_mutex);
        m_terminated[process] = exitCode;
    }
    // Whether TerminateProcess ended the process, and with which code.
    bool wasTerminated(pid_t process, DWORD &exitCode)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_terminated.find(process);
        if (found == m_terminated.end())
            return false;
        exitCode = found->second;
        return true;
    }

private:
    static std::intptr_t numberOf(HANDLE handle) { return reinterpret_cast<std::intptr_t>(handle) & ~(HandleStep - 1); }

    std::mutex m_mutex;
    std::map<std::intptr_t, OpenedProcess> m_processes;
    std::map<pid_t, UINT> m_terminated;
};

HandleTable &handles()
{
    static HandleTable table;
    return table;
}

// The rights in a mask that names them, or sets of them.
DWORD rightsOf(DWORD mask)
{
    DWORD rights = mask;
    if ((mask & (GENERIC_ALL | MAXIMUM_ALLOWED)) != 0)
        rights |= PROCESS_ALL_ACCESS;
    if ((mask & GENERIC_READ) != 0)
        rights |= PROCESS_QUERY_INFORMATION;
    if ((mask & GENERIC_EXECUTE) != 0)
        rights |= PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_TERMINATE | SYNCHRONIZE;
    return rights;
}

BOOL failWith(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

bool findWithAccess(HANDLE handle, DWORD anyOf, OpenedProcess &process)
{
    if (!handles().find(handle, process))
        return failWith(ERROR_INVALID_HANDLE);
    return (process.access & anyOf) != 0 || failWith(ERROR_ACCESS_DENIED);
}

// Polls until the descriptor is readable; false at the end of the time.
bool waitForEnd(int descriptor, DWORD milliseconds)
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

DWORD exitCodeOf(const OpenedProcess &process)
{
    siginfo_t information{};
    DWORD exitCode = 0;
    if (handles().wasTerminated(process.id, exitCode))
        return exitCode;
    const auto id = static_cast<id_t>(process.descriptor);
    if (::waitid(P_PIDFD, id, &information, WEXITED | WNOHANG | WNOWAIT) != 0 || information.si_pid == 0)
        return 0; // no child of this process
    const bool exited = information.si_code == CLD_EXITED;
    return static_cast<DWORD>(exited ? information.si_status : SignalExit + information.si_status);
}

} // namespace

HANDLE OpenProcess(DWORD access, BOOL, DWORD processId)
{
    const auto id = static_cast<pid_t>(processId);
    const int descriptor = id > 0 ? static_cast<int>(::syscall(SYS_pidfd_open, id, 0)) : -1;
    if (descriptor >= 0)
        return handles().add({descriptor, id, rightsOf(access)});
    SetLastError(id > 0 && (errno == EACCES || errno == EPERM) ? ERROR_ACCESS_DENIED : ERROR_INVALID_PARAMETER);
    return nullptr;
}

BOOL CloseHandle(HANDLE handle)
{
    if (handle == GetCurrentProcess())
        return TRUE;
    return handles().remove(handle) ? TRUE : failWith(ERROR_INVALID_HANDLE);
}

HANDLE GetCurrentProcess()
{
    return reinterpret_cast<HANDLE>(std::intptr_t{-1});
}

DWORD GetCurrentProcessId()
{
    return static_cast<DWORD>(::getpid());
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds)
{
    OpenedProcess process{};
    if (handle == GetCurrentProcess()) // does not end while it waits: nothing to poll
        return waitForEnd(-1, milliseconds) ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
    if (!findWithAccess(handle, SYNCHRONIZE, process))
        return WAIT_FAILED;
    return waitForEnd(process.descriptor, milliseconds) ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

BOOL GetExitCodeProcess(HANDLE handle, DWORD *exitCode)
{
    OpenedProcess process{};
    if (handle == GetCurrentProcess()) {
        *exitCode = STILL_ACTIVE;
        return TRUE;
    }
    if (!findWithAccess(handle, PROCESS_QUERY_INFORMATION | PROCESS_QUERY_LIMITED_INFORMATION, process))
        return FALSE;
    *exitCode = waitForEnd(process.descriptor, 0) ? exitCodeOf(process) : STILL_ACTIVE;
    return TRUE;
}

BOOL TerminateProcess(HANDLE handle, UINT exitCode)
{
    OpenedProcess process{};
    if (handle == GetCurrentProcess())
        ::_exit(static_cast<int>(exitCode)); // at once: no handlers, no flushing
    if (!findWithAccess(handle, PROCESS_TERMINATE, process))
        return FALSE;
    if (waitForEnd(process.descriptor, 0) ||
        ::syscall(SYS_pidfd_send_signal, process.descriptor, SIGKILL, nullptr, 0) != 0)
        return failWith(ERROR_ACCESS_DENIED);
    handles().noteTermination(process.id, exitCode);
    return TRUE;
}
