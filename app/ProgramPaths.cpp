#include "app/ProgramPaths.h"

#include <QFile>
#include <QFileInfo>

#ifdef _WIN32
#include <windows.h>
#endif

QString programFolder()
{
#ifdef _WIN32
    wchar_t path[32768];
    const DWORD length = GetModuleFileNameW(nullptr, path, std::size(path));
    return QFileInfo(QString::fromWCharArray(path, static_cast<int>(length))).absolutePath();
#else
    return QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).absolutePath();
#endif
}
