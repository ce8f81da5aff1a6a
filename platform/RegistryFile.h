#pragma once

#include "platform/RegistryFileHistory.h"
#include "storage/AtomicFile.h"
#include "storage/FileStamp.h"

#include <QByteArray>
#include <QString>

// The file of a hive: blocks of lines, each finished by the line "; end". The first block is the hive as it was when
// the file was written anew, every other one a change made since, added at the end. So a change costs its own size and
// not the hive's, and a block that a killed process left unfinished is known by the missing line.
//
// Who changes the file holds its FileLock and has read all of it. Reasons are null when nothing failed.
class RegistryFile
{
public:
    struct News
    {
        enum class Kind { None, Added, Everything };

        Kind kind = Kind::None;
        QByteArray blocks;     // complete ones
        QByteArray unfinished; // what stands behind the last complete block
        int firstLine = 1;     // of the blocks, in the file
        QString loss;          // what the file lacks though all that stands in it is complete; null when nothing
        QString failure;       // why the file cannot be read; it is not there to be replaced then
    };

    explicit RegistryFile(const QString &path) : m_path(path), m_history(path) {}

    const QString &path() const { return m_path; }
    bool isEmpty() const { return m_content.isEmpty(); } // or not there, when it was read last

    News read(); // since the last reading: a missing file reads as an empty one
    void forget() { *this = RegistryFile(m_path); }
    void distrust(); // the next reading gives everything if the file is another by then, and nothing if not

    // The block is on the disk to stay when this did not fail, else not in the file. It stands behind what was read or
    // nowhere: it would finish a block that was left unfinished.
    QString append(const QByteArray &block);
    QString replace(const QByteArray &block);
    // The two halves of replace().
    QString prepare(const QByteArray &block);
    bool isPrepared() const { return m_prepared != nullptr; }
    QString putInPlace();
    // Keeps a copy beside under the first free name FILE.damaged-1, -2, ..., unless the file cannot be replaced.
    QString replaceKeepingCopy(const QByteArray &block, QString &copy);
    // Whether the changes take more room than the hive itself, so that the file is worth writing anew.
    bool isGrown() const;

    static QByteArray finished(QByteArray lines) { return lines += "; end\n"; }

private:
    void take(News &news, const QByteArray &content);
    QString loss() const;
    QString keepCopy(QString &name) const;

    QString m_path;
    RegistryFileHistory m_history;
    FileStamp m_stamp;
    // Up to the end of the last complete block. People edit the file in place, and not only at its end: nothing but a
    // comparison with all that was read tells whether a file that is not the same any more has merely grown.
    QByteArray m_content;
    int m_lines = 0; // in it
    qint64 m_firstBlock = 0;
    bool m_isRead = false;
    std::unique_ptr<PreparedFile> m_prepared;
    QByteArray m_preparedBlock;
};
