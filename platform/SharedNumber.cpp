#include "platform/SharedNumber.h"

#include "storage/FileStamp.h"

#include <QFile>

#include <chrono>
#include <fcntl.h>
#include <mutex>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t Size = sizeof(SharedNumber::Number);
static_assert(SharedNumber::Number::is_always_lock_free, "processes share it, and a signal handler its like");

const auto pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
std::atomic<std::uintptr_t> guardedPage = 0;
struct sigaction formerAction;

// Where others begin to count from is theirs to know: a new file never goes on with the numbers of the one before it.
std::uint64_t firstNumber()
{
    return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

} // namespace

// Gives the access that failed a page of this process's own, and leaves every other error to who was there before.
void SharedNumber::replacePage(int signal, siginfo_t *information, void *)
{
    const std::uintptr_t page = guardedPage;
    const auto address = reinterpret_cast<std::uintptr_t>(information->si_addr);
    if (information->si_code > 0 && page != 0 && address - page < pageSize &&
        mmap(reinterpret_cast<void *>(page), pageSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED,
             -1, 0) != MAP_FAILED) {
        s_isPageReplaced = true;
        return;
    }
    sigaction(signal, &formerAction, nullptr); // the access is made again
    if (information->si_code <= 0)
        raise(signal); // it was sent
}

void SharedNumber::guard(void *page)
{
    static std::once_flag isInstalled;
    std::call_once(isInstalled, [] {
        struct sigaction action = {};
        action.sa_sigaction = replacePage;
        action.sa_flags = SA_SIGINFO;
        sigaction(SIGBUS, &action, &formerAction);
    });
    s_isPageReplaced = false;
    guardedPage = reinterpret_cast<std::uintptr_t>(page);
}

bool SharedNumber::open(const QString &path)
{
    close();
    const int file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file == -1)
        return false;
    struct stat status = {};
    // A file that is merely made longer has no room on the disk, which only the first access would find out.
    if (fstat(file, &status) == 0 && posix_fallocate(file, 0, Size) == 0) {
        void *memory = mmap(nullptr, Size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        m_number = memory == MAP_FAILED ? nullptr : static_cast<Number *>(memory);
        m_fileNumber = status.st_ino;
    }
    ::close(file);
    if (m_number == nullptr)
        return false;
    guard(m_number);
    std::uint64_t none = 0;
    m_number->compare_exchange_strong(none, firstNumber());
    return !isLost();
}

void SharedNumber::close()
{
    if (m_number == nullptr)
        return;
    guardedPage = 0;
    munmap(static_cast<void *>(m_number), Size);
    m_number = nullptr;
}

bool SharedNumber::isStill(const QString &path) const
{
    const FileStamp stamp = FileStamp::of(path);
    return isOpen() && stamp.number == m_fileNumber && stamp.size >= static_cast<std::int64_t>(Size);
}

bool SharedNumber::increase()
{
    m_number->fetch_add(1, std::memory_order_release);
    return !isLost();
}
