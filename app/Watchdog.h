#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace lisp {
class Machine;
}

// While it lives, a program of the machine that runs longer than so many seconds is interrupted, and again every second
// until it gives up.
class Watchdog
{
public:
    Watchdog(lisp::Machine &machine, int seconds); // 0: lets it run
    ~Watchdog();
    Watchdog(const Watchdog &) = delete;
    Watchdog &operator=(const Watchdog &) = delete;

    bool hasInterrupted() const { return m_hasInterrupted; }

private:
    void watch(lisp::Machine &machine, int seconds);

    std::mutex m_mutex;
    std::condition_variable m_end;
    bool m_isOver = false;
    std::atomic<bool> m_hasInterrupted = false;
    std::thread m_thread;
};
