#include "platform/Processes.h"

#include "platform/LastError.h"
#include "platform/WatchedProcess.h"

#include <cerrno>
#include <map>
#include <mutex>

#include <unistd.h>

namespace {

constexpr std::intptr_t HandleStep = 4;

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
        std::intptr_t number = HandleStep;
        while (m_opened.contains(number))
            number += HandleStep;
        m_opened[number] = opened;
        return reinterpret_cast<HANDLE>(number);
    }
    OpenedProcess find(HANDLE handle)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_opened.find(numberOf(handle));
        return found != m_opened.end() ? found->second : OpenedProcess();
    }
    bool remove(HANDLE handle)
    {
        const std::lock_guard lock(m_mutex);
        return m_opened.erase(numberOf(handle)) > 0;
    }
    // The process that has this number now, as another handle has it.
    std::shared_ptr<WatchedProcess> running(pid_t id)
    {
        const std::lock_guard lock(m_mutex);
        for (const auto &[number, opened] : m_opened)
            if (opened.process->id() == id && !opened.process->hasEnded())
                return opened.process;
        return nullptr;
    }

private:
    static std::intptr_t numberOf(HANDLE handle) { return reinterpret_cast<std::intptr_t>(handle) & ~(HandleStep - 1); }

    std::mutex m_mutex;
    std::map<std::intptr_t, OpenedProcess> m_opened;
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
