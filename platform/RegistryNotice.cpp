#include "platform/RegistryNotice.h"

#include <ctime>

namespace {

std::int64_t currentSecond()
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
    return time.tv_sec;
}

} // namespace

std::optional<RegistryNotice::Moment> RegistryNotice::now()
{
    const std::int64_t current = currentSecond();
    Moment moment{0, current};
    if (!isOpen(current) || !m_changes.read(moment.changes))
        return std::nullopt;
    return moment;
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
