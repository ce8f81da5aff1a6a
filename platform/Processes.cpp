#include "platform/Processes.h"

#include "platform/LastError.h"
#include "platform/WatchedProcess.h"

#include <cerrno>
#include <mutex>
#include <unordered_map>
#include <vector>

#include <unistd.h>

namespace {

constexpr std::size_t HandleStep = 4;

struct OpenedProcess
{
    std::shared_ptr<WatchedProcess> process;
    DWORD access = 0;
};

// The process's handles. Windows programs are used to handles that any thread may use.
class HandleTable
{
public:
    HANDLE add(const OpenedProcess &opened)
    {
        const std::lock_guard lock(m_mutex);
        std::size_t place = m_opened.size();
        if (m_closed.empty()) {
            m_opened.emplace_back();
        } else {
            place = m_closed.back();
            m_closed.pop_back();
        }
        m_opened[place] = opened;
        m_latest[opened.process->id()] = opened.process;
        return reinterpret_cast<HANDLE>((place + 1) * HandleStep);
    }
    OpenedProcess find(HANDLE handle)
    {
        const std::lock_guard lock(m_mutex);
        const std::size_t place = placeOf(handle);
        return place < m_opened.size() ? m_opened[place] : OpenedProcess();
    }
    bool remove(HANDLE handle)
    {
        const std::lock_guard lock(m_mutex);
        const std::size_t place = placeOf(handle);
        if (place >= m_opened.size() || !m_opened[place].process)
            return false;
        const pid_t id = m_opened[place].process->id();
        m_opened[place] = {};
        m_closed.push_back(place);
        if (m_latest[id].expired())
            m_latest.erase(id);
        return true;
    }
    // The process that has this number now, as another handle has it.
    std::shared_ptr<WatchedProcess> running(pid_t id)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_latest.find(id);
        const std::shared_ptr<WatchedProcess> process = found != m_latest.end() ? found->second.lock() : nullptr;
        return process && !process->hasEnded() ? process : nullptr;
    }

private:
    // Windows does not look at the lowest two bits. 0 is no handle, and leads behind all places.
    static std::size_t placeOf(HANDLE handle) { return reinterpret_cast<std::uintptr_t>(handle) / HandleStep - 1; }

    std::mutex m_mutex;
    std::vector<OpenedProcess> m_opened;                               // without a process: closed
    std::vector<std::size_t> m_closed;                                 // places of m_opened
    std::unordered_map<pid_t, std::weak_ptr<WatchedProcess>> m_latest; // that was opened by a number
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

// Null and the last error for what is no handle, or one that was opened with none of these rights.
std::shared_ptr<WatchedProcess> findWithAccess(HANDLE handle, DWORD anyOf)
{
    const OpenedProcess opened = handles().find(handle);
    if (opened.process && (opened.access & anyOf) != 0)
        return opened.process;
    SetLastError(opened.process ? ERROR_ACCESS_DENIED : ERROR_INVALID_HANDLE);
    return nullptr;
}

DWORD openingError(int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
        return ERROR_ACCESS_DENIED;
    case EMFILE:
    case ENFILE:
    case ENOMEM:
        return ERROR_NO_SYSTEM_RESOURCES;
    default:
        return ERROR_INVALID_PARAMETER;
    }
}

} // namespace

HANDLE OpenProcess(DWORD access, BOOL, DWORD processId)
{
    const auto id = static_cast<pid_t>(processId);
    if (id <= 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    std::shared_ptr<WatchedProcess> process = handles().running(id);
    if (!process)
        process = WatchedProcess::open(id);
    if (process)
        return handles().add({process, rightsOf(access)});
    SetLastError(openingError(errno));
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
    const std::shared_ptr<WatchedProcess> process =
        handle == GetCurrentProcess() ? WatchedProcess::open(::getpid()) : findWithAccess(handle, SYNCHRONIZE);
    if (!process)
        return WAIT_FAILED;
    return process->waitForEnd(milliseconds) ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

BOOL GetExitCodeProcess(HANDLE handle, DWORD *exitCode)
{
    if (handle == GetCurrentProcess()) {
        *exitCode = STILL_ACTIVE;
        return TRUE;
    }
    const std::shared_ptr<WatchedProcess> process =
        findWithAccess(handle, PROCESS_QUERY_INFORMATION | PROCESS_QUERY_LIMITED_INFORMATION);
    if (!process)
        return FALSE;
    *exitCode = process->hasEnded() ? process->exitCode() : STILL_ACTIVE;
    return TRUE;
}

BOOL TerminateProcess(HANDLE handle, UINT exitCode)
{
    if (handle == GetCurrentProcess())
        ::_exit(static_cast<int>(exitCode)); // at once: no handlers, no flushing
    const std::shared_ptr<WatchedProcess> process = findWithAccess(handle, PROCESS_TERMINATE);
    if (!process)
        return FALSE;
    return process->terminate(exitCode) ? TRUE : failWith(ERROR_ACCESS_DENIED);
}
