#include "platform/Shell.h"

#include "platform/Associations.h"
#include "platform/CommandLineText.h"
#include "platform/LastError.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace {

constexpr int Launched = 42; // what Windows gives; any number above 32 is success

ShellObserver observer;

HINSTANCE instanceOf(int number)
{
    return reinterpret_cast<HINSTANCE>(std::intptr_t{number});
}

QString textOf(LPCWSTR text)
{
    return text ? QString::fromUtf16(text) : QString();
}

// The file in the folder that the caller named; a name that stands there as it is, when it is no file.
QString placeOf(const QString &file, const QString &folder)
{
    return folder.isEmpty() ? QDir::current().absoluteFilePath(file) : QDir(folder).absoluteFilePath(file);
}

bool isUrl(const QString &text)
{
    const QString scheme = QUrl(text).scheme();
    return scheme.size() > 1 && text.size() > scheme.size() + 1; // one letter would be a drive
}

bool isProgram(const QFileInfo &file)
{
    return file.isFile() && file.isExecutable();
}

int missingFileError(const QFileInfo &file)
{
    return QFileInfo(file.path()).isDir() ? SE_ERR_FNF : SE_ERR_PNF;
}

// What to start for a file, URL or program; an error number when there is nothing.
std::pair<int, ProgramCall> callFor(const QString &file, const QString &folder)
{
    if (file.isEmpty())
        return {SE_ERR_FNF, {}};
    const QFileInfo place(placeOf(file, folder));
    if (isProgram(place))
        return {Launched, {place.filePath(), {}}};
    if (place.exists() || isUrl(file)) {
        if (place.exists() && !place.isReadable())
            return {SE_ERR_ACCESSDENIED, {}};
        const std::optional<ProgramCall> program = associatedProgram(place.exists() ? place.filePath() : file);
        return program ? std::pair(Launched, *program) : std::pair(SE_ERR_NOASSOC, ProgramCall());
    }
    const bool isBareName = !file.contains(u'/');
    const QString found = isBareName ? QStandardPaths::findExecutable(file) : QString();
    if (!found.isEmpty())
        return {Launched, {found, {}}};
    return {missingFileError(place), {}};
}

int execute(const QString &verb, const QString &file, const QString &parameters, const QString &folder)
{
    if (!verb.isEmpty() && verb.compare(u"open", Qt::CaseInsensitive) != 0)
        return SE_ERR_NOASSOC;
    auto [result, call] = callFor(file, folder);
    if (result != Launched)
        return result;
    if (call.arguments.isEmpty()) // a program; documents are opened without parameters
        call.arguments = argumentsOf(parameters);
    return QProcess::startDetached(call.program, call.arguments, folder) ? Launched : SE_ERR_ACCESSDENIED;
}

} // namespace

HINSTANCE FindExecutableW(LPCWSTR file, LPCWSTR folder, LPWSTR result)
{
    *result = u'\0';
    const QFileInfo place(placeOf(textOf(file), textOf(folder)));
    if (textOf(file).isEmpty() || !place.exists())
        return instanceOf(SE_ERR_FNF);
    QString program = isProgram(place) ? place.filePath() : QString();
    if (program.isEmpty())
        if (const std::optional<ProgramCall> associated = associatedProgram(place.filePath()))
            program = associated->program;
    if (program.isEmpty())
        return instanceOf(SE_ERR_NOASSOC);
    const std::size_t length = std::min<std::size_t>(static_cast<std::size_t>(program.size()), MAX_PATH - 1);
    *std::copy_n(reinterpret_cast<const char16_t *>(program.utf16()), length, result) = u'\0';
    return instanceOf(Launched);
}

HINSTANCE ShellExecuteW(HWND, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, int)
{
    const ShellLaunch launch{textOf(verb), textOf(file), textOf(parameters),
                             execute(textOf(verb), textOf(file), textOf(parameters), textOf(folder))};
    if (observer)
        observer(launch);
    return instanceOf(launch.result);
}

void setShellObserver(ShellObserver newObserver)
{
    observer = std::move(newObserver);
}
