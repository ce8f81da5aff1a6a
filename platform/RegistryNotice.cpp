#include "platform/RegistryNotice.h"

#include "storage/FileStamp.h"

#include <QFile>

#include <ctime>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t Size = sizeof(std::atomic<std::uint64_t>);
static_assert(std::atomic<std::uint64_t>::is_always_lock_free, "processes share it");

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
    if (!isMapped(current))
        return std::nullopt;
    return Moment{m_changes->load(std::memory_order_acquire), current};
}

void RegistryNotice::announce()
{
    if (isMapped(currentSecond()))
        m_changes->fetch_add(1, std::memory_order_release);
}

// Another file in its place means that other processes count there.
bool RegistryNotice::isMapped(std::int64_t current)
{
    if (m_changes != nullptr && current == m_checkedAt)
        return true;
    if (m_changes == nullptr || FileStamp::of(m_path).number != m_fileNumber) {
        unmap();
        map();
    }
    m_checkedAt = current;
    return m_changes != nullptr;
}

void RegistryNotice::map()
{
    const int file = open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file == -1)
        return; // no folder yet, or one that may not be written
    struct stat status = {};
    if (fstat(file, &status) == 0 && (status.st_size >= static_cast<off_t>(Size) || ftruncate(file, Size) == 0)) {
        void *memory = mmap(nullptr, Size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        m_changes = memory == MAP_FAILED ? nullptr : static_cast<std::atomic<std::uint64_t> *>(memory);
        m_fileNumber = status.st_ino;
    }
    close(file);
}

void RegistryNotice::unmap()
{
    if (m_changes != nullptr)
        munmap(static_cast<void *>(m_changes), Size);
    m_changes = nullptr;
}
