#include "app/sandbox/Sandbox.h"

#include "app/sandbox/CallFilter.h"
#include "app/sandbox/CallRules.h"
#include "app/sandbox/FileRules.h"
#include "app/sandbox/Privileges.h"
#include "app/sandbox/ResourceLimits.h"
#include "app/sandbox/Supervisor.h"
#include "app/system/Process.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

// Code comes from nowhere else.
const std::vector<std::string> libraryFolders = {"/usr/lib", "/lib", "/lib64", "/usr/local/lib"};

// What else a program needs that shows texts and knows the time zone. Everybody may read it anyway.
const QStringList systemFiles = {
    QStringLiteral("/usr/share"),     QStringLiteral("/usr/local/share"),
    QStringLiteral("/etc/fonts"),     QStringLiteral("/var/cache/fontconfig"),
    QStringLiteral("/etc/xdg"),       QStringLiteral("/etc/ld.so.cache"),
    QStringLiteral("/etc/localtime"), QStringLiteral("/dev/urandom"),
};

constexpr qint64 LongestFirstLine = 256; // of a script, as far as the kernel looks

QString programFile(const QString &program)
{
    const QString found = QStandardPaths::findExecutable(program);
    if (found.isEmpty())
        throw SandboxError(QStringLiteral("%1: no such program").arg(program));
    return QFileInfo(found).canonicalFilePath();
}

// The program that a script's first line names; empty for other files.
QString interpreterOf(const QString &program)
{
    QFile file(program);
    if (!file.open(QIODevice::ReadOnly) || file.read(2) != "#!")
        return {};
    return QFile::decodeName(file.readLine(LongestFirstLine).simplified().split(' ').front());
}

// A script is started by its interpreter, which the kernel allows as little as any other program that was not named.
void checkInterpreter(const QString &program, const std::vector<QString> &allowed)
{
    const QString interpreter = interpreterOf(program);
    if (!interpreter.isEmpty() && !std::ranges::count(allowed, QFileInfo(interpreter).canonicalFilePath()))
        throw SandboxError(QStringLiteral("%1: its interpreter %2 must be allowed, too").arg(program, interpreter));
}

std::vector<QString> programFiles(const SandboxOptions &options)
{
    std::vector<QString> files;
    for (const QString &program : options.runnablePrograms)
        files.push_back(programFile(program));
    for (const QString &file : files)
        checkInterpreter(file, files);
    return files;
}

// The kernel's rules would pass over a folder that is not there.
std::vector<QString> writableFolders(const SandboxOptions &options)
{
    for (const QString &folder : options.writableFolders)
        if (!QFileInfo::exists(folder))
            throw SandboxError(QStringLiteral("%1: no such folder").arg(folder));
    return options.writableFolders;
}

FileRules fileRules(const SandboxOptions &options, const QStringList &readable, const QString &temporaryFolder)
{
    FileRules rules;
    rules.readable.assign(systemFiles.begin(), systemFiles.end());
    for (const std::string &folder : libraryFolders)
        rules.readable.push_back(QString::fromStdString(folder));
    rules.readable.insert(rules.readable.end(), readable.begin(), readable.end());
    rules.readable.push_back(programFolder());
    rules.writable = writableFolders(options);
    rules.writable.push_back(temporaryFolder);
    rules.writable.push_back(QStringLiteral("/dev/null"));
    rules.executable = programFiles(options);
    if (!rules.executable.empty()) // the loader, without which no program starts
        rules.executable.push_back(QStringLiteral("/lib64/ld-linux-x86-64.so.2"));
    return rules;
}

CallRules callRules(const SandboxOptions &options)
{
    CallRules rules{{}, libraryFolders};
    for (const QString &program : programFiles(options))
        rules.programs.push_back(QFile::encodeName(program).toStdString());
    return rules;
}

} // namespace

void enterSandbox(const SandboxOptions &options, const QStringList &readable, const QString &temporaryFolder)
{
    // Libraries keep their own files there, too, instead of trying where they may not.
    for (const char *variable : {"TMPDIR", "XDG_RUNTIME_DIR", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(variable, temporaryFolder.toLocal8Bit());
    const CallRules rules = callRules(options); // while programs can be looked for
    bindToFiles(fileRules(options, readable, temporaryFolder));
    dropPrivileges();
    filterCalls(rules);
    limitResources(options.megabytes);
}
