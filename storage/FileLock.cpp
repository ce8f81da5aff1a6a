#include "storage/FileLock.h"

#include <QDeadlineTimer>
#include <QThread>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#endif

namespace {

constexpr unsigned long PauseInMilliseconds = 1; // between two attempts

// The bytes of the lock file that are locked. Who waits for the lock itself has the turn; so nobody who has just given
// the lock back, and wants it again at once, can overtake the one who waits.
enum Part { Turn, Whole };

#ifdef _WIN32

HANDLE handleOf(const QFile &file)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
}

bool tryLock(const QFile &file, Part part)
{
    OVERLAPPED place = {};
    place.Offset = part;
    return LockFileEx(handleOf(file), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
}

void unlock(const QFile &file, Part part)
{
    OVERLAPPED place = {};
    place.Offset = part;
    UnlockFileEx(handleOf(file), 0, 1, 0, &place);
}

#else

// Locks of the open file, not of the process: two of one process exclude one another, too.
bool setLock(const QFile &file, Part part, short type)
{
    struct flock place = {};
    place.l_type = type;
    place.l_whence = SEEK_SET;
    place.l_start = part;
    place.l_len = 1;
    return fcntl(file.handle(), F_OFD_SETLK, &place) == 0;
}

bool tryLock(const QFile &file, Part part)
{
    return setLock(file, part, F_WRLCK);
}

void unlock(const QFile &file, Part part)
{
    setLock(file, part, F_UNLCK);
}

#endif

bool waitFor(const QFile &file, Part part, const QDeadlineTimer &deadline)
{
    while (!tryLock(file, part)) {
        if (deadline.hasExpired())
            return false;
        QThread::msleep(PauseInMilliseconds);
    }
    return true;
}

} // namespace

FileLock::FileLock(const QString &path, std::chrono::milliseconds patience) : m_file(path + QStringLiteral(".lock"))
{
    if (!m_file.open(QIODevice::ReadWrite)) {
        m_failure = QStringLiteral("%1: %2").arg(m_file.fileName(), m_file.errorString());
        return;
    }
    const QDeadlineTimer deadline(patience);
    if (waitFor(m_file, Turn, deadline) && waitFor(m_file, Whole, deadline)) {
        unlock(m_file, Turn);
        return;
    }
    m_isTaken = true;
    m_failure = QStringLiteral("%1: another process keeps it locked").arg(path);
    m_file.close(); // gives the turn back
}
