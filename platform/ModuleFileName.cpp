#include "platform/ModuleFileName.h"

#include "platform/LastError.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <dlfcn.h>
#include <link.h>

namespace {

// Empty when the handle is none of a library. The dynamic linker's name of the program itself is empty too.
QString libraryPath(HMODULE module)
{
    const link_map *library = nullptr;
    if (dlinfo(module, RTLD_DI_LINKMAP, &library) != 0 || *library->l_name == '\0')
        return {};
    return QFileInfo(QFile::decodeName(library->l_name)).absoluteFilePath();
}

QString programPath()
{
    return QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
}

} // namespace

DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD capacity)
{
    const QString path = module != nullptr ? libraryPath(module) : programPath();
    if (path.isEmpty()) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return 0;
    }
    const DWORD length = static_cast<DWORD>(path.size());
    if (length < capacity) {
        std::copy_n(reinterpret_cast<const char16_t *>(path.utf16()), length + 1, buffer);
        SetLastError(ERROR_SUCCESS);
        return length;
    }
    if (capacity > 0) {
        std::copy_n(reinterpret_cast<const char16_t *>(path.utf16()), capacity - 1, buffer);
        buffer[capacity - 1] = u'\0';
    }
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return capacity;
}
