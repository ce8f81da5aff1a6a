#include "functions/processes.h"

#include "functions/HostWindows.h"
#include "functions/RuntimeCall.h"
#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/CommandLine.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "platform/Processes.h"
#include "platform/Shell.h"

#include <QCoreApplication>
#include <QProcess>
#include <QWidget>

#include <cstdlib>

namespace {

// A process starts before its mode is looked at: a wrong mode is a message about a program that runs.
enum SpawnMode : std::int16_t { SpawnAndWait = 1, SpawnAndGoOn = 2, SpawnAndWaitToo = 3 };

// Commas separate arguments. Without a text of arguments the program receives its own name as its only one.
QProcess *spawn(const resbuf *programNode)
{
    const QString program = textOf(programNode);
    const QString arguments = isString(programNode->rbnext) ? textOf(programNode->rbnext) : program;
    QWidget *window = hostMainWindow();
    auto *process = new QProcess(window != nullptr ? window->window() : nullptr); // the window's from now on
    process->start(program, arguments.split(u','), QIODevice::ReadWrite);
    return process;
}

void finishSpawning(QProcess *process, std::int16_t mode)
{
    constexpr int Patience = 30000;      // milliseconds
    constexpr std::int32_t Success = 32; // whatever became of the process
    switch (mode) {
    case SpawnAndWait:
    case SpawnAndWaitToo:
        process->waitForFinished(Patience);
        activeLispHost()->retInt(Success);
        break;
    case SpawnAndGoOn:
        activeLispHost()->retInt(Success);
        break;
    default:
        printText(CFxString::from_ansi_str(WrongTypeMessage));
    }
}

// A handle as LISP programs have it: a short integer.
HANDLE handleOf(std::int16_t number)
{
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(number));
}

void runCommand(const char *command)
{
    constexpr int Capacity = 511; // units, with one more for a terminator behind them
    char16_t interpreter[Capacity + 1] = {};
    if (activeLispHost()->getEnvVar("COMSPEC", 0, 0, Capacity, interpreter) == StatusNormal)
        activeLispHost()->retInt(callRuntime([command] { return std::system(command); }));
}

} // namespace

int acetSysSpawn()
{
    const resbuf *modeNode = checkArgument(TypeShort, activeLispHost()->getArgs());
    if (modeNode == nullptr) {
        activeLispHost()->retNil();
        return StatusNormal;
    }
    const resbuf *programNode = modeNode->rbnext;
    if (isString(programNode))
        finishSpawning(spawn(programNode), modeNode->resval.shortInteger);
    activeLispHost()->releaseRb(programNode != nullptr ? programNode->rbnext : nullptr);
    return StatusNormal;
}

int acetSysCommand()
{
    resbuf *commandNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (commandNode == nullptr)
        return StatusNormal;
    resbuf *narrowNode = activeLispHost()->getArgsNarrow(); // the runtime library takes 8-bit text
    runCommand(narrowNode->resval.narrowString);
    activeLispHost()->releaseRbNarrow(narrowNode);
    activeLispHost()->releaseRb(commandNode);
    return StatusNormal;
}

int startapp()
{
    const resbuf *fileNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (fileNode == nullptr)
        return StatusNormal;
    resbuf *parametersNode = fileNode->rbnext;
    const char16_t *parameters = isString(parametersNode) ? parametersNode->resval.string : u"";
    const HINSTANCE instance = ShellExecuteW(nullptr, windowsText(u"open"), windowsText(fileNode->resval.string),
                                             windowsText(parameters), nullptr, SW_SHOWNORMAL);
    activeLispHost()->retInt(static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(instance)));
    activeLispHost()->releaseRb(parametersNode);
    return StatusNormal;
}

int acetSysWait()
{
    const resbuf *processNode = checkArgument(TypeShort, activeLispHost()->getArgs());
    if (processNode == nullptr)
        return StatusNormal;
    const std::int16_t process = processNode->resval.shortInteger;
    DWORD patience = INFINITE;
    resbuf *patienceNode = processNode->rbnext;
    if (patienceNode != nullptr)
        patienceNode = checkArgument(TypeShort, patienceNode);
    if (patienceNode != nullptr)
        patience = static_cast<DWORD>(std::int32_t{patienceNode->resval.shortInteger});
    WaitForSingleObject(OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(std::int32_t{process})), patience);
    // The process id takes the place of a handle here. LISP programs get what this call stores, 0 as a rule.
    DWORD exitCode = 0;
    GetExitCodeProcess(handleOf(process), &exitCode);
    activeLispHost()->retInt(static_cast<std::int32_t>(exitCode));
    activeLispHost()->releaseRb(patienceNode);
    return StatusNormal;
}

int acetSysTerm()
{
    resbuf *handleNode = checkArgument(TypeShort, activeLispHost()->getArgs());
    if (handleNode == nullptr)
        return StatusNormal;
    returnTruth(TerminateProcess(handleOf(handleNode->resval.shortInteger), 0) == TRUE);
    activeLispHost()->releaseRb(handleNode);
    return StatusNormal;
}

int acetSysProcid()
{
    activeLispHost()->retInt(static_cast<std::int32_t>(QCoreApplication::applicationPid()));
    return StatusNormal;
}
