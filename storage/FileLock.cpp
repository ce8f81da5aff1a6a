#include "storage/FileLock.h"

#include <QDeadlineTimer>
#include <QThread>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <sys/file.h>
#endif

namespace {

constexpr unsigned long PauseInMilliseconds = 1; // between two attempts

bool tryLock(int file)
{
#ifdef _WIN32
    OVERLAPPED beginning = {};
    return LockFileEx(reinterpret_cast<HANDLE>(_get_osfhandle(file)),
                      LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &beginning) != 0;
#else
    return flock(file, LOCK_EX | LOCK_NB) == 0;
#endif
}

} // namespace

FileLock::FileLock(const QString &path, std::chrono::milliseconds patience) : m_file(path + QStringLiteral(".lock"))
{
    if (!m_file.open(QIODevice::ReadWrite)) {
        m_failure = QStringLiteral("%1: %2").arg(m_file.fileName(), m_file.errorString());
        return;
    }
    const QDeadlineTimer deadline(patience);
    while (!tryLock(m_file.handle())) {
        if (deadline.hasExpired()) {
            m_failure = QStringLiteral("%1: another process keeps it locked").arg(path);
            return;
        }
        QThread::msleep(PauseInMilliseconds);
    }
}
