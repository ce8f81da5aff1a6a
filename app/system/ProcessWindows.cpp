#include "app/system/Process.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// after it
#include <shellapi.h>

namespace {

HANDLE handleOf(std::FILE *stream)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
}

} // namespace

void prepareProcess()
{
    // Lines end as programs write them, and a transcript is the same on every system.
    for (std::FILE *stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleCP(CP_UTF8);
}

// main's own arguments are in the system's 8-bit code page, which has no place for most names.
std::vector<std::string> programArguments(int, char **)
{
    int count = 0;
    LPWSTR *arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> result;
    std::transform(arguments, arguments + count, std::back_inserter(result),
                   [](LPCWSTR argument) { return QString::fromWCharArray(argument).toStdString(); });
    LocalFree(arguments);
    return result;
}

QString programFolder()
{
    wchar_t path[32768];
    const DWORD length = GetModuleFileNameW(nullptr, path, std::size(path));
    return QFileInfo(QString::fromWCharArray(path, static_cast<int>(length))).absolutePath();
}

bool isPipe(std::FILE *stream)
{
    return GetFileType(handleOf(stream)) == FILE_TYPE_PIPE;
}

// There is no asking a pipe for room.
void sendToOutput(std::string_view text)
{
    if (!text.empty() && !isPipe(stdout))
        _write(_fileno(stdout), text.data(), static_cast<unsigned>(text.size()));
}

// _isatty() would not do: to it the null device is a terminal.
bool isTerminal(std::FILE *stream)
{
    DWORD mode = 0;
    return GetConsoleMode(handleOf(stream), &mode) != 0;
}
