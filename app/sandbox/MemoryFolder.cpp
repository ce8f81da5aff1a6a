#include "app/sandbox/MemoryFolder.h"

#include <QDir>
#include <QFile>

#include <algorithm>

#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

bool isInMemory(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder);
    struct statfs system
    {
    };
    return ::statfs(path.constData(), &system) == 0 && system.f_type == TMPFS_MAGIC &&
           ::access(path.constData(), W_OK | X_OK) == 0;
}

} // namespace

QString firstMemoryFolder(const QStringList &folders)
{
    const auto found = std::find_if(folders.begin(), folders.end(), isInMemory);
    return found != folders.end() ? *found : QString();
}

QString memoryFolder()
{
    const QString folder =
        firstMemoryFolder({QStringLiteral("/dev/shm"), QStringLiteral("/run/user/%1").arg(::getuid())});
    return folder.isNull() ? QDir::tempPath() : folder;
}
