#include "platform/FileAttributes.h"

#include "platform/DosAttribute.h"
#include "platform/LastError.h"

#include <QFile>

#include <cerrno>
#include <sys/stat.h>

namespace {

constexpr DWORD storedBits = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                             FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_OFFLINE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

// The name in bytes, as Qt's file classes give it to the system.
QByteArray systemPath(LPCWSTR fileName)
{
    return QFile::encodeName(QStringView(fileName).toString());
}

bool inspect(const QByteArray &path, struct stat &file)
{
    if (path.isEmpty()) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return false;
    }
    if (stat(path.constData(), &file) == 0)
        return true;
    if (errno == ENOENT)
        SetLastError(missingFileError(QFile::decodeName(path)));
    else
        setLastErrorFromErrno(errno);
    return false;
}

bool allowed(DWORD attributes, const struct stat &file)
{
    return S_ISDIR(file.st_mode) ? (attributes & FILE_ATTRIBUTE_TEMPORARY) == 0
                                 : (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

int changeMode(const QByteArray &path, mode_t from, mode_t to)
{
    return from == to || chmod(path.constData(), to & 07777) == 0 ? 0 : errno;
}

// The extended attribute can be written only while the file is writable, whatever it was and is to become.
int store(const QByteArray &path, mode_t before, DWORD attributes)
{
    const mode_t writable = before | S_IWUSR;
    const mode_t after = (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? before & ~S_IWUSR : writable;
    int error = changeMode(path, before, writable);
    if (error != 0)
        return error;
    error = writeDosAttribute(path.constData(), attributes & storedBits);
    const int modeError = changeMode(path, writable, error == 0 ? after : before);
    return error != 0 ? error : modeError;
}

} // namespace

DWORD GetFileAttributesW(LPCWSTR fileName)
{
    const QByteArray path = systemPath(fileName);
    struct stat file;
    if (!inspect(path, file))
        return INVALID_FILE_ATTRIBUTES;
    const DWORD initial = S_ISREG(file.st_mode) ? FILE_ATTRIBUTE_ARCHIVE : 0;
    DWORD attributes = readDosAttribute(path.constData()).value_or(initial) & storedBits;
    if (S_ISDIR(file.st_mode))
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    if ((file.st_mode & S_IWUSR) == 0)
        attributes |= FILE_ATTRIBUTE_READONLY;
    return attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL;
}

BOOL SetFileAttributesW(LPCWSTR fileName, DWORD attributes)
{
    const QByteArray path = systemPath(fileName);
    struct stat file;
    if (!inspect(path, file))
        return FALSE;
    if (!allowed(attributes, file)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const int error = store(path, file.st_mode, attributes);
    if (error != 0)
        setLastErrorFromErrno(error);
    return error == 0 ? TRUE : FALSE;
}
