#include "platform/RegistryNotice.h"

#include <ctime>
#include <utility>

namespace {

std::int64_t currentSecond()
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
    return time.tv_sec;
}

} // namespace

bool RegistryNotice::hasNews(Moment &seen)
{
    Moment now{0, currentSecond()};
    return !isOpen(now.second) || !m_changes.read(now.changes) || std::exchange(seen, now) != now;
}

// Once more in a new file when the number was lost meanwhile.
void RegistryNotice::announce()
{
    if (isOpen(currentSecond()) && !m_changes.increase() && isOpen(currentSecond()))
        m_changes.increase();
}

// Another file in its place means that other processes count there.
bool RegistryNotice::isOpen(std::int64_t current)
{
    if (m_changes.isOpen() && current == m_checkedAt)
        return true;
    if (!m_changes.isStill(m_path))
        m_changes.open(m_path);
    m_checkedAt = current;
    return m_changes.isOpen();
}
