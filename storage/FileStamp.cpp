#include "storage/FileStamp.h"

#ifdef _WIN32
#include <QDateTime>
#include <QFileInfo>
#else
#include <QFile>

#include <sys/stat.h>
#endif

FileStamp FileStamp::of(const QString &path)
{
#ifdef _WIN32
    const QFileInfo info(path);
    if (!info.exists())
        return {};
    return {0, info.lastModified().toMSecsSinceEpoch() * 1'000'000, info.size()};
#else
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return {status.st_ino, status.st_mtim.tv_sec * std::int64_t{1'000'000'000} + status.st_mtim.tv_nsec,
            status.st_size};
#endif
}
