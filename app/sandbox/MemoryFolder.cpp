#include "app/sandbox/MemoryFolder.h"

#include <QFile>

#include <algorithm>
#include <iterator>

#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

bool isInMemory(const QString &folder)
{
    struct statfs system
    {
    };
    return ::statfs(QFile::encodeName(folder).constData(), &system) == 0 && system.f_type == TMPFS_MAGIC;
}

} // namespace

QStringList memoryFolders()
{
    return foldersInMemory({QStringLiteral("/dev/shm"), QStringLiteral("/run/user/%1").arg(::getuid())});
}

QStringList foldersInMemory(const QStringList &folders)
{
    QStringList found;
    std::copy_if(folders.begin(), folders.end(), std::back_inserter(found), isInMemory);
    return found;
}

std::unique_ptr<QTemporaryDir> newFolderInFirst(const QStringList &parents)
{
    std::unique_ptr<QTemporaryDir> made;
    for (const QString &parent : parents) {
        made = std::make_unique<QTemporaryDir>(parent + QStringLiteral("/lisphost-XXXXXX"));
        if (made->isValid())
            break;
    }
    return made;
}
