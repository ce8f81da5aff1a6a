// lisphost: runs AutoLISP programs. The commands and their exit statuses are in CommandLine.h.

#include "app/CommandLine.h"
#include "app/Documentation.h"
#include "app/Gui.h"
#include "app/RegistryCommands.h"
#include "app/Repl.h"
#include "app/Session.h"
#include "app/TestCommand.h"
#include "app/sandbox/InheritedFiles.h"
#include "app/sandbox/Sandbox.h"
#include "app/sandbox/Supervisor.h"
#include "app/system/Process.h"
#include "host/interpreter/NativeStack.h"
#include "storage/ProfileFolder.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <new>

namespace {

// Qt warns of what the library's callers find out by results, a file that cannot be opened for example. Programs have
// to be free to try that, and standard error is for what this program and its LISP programs say themselves.
void dropQtWarnings(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "lisphost: %s\n", message.toLocal8Bit().constData());
}

// What stands beside a file, and beside the one that it is a link to.
QStringList foldersOf(const QString &file)
{
    const QFileInfo info(file);
    return {info.path(), info.canonicalPath()};
}

// The folders of the programs and of the drawing, which may use what stands beside them.
QStringList readableFolders(const Options &options)
{
    QStringList folders;
    if (options.command == Options::Command::Run || options.command == Options::Command::Test)
        for (const QString &path : options.operands)
            folders.append(QFileInfo(path).isDir() ? QStringList{path} : foldersOf(path));
    if (!options.drawingFile.isEmpty())
        folders.append(foldersOf(options.drawingFile));
    return folders;
}

int executeInSession(const Options &options, const QString &sandboxFolder)
{
    Session session(options);
    if (options.sandbox) {
        session.limit(*options.sandbox);
        lisp::nativeStackLimit(); // stands in a file that is out of reach afterwards
        enterSandbox(*options.sandbox, readableFolders(options), sandboxFolder);
    }
    session.begin(); // the drawing, too, may come from somebody whom one does not trust
    switch (options.command) {
    case Options::Command::Run:
        return session.finish(session.runFiles(options.operands, options.programArguments));
    case Options::Command::Eval:
        return session.finish(session.evaluate(options.operands));
    case Options::Command::Test:
        return runTests(session, options);
    case Options::Command::Doc:
        return showDocumentation(session, options.operands.empty() ? QString() : options.operands.front());
    default:
        return session.finish(Repl(session).run());
    }
}

// What tests store stays theirs, unless the user names a place for it.
int testInOwnProfile(const Options &options)
{
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        std::fprintf(stderr, "lisphost: no temporary folder can be made: %s\n", qPrintable(folder.errorString()));
        return ExitFile;
    }
    setProfileFolder(folder.path());
    return executeInSession(options, QString());
}

int execute(const Options &options, const QString &sandboxFolder = QString())
{
    if (options.command == Options::Command::Test && options.profileFolder.isEmpty())
        return testInOwnProfile(options);
    setProfileFolder(options.profileFolder);
    switch (options.command) {
    case Options::Command::Gui:
        return runGui(options);
    case Options::Command::RegistryExport:
        return exportRegistryKeys(options.operands[0], {options.operands.begin() + 1, options.operands.end()});
    case Options::Command::RegistryImport:
        return importRegistryKeys(options.operands[0]);
    default:
        return executeInSession(options, sandboxFolder);
    }
}

// A program whose output was lost has not ended well.
int checkOutput(int status)
{
    std::fflush(stdout);
    if (!std::ferror(stdout))
        return status;
    std::fputs("lisphost: cannot write to standard output\n", stderr);
    return status == ExitFine ? ExitFile : status;
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
        return checkOutput(execute(options, sandboxFolder));
    } catch (const ModuleError &error) {
        return reportError(error, ExitFile);
    } catch (const drawing::ReadError &error) {
        return reportError(error, ExitFile);
    } catch (const AnswersError &error) {
        return reportError(error, ExitFile);
    } catch (const TranscriptError &error) {
        return reportError(error, ExitFile);
    } catch (const SandboxError &error) {
        return reportError(error, ExitUsage);
    } catch (const std::bad_alloc &) {
        std::fputs("lisphost: out of memory\n", stderr);
        return ExitFailed;
    }
}

// What the user named that may be open already, in the form /dev/fd/63.
QStringList namedFiles(const Options &options)
{
    QStringList files{options.drawingFile, options.answersFile, options.transcriptFile, options.junitFile};
    files.append({options.operands.begin(), options.operands.end()});
    return files;
}

int executeInSandbox(Options options)
{
    try {
        closeInheritedFiles(namedFiles(options));
        return superviseInOwnFolders(options.sandbox->seconds, [&options](const SandboxFolders &folders) {
            options.profileFolder = folders.settings;
            options.sandbox->writableFolders.push_back(folders.settings);
            return executeAndReport(options, folders.temporary);
        });
    } catch (const SandboxError &error) {
        return reportError(error, ExitUsage);
    }
}

} // namespace

int main(int argumentCount, char **arguments)
{
    prepareProcess();
    const ParsedCommandLine commandLine = parseCommandLine(programArguments(argumentCount, arguments));
    if (commandLine.exitStatus)
        return *commandLine.exitStatus;
    qInstallMessageHandler(dropQtWarnings);
    return commandLine.options.sandbox ? executeInSandbox(commandLine.options) : executeAndReport(commandLine.options);
}
