#include "platform/Shell.h"

#include "platform/Associations.h"
#include "platform/CommandLineText.h"
#include "platform/LastError.h"

#include <QDir>
#include <QFile>
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
    const QString scheme = QUrl(text).scheme(); // one letter would be a drive, and files are none
    return scheme.size() > 1 && scheme != u"file" && text.size() > scheme.size() + 1;
}

// Unknown of a file that may not be read: it may be executed all the same.
bool mayBeginAsProgram(const QFileInfo &info)
{
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        return true;
    const QByteArray start = file.read(4);
    return start == "\177ELF" || start.startsWith("#!") || start.startsWith("MZ");
}

// The permission alone does not tell: on disks and servers of Windows every file has it.
bool isProgram(const QFileInfo &file)
{
    return file.isFile() && file.isExecutable() && mayBeginAsProgram(file);
}

// The path in the URL of a file on this computer; any other text as it is.
QString withoutFileScheme(const QString &file)
{
    const QUrl url(file);
    const bool isHere = url.host().isEmpty() || url.host() == u"localhost";
    return url.scheme() == u"file" && isHere ? url.path(QUrl::FullyDecoded) : file;
}

// The file that a name means: in the folder, or, with nothing but a name, a program along PATH. It may be missing.
QFileInfo locate(const QString &name, const QString &folder)
{
    const QFileInfo place(placeOf(name, folder));
    if (place.exists())
        return place;
    if (const QString path = withoutFileScheme(name); path != name)
        return QFileInfo(path);
    const QString program = name.contains(u'/') ? QString() : QStandardPaths::findExecutable(name);
    return program.isEmpty() ? place : QFileInfo(program);
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
    if (request.file.isEmpty())
        return {SE_ERR_FNF, {}};
    const QFileInfo file = locate(request.file, request.folder);
    if (isProgram(file))
        return answerForProgram(file.filePath(), request);
    if (file.exists())
        return file.isReadable() ? answerForDocument(file.filePath(), request) : Answer{SE_ERR_ACCESSDENIED, {}};
    if (isUrl(request.file))
        return answerForDocument(request.file, request);
    return {static_cast<int>(missingFileError(file.filePath())), {}};
}

int execute(const Request &request)
{
    const auto [number, call] = answerFor(request);
    if (number != Launched)
        return number;
    return QProcess::startDetached(call.program, call.arguments, request.folder) ? Launched : SE_ERR_ACCESSDENIED;
}

} // namespace

HINSTANCE FindExecutableW(LPCWSTR name, LPCWSTR folder, LPWSTR result)
{
    *result = u'\0';
    const QString text = QStringView(name).toString();
    const QFileInfo file = locate(text, QStringView(folder).toString());
    if (text.isEmpty() || !file.exists())
        return instanceOf(SE_ERR_FNF);
    QString program = isProgram(file) ? file.filePath() : QString();
    if (program.isEmpty())
        if (const std::optional<ProgramCall> associated = associatedProgram(file.filePath(), QStringLiteral("open")))
            program = associated->program;
    if (program.isEmpty())
        return instanceOf(SE_ERR_NOASSOC);
    const std::u16string path = program.toStdU16String();
    if (path.size() >= MAX_PATH)
        return instanceOf(SE_ERR_OOM);
    std::copy_n(path.c_str(), path.size() + 1, result);
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
