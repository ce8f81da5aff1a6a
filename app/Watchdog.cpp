#include "app/Watchdog.h"

#include "host/interpreter/Machine.h"

#include <chrono>

Watchdog::Watchdog(lisp::Machine &machine, int seconds)
{
    if (seconds > 0)
        m_thread = std::thread([this, &machine, seconds] { watch(machine, seconds); });
}

Watchdog::~Watchdog()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    m_end.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void Watchdog::watch(lisp::Machine &machine, int seconds)
{
    std::unique_lock lock(m_mutex);
    const auto isOver = [this] { return m_isOver; };
    for (auto patience = std::chrono::seconds(seconds); !m_end.wait_for(lock, patience, isOver);
         patience = std::chrono::seconds(1)) {
        m_hasInterrupted = true;
        machine.interrupt();
    }
}
