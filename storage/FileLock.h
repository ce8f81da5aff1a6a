#pragma once

#include <QFile>
#include <QString>

#include <chrono>

// Keeps every other process, and every other FileLock of this one, from changing a file while it lives. The lock is one
// of the system's (F_OFD_SETLK in fcntl(2), LockFileEx) on a file beside, FILE.lock, so it ends with its process
// whatever that dies of. What that file holds does not matter to the lock. It stays: two processes could otherwise hold
// the locks of two files of that name. Who has it cannot take it again and again while another waits.
//
// QLockFile would not do: it knows an abandoned lock by its process number, which is another's in another container,
// and the number can be in use again.
class FileLock
{
public:
    // Waits for the lock as long as given. The folder of `path` must be there; the file itself need not.
    explicit FileLock(const QString &path, std::chrono::milliseconds patience = std::chrono::seconds(10));
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    bool isHeld() const { return m_failure.isNull(); }
    bool isTaken() const { return m_isTaken; }    // by another, all the time that this one waited
    QString failure() const { return m_failure; } // why it is not held, for the user; names the file

private:
    QFile m_file; // closing it gives the lock back
    QString m_failure;
    bool m_isTaken = false;
};
