#include "storage/AtomicFile.h"

#include "storage/AbandonedFiles.h"
#include "storage/SyncedWrite.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

#ifdef _WIN32
#include <chrono>
#include <thread>
#else
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

// The functions below give what went wrong, and a null text when nothing did.

QString reasonOf(const std::error_code &error)
{
    return error ? QString::fromLocal8Bit(error.message().c_str()) : QString();
}

#ifndef _WIN32
QString lastReason()
{
    return reasonOf(std::error_code(errno, std::generic_category()));
}
#endif

QString renameOver(const QString &from, const QString &to)
{
    const std::filesystem::path source = QFileInfo(from).filesystemFilePath();
    const std::filesystem::path target = QFileInfo(to).filesystemFilePath();
    std::error_code error;
    std::filesystem::rename(source, target, error);
#ifdef _WIN32
    // The system refuses as long as somebody has the old file open; readers have it for moments only.
    for (int attempt = 0; attempt < 200 && error; ++attempt) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        std::filesystem::rename(source, target, error);
    }
#endif
    return reasonOf(error);
}

// The name is an entry of the folder, and on the disk only when that is. Windows has no such call.
QString syncFolder([[maybe_unused]] const QString &folder)
{
#ifndef _WIN32
    const int descriptor = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor == -1)
        return lastReason();
    const bool synced = fsync(descriptor) == 0 || errno == EINVAL; // a file system that has nothing to sync there
    const QString reason = synced ? QString() : lastReason();
    close(descriptor);
    return reason;
#else
    return {};
#endif
}

QString nameBeside(const QFileInfo &target, Writers writers)
{
    return writers == Writers::Free ? ownFileBeside(target) : target.filePath() + QStringLiteral(".new");
}

QString prepare(const QString &name, const QFileInfo &target, const ContentWriter &write)
{
    if (target.exists() && !target.isFile())
        return QStringLiteral("it is no regular file"); // a folder, a device or a pipe, which must not be renamed over
    if (target.exists() && !target.isWritable())
        return QStringLiteral("it may not be written");
    QFile beside(name);
    QString reason = beside.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)
                         ? writeAndSync(beside, write)
                         : beside.errorString();
    if (reason.isNull() && target.exists() && beside.permissions() != target.permissions() &&
        !beside.setPermissions(target.permissions()))
        reason = beside.errorString();
    if (!reason.isNull())
        beside.remove();
    return reason;
}

bool report(const QString &path, const QString &reason, QString &failure)
{
    if (!reason.isNull())
        failure = QStringLiteral("%1: %2").arg(path, reason);
    return reason.isNull();
}

} // namespace

bool replaceFile(const QString &path, const QByteArray &content, QString &failure, Writers writers)
{
    return replaceFile(
        path, [&content](QIODevice &file) { return writeAll(file, content); }, failure, writers);
}

bool replaceFile(const QString &path, const ContentWriter &write, QString &failure, Writers writers)
{
    const std::unique_ptr<PreparedFile> prepared = PreparedFile::make(path, write, failure, writers);
    return prepared != nullptr && prepared->putInPlace(failure);
}

std::unique_ptr<PreparedFile> PreparedFile::make(const QString &path, const ContentWriter &write, QString &failure,
                                                 Writers writers)
{
    const QString linked = QFileInfo(path).canonicalFilePath(); // empty when there is no file
    const QFileInfo target(linked.isEmpty() ? path : linked);
    if (writers == Writers::Free)
        removeAbandonedFiles(target);
    const QString beside = nameBeside(target, writers);
    if (!report(path, prepare(beside, target, write), failure))
        return nullptr;
    return std::unique_ptr<PreparedFile>(new PreparedFile(path, target, beside));
}

PreparedFile::PreparedFile(const QString &path, const QFileInfo &target, const QString &beside)
    : m_path(path), m_target(target), m_beside(beside)
{
}

PreparedFile::~PreparedFile()
{
    QFile::remove(m_beside); // not there once it has been put in its place
}

bool PreparedFile::putInPlace(QString &failure)
{
    QString reason = renameOver(m_beside, m_target.filePath());
    if (reason.isNull())
        reason = syncFolder(m_target.absolutePath());
    return report(m_path, reason, failure);
}
