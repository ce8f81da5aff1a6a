#include "app/sandbox/Supervisor.h"

#include "app/CommandLine.h"
#include "app/sandbox/MemoryFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

volatile pid_t worker = 0;

extern "C" void passOn(int signal)
{
    if (worker > 0)
        ::kill(worker, signal);
}

// The work hears of time and interrupts itself and ends in good order, unless it hangs in the kernel: in opening a pipe
// without another end, for example, where the filter of calls keeps signals away.
constexpr int GraceSeconds = 5;
constexpr int PatientInterrupts = 3;

extern "C" void endWork(int)
{
    constexpr std::string_view message = "lisphost: ended, long after the time limit was reached\n";
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, message.data(), message.size());
    passOn(SIGKILL);
}

extern "C" void onTerminalInterrupt(int)
{
    static volatile std::sig_atomic_t count = 0;
    count = count + 1;
    if (count > PatientInterrupts)
        passOn(SIGKILL);
}

// What ends a process that does not handle it: Ctrl-\, the end of the terminal, what asks any process to end, and what
// programs send each other. Not those that tell of an error in this process itself, after which it cannot go on.
std::vector<int> endingSignals()
{
    std::vector<int> numbers = {SIGQUIT, SIGHUP,    SIGTERM, SIGUSR1, SIGUSR2, SIGPIPE,
                                SIGXCPU, SIGVTALRM, SIGPROF, SIGIO,   SIGPWR,  SIGSTKFLT};
    for (int signal = SIGRTMIN; signal <= SIGRTMAX; ++signal)
        numbers.push_back(signal);
    return numbers;
}

// What this process has been started to ignore, it ignores.
void handle(int signal, void (*handler)(int))
{
    struct sigaction present
    {
    };
    if (::sigaction(signal, nullptr, &present) == 0 && present.sa_handler != SIG_IGN)
        std::signal(signal, handler);
}

int waitFor(pid_t process)
{
    int status = 0;
    while (::waitpid(process, &status, 0) < 0 && errno == EINTR)
        continue;
    return status;
}

// What the work started and left behind has become a child of this process.
void endStragglers()
{
    QFile children(QStringLiteral("/proc/self/task/%1/children").arg(::getpid()));
    for (;;) {
        if (!children.open(QIODevice::ReadOnly))
            return;
        const QList<QByteArray> processes = children.readAll().trimmed().split(' ');
        children.close();
        if (processes.first().isEmpty())
            return;
        for (const QByteArray &process : processes) {
            ::kill(process.toInt(), SIGKILL);
            waitFor(process.toInt());
        }
    }
}

} // namespace

int superviseInOwnFolders(int seconds, const std::function<int(const SandboxFolders &folders)> &work)
{
    const std::unique_ptr<QTemporaryDir> temporary = newFolderInFirst({QDir::tempPath()});
    const std::unique_ptr<QTemporaryDir> settings = newFolderInFirst(memoryFolders() + QStringList{QDir::tempPath()});
    for (const QTemporaryDir *folder : {temporary.get(), settings.get()})
        if (!folder->isValid())
            throw SandboxError(folder->errorString());
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    handle(SIGINT, onTerminalInterrupt); // the terminal sends it to the worker, too, which knows what to do
    for (const int signal : endingSignals())
        handle(signal, passOn);
    std::signal(SIGALRM, endWork);
    std::signal(SIGXFSZ, SIG_IGN); // as the work does, which could not be ended by it
    const pid_t supervisor = ::getpid();
    worker = ::fork();
    if (worker < 0)
        throw SandboxError(QStringLiteral("cannot start a process of its own"));
    if (worker == 0) {
        handle(SIGINT, SIG_DFL);
        for (const int signal : endingSignals())
            handle(signal, SIG_DFL);
        std::signal(SIGALRM, SIG_DFL);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != supervisor)
            ::_exit(ExitFailed);
        const int status = work({temporary->path(), settings->path()});
        std::fflush(nullptr);
        ::_exit(status); // the folders are the supervisor's to remove
    }
    if (seconds > 0)
        ::alarm(static_cast<unsigned>(seconds) + GraceSeconds);
    const int status = waitFor(worker);
    worker = 0;
    endStragglers();
    return WIFEXITED(status) ? WEXITSTATUS(status) : ExitFailed;
}
