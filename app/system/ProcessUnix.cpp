#include "app/system/Process.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Programs recurse through mapcar and apply, which use the native stack; the usual 8 MB hold too few levels of it. The
// limit of the running process is enough: the stack grows when it is touched. AddressSanitizer cannot follow exceptions
// on stacks beyond 64 MB.
void deepenStack()
{
    constexpr rlim_t Wanted = rlim_t{60} * 1024 * 1024;
    rlimit limit{};
    if (getrlimit(RLIMIT_STACK, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY || limit.rlim_cur >= Wanted)
        return;
    limit.rlim_cur = limit.rlim_max == RLIM_INFINITY ? Wanted : std::min(Wanted, limit.rlim_max);
    setrlimit(RLIMIT_STACK, &limit);
}

// A file that the program opens must not take the number of a standard stream that the caller has closed. Opened the
// wrong way round, the streams still fail as closed ones do.
void occupyClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) == -1 && errno == EBADF)
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY); // gives the lowest free number
}

} // namespace

void prepareProcess()
{
    occupyClosedStreams();
    deepenStack();
}

std::vector<std::string> programArguments(int argumentCount, char **arguments)
{
    return {arguments, arguments + argumentCount};
}

QString programFolder()
{
    return QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).absolutePath();
}

bool isPipe(std::FILE *stream)
{
    struct stat status
    {
    };
    return fstat(fileno(stream), &status) == 0 && S_ISFIFO(status.st_mode);
}

// A pipe that has room at all takes so much without waiting.
void sendToOutput(std::string_view text)
{
    constexpr int PatienceInMilliseconds = 1000;
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    while (!text.empty() && poll(&output, 1, PatienceInMilliseconds) == 1) {
        const ssize_t written = write(STDOUT_FILENO, text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
        if (written <= 0)
            return;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

bool isTerminal(std::FILE *stream)
{
    return isatty(fileno(stream)) != 0;
}
