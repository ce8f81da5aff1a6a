#include "storage/FileStamp.h"

#ifdef _WIN32
#include <QDir>
#include <QFileInfo>

#include <windows.h>
#else
#include <QFile>

#include <sys/stat.h>
#endif

#ifdef _WIN32
namespace {

// In the form that may have more than 259 characters, which Qt uses as well.
QString longName(const QString &path)
{
    const QString name = QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    return name.startsWith(u"\\\\") ? name : QStringLiteral("\\\\?\\") + name;
}

std::uint64_t whole(DWORD high, DWORD low)
{
    return std::uint64_t{high} << 32 | low;
}

} // namespace
#endif

FileStamp FileStamp::of(const QString &path)
{
#ifdef _WIN32
    // Without access: a file can be asked so whoever has it open.
    const HANDLE file = CreateFileW(reinterpret_cast<LPCWSTR>(longName(path).utf16()), 0,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    BY_HANDLE_FILE_INFORMATION status;
    const bool isKnown = file != INVALID_HANDLE_VALUE && GetFileInformationByHandle(file, &status);
    if (file != INVALID_HANDLE_VALUE)
        CloseHandle(file);
    if (!isKnown)
        return {};
    return {
        whole(status.nFileIndexHigh, status.nFileIndexLow),
        static_cast<std::int64_t>(whole(status.ftLastWriteTime.dwHighDateTime, status.ftLastWriteTime.dwLowDateTime)),
        static_cast<std::int64_t>(whole(status.nFileSizeHigh, status.nFileSizeLow))};
#else
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return {status.st_ino, status.st_mtim.tv_sec * std::int64_t{1'000'000'000} + status.st_mtim.tv_nsec,
            status.st_size};
#endif
}
