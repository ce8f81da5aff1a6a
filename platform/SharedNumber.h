#pragma once

#include <QString>

#include <atomic>
#include <csignal>
#include <cstdint>

// A number in a small file that processes share: the file is mapped into memory, so that looking at the number costs no
// system call. The file may be cut short or its disk be full at any time. An access to a part that is not there ends a
// process (SIGBUS); here it makes the number lost instead, which every access tells. Only one at a time can be open
// in a process.
class SharedNumber
{
public:
    using Number = std::atomic<std::uint64_t>;

    SharedNumber() = default;
    ~SharedNumber() { close(); }
    SharedNumber(const SharedNumber &) = delete;
    SharedNumber &operator=(const SharedNumber &) = delete;

    // False when the file cannot be used: no folder, one that may not be written, a full disk.
    bool open(const QString &path);
    void close();
    bool isOpen() const { return m_number != nullptr; }
    bool isStill(const QString &path) const; // the number of the file that has this name now

    // False when the number is lost: it is closed then.
    bool read(std::uint64_t &number)
    {
        number = m_number->load(std::memory_order_acquire);
        return !isLost();
    }
    bool increase();

private:
    bool isLost()
    {
        if (!s_isPageReplaced)
            return false;
        close();
        return true;
    }
    static void guard(void *page);
    static void replacePage(int signal, siginfo_t *information, void *context);

    static inline std::atomic<bool> s_isPageReplaced = false; // the number's, by one of this process's own

    Number *m_number = nullptr;
    std::uint64_t m_fileNumber = 0;
};
