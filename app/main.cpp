// lisphost: runs AutoLISP programs. The commands and their exit statuses are in CommandLine.h.

#include "app/CommandLine.h"
#include "app/Documentation.h"
#include "app/Repl.h"
#include "app/Session.h"
#include "app/sandbox/Sandbox.h"
#include "app/sandbox/Supervisor.h"
#include "storage/ProfileFolder.h"

#include <QFileInfo>

#include <cstdio>

#ifndef _WIN32
#include <sys/resource.h>
#endif

namespace {

// Programs recurse through mapcar and apply, which use the native stack; the usual 8 MB hold too few levels of it. The
// limit of the running process is enough: the stack grows when it is touched.
void raiseStackLimit()
{
#ifndef _WIN32
    constexpr rlim_t Wanted = rlim_t{100} * 1024 * 1024;
    rlimit limit{};
    if (getrlimit(RLIMIT_STACK, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY || limit.rlim_cur >= Wanted)
        return;
    limit.rlim_cur = limit.rlim_max == RLIM_INFINITY ? Wanted : std::min(Wanted, limit.rlim_max);
    setrlimit(RLIMIT_STACK, &limit);
#endif
}

// Qt warns of what the library's callers find out by results, a file that cannot be opened for example. Programs have
// to be free to try that, and standard error is for what this program and its LISP programs say themselves.
void dropQtWarnings(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "lisphost: %s\n", message.toLocal8Bit().constData());
}

QStringList foldersOf(const std::vector<QString> &files)
{
    QStringList folders;
    for (const QString &file : files)
        folders.append(QFileInfo(file).canonicalPath());
    return folders;
}

int execute(const Options &options, const QString &sandboxFolder = QString())
{
    setProfileFolder(options.profileFolder);
    Session session(options);
    if (options.sandbox) {
        const bool hasFiles = options.command == Options::Command::Run;
        session.limit(*options.sandbox);
        enterSandbox(*options.sandbox, hasFiles ? foldersOf(options.operands) : QStringList(), sandboxFolder);
    }
    switch (options.command) {
    case Options::Command::Run:
        return session.runFiles(options.operands, options.programArguments);
    case Options::Command::Eval:
        return session.evaluate(options.operands);
    case Options::Command::Doc:
        return showDocumentation(session, options.operands.empty() ? QString() : options.operands.front());
    case Options::Command::Repl:
        break;
    }
    return Repl(session).run();
}

int reportError(const std::exception &error, int status)
{
    std::fprintf(stderr, "lisphost: %s\n", error.what());
    return status;
}

// Errors of the command's own; those of LISP programs are the session's.
int executeAndReport(const Options &options, const QString &sandboxFolder = QString())
{
    try {
        return execute(options, sandboxFolder);
    } catch (const ModuleError &error) {
        return reportError(error, ExitFile);
    } catch (const AnswersError &error) {
        return reportError(error, ExitFile);
    } catch (const TranscriptError &error) {
        return reportError(error, ExitFile);
    } catch (const SandboxError &error) {
        return reportError(error, ExitUsage);
    }
}

int executeInSandbox(Options options)
{
    try {
        return superviseInTemporaryFolder([&options](const QString &folder) {
            options.profileFolder = folder + QStringLiteral("/profile");
            return executeAndReport(options, folder);
        });
    } catch (const SandboxError &error) {
        return reportError(error, ExitUsage);
    }
}

} // namespace

int main(int argumentCount, char **arguments)
{
    const ParsedCommandLine commandLine = parseCommandLine(argumentCount, arguments);
    if (commandLine.exitStatus)
        return *commandLine.exitStatus;
    raiseStackLimit();
    qInstallMessageHandler(dropQtWarnings);
    return commandLine.options.sandbox ? executeInSandbox(commandLine.options) : executeAndReport(commandLine.options);
}
