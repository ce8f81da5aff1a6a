#pragma once

#include "storage/SyncedWrite.h"

#include <QByteArray>
#include <QFileInfo>
#include <QString>

#include <memory>

enum class Writers { Locked, Free };

// Replaces the content of a file, or makes it, in one step: whoever reads the file, and whatever happens meanwhile (a
// full disk, a killed process, a power cut), finds the old content or the new, never a part. When it gives true the new
// content is on the disk to stay. Otherwise `failure` says why, naming the file, and nothing has changed, except that
// after a folder that cannot be synced a power cut may bring the old content back.
//
// Where the caller holds the file's FileLock, the new content always goes to the same file beside, FILE.new, and what a
// killed process left there is overwritten. Without a lock each process has a file beside of its own, and the last one
// to write has its say; what a killed one left is removed by the next. QSaveFile would leave a file of another name
// behind each time, and takes a failed sync for a success. A symbolic link stays one; what it leads to is replaced, and
// keeps its permissions. A file that may not be written is not replaced, though its folder would allow it.
bool replaceFile(const QString &path, const QByteArray &content, QString &failure, Writers writers = Writers::Locked);

// The same for content that is written piece by piece.
bool replaceFile(const QString &path, const ContentWriter &write, QString &failure, Writers writers = Writers::Locked);

// The two halves of replaceFile, for files that are to change together: first the new content of each is prepared,
// which is what can fail for lack of room or rights, then each is put in its place.
class PreparedFile
{
public:
    // The content is on the disk, beside the file. Null, and `failure` says why, when it cannot be.
    static std::unique_ptr<PreparedFile> make(const QString &path, const ContentWriter &write, QString &failure,
                                              Writers writers = Writers::Locked);
    ~PreparedFile(); // nothing stays beside
    PreparedFile(const PreparedFile &) = delete;
    PreparedFile &operator=(const PreparedFile &) = delete;

    bool putInPlace(QString &failure);

private:
    PreparedFile(const QString &path, const QFileInfo &target, const QString &beside);

    const QString m_path;
    const QFileInfo m_target;
    const QString m_beside;
};
