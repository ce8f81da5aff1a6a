#pragma once

#include "platform/WindowsTypes.h"

#include <memory>
#include <mutex>
#include <optional>

#include <sys/types.h>

// A process by its pidfd: its number may be given to another process once it has ended, this stays with the one it was
// made for. The descriptor is closed as soon as the end was seen, so that whoever keeps handles of processes that are
// gone keeps no open files. For any thread.
class WatchedProcess
{
public:
    // Null and errno when there is no such process.
    static std::shared_ptr<WatchedProcess> open(pid_t id);

    pid_t id() const { return m_id; }
    bool waitForEnd(DWORD milliseconds); // false at the end of the time; INFINITE: none
    bool hasEnded() { return waitForEnd(0); }
    DWORD exitCode();              // of a process that has ended
    bool terminate(UINT exitCode); // false when it has ended, or belongs to somebody else

private:
    class Descriptor;

    WatchedProcess(pid_t id, std::shared_ptr<const Descriptor> descriptor);

    std::shared_ptr<const Descriptor> descriptor();
    void noteEnd();

    const pid_t m_id;
    std::mutex m_mutex;
    std::shared_ptr<const Descriptor> m_descriptor; // null: has ended
    std::optional<DWORD> m_exitCode;                // that TerminateProcess gave it, or that it ended with
};
