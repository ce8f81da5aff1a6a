#include "platform/LastError.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

DWORD windowsError(int error)
{
    switch (error) {
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
        return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
        return ERROR_ACCESS_DENIED;
    case EROFS:
        return ERROR_WRITE_PROTECT;
    case ENOSPC:
    case EDQUOT:
        return ERROR_DISK_FULL;
    case ENAMETOOLONG:
        return ERROR_FILENAME_EXCED_RANGE;
    case ELOOP:
        return ERROR_CANT_RESOLVE_FILENAME;
    default:
        return ERROR_GEN_FAILURE;
    }
}

} // namespace

DWORD GetLastError()
{
    return lastError;
}

void SetLastError(DWORD error)
{
    lastError = error;
}

DWORD missingFileError(const QString &path)
{
    const QFileInfo file(QDir::cleanPath(path)); // which may end with a slash
    return QFileInfo(file.path()).isDir() ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

void setLastErrorFromErrno(int error)
{
    SetLastError(windowsError(error));
}
