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

struct Request
{
    QString verb, file, parameters, folder;
};

bool opens(const Request &request)
{
    return request.verb.isEmpty() || request.verb.compare(u"open", Qt::CaseInsensitive) == 0;
}

// What is to be started, or an error number.
struct Answer
{
    int number;
    ProgramCall call;
};

// A program has no verb but "open".
Answer answerForProgram(const QString &program, const Request &request)
{
    if (!opens(request))
        return {SE_ERR_NOASSOC, {}};
    return {Launched, {program, argumentsOf(request.parameters)}};
}

// Parameters are for programs: a document's program gets none.
Answer answerForDocument(const QString &fileOrUrl, const Request &request)
{
    const std::optional<ProgramCall> call = associatedProgram(fileOrUrl, request.verb);
    return call ? Answer{Launched, *call} : Answer{SE_ERR_NOASSOC, {}};
}

Answer answerFor(const Request &request)
{
    const QString &file = request.file;
    if (file.isEmpty())
        return {SE_ERR_FNF, {}};
    const QFileInfo place(placeOf(file, request.folder));
    if (isProgram(place))
        return answerForProgram(place.filePath(), request);
    if (place.exists())
        return place.isReadable() ? answerForDocument(place.filePath(), request) : Answer{SE_ERR_ACCESSDENIED, {}};
    if (isUrl(file))
        return answerForDocument(file, request);
    const QString found = file.contains(u'/') ? QString() : QStandardPaths::findExecutable(file);
    return found.isEmpty() ? Answer{missingFileError(place), {}} : answerForProgram(found, request);
}

int execute(const Request &request)
{
    const auto [number, call] = answerFor(request);
    if (number != Launched)
        return number;
    return QProcess::startDetached(call.program, call.arguments, request.folder) ? Launched : SE_ERR_ACCESSDENIED;
}

} // namespace

HINSTANCE FindExecutableW(LPCWSTR file, LPCWSTR folder, LPWSTR result)
{
    *result = u'\0';
    const QFileInfo place(placeOf(QStringView(file).toString(), QStringView(folder).toString()));
    if (QStringView(file).toString().isEmpty() || !place.exists())
        return instanceOf(SE_ERR_FNF);
    QString program = isProgram(place) ? place.filePath() : QString();
    if (program.isEmpty())
        if (const std::optional<ProgramCall> associated = associatedProgram(place.filePath(), QStringLiteral("open")))
            program = associated->program;
    if (program.isEmpty())
        return instanceOf(SE_ERR_NOASSOC);
    const std::size_t length = std::min<std::size_t>(static_cast<std::size_t>(program.size()), MAX_PATH - 1);
    *std::copy_n(reinterpret_cast<const char16_t *>(program.utf16()), length, result) = u'\0';
    return instanceOf(Launched);
}

HINSTANCE ShellExecuteW(HWND, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, int)
{
    const Request request{QStringView(verb).toString(), QStringView(file).toString(),
                          QStringView(parameters).toString(), QStringView(folder).toString()};
    const ShellLaunch launch{request.verb, request.file, request.parameters, execute(request)};
    if (observer)
        observer(launch);
    return instanceOf(launch.result);
}

void setShellObserver(ShellObserver newObserver)
{
    observer = std::move(newObserver);
}
