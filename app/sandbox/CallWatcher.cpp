// The watching thread runs a file's call itself, bound by the same file rules, and so sees how it ends.
// See https://docs.kernel.org/userspace-api/seccomp_filter.html#userspace-notification

#include "app/sandbox/CallWatcher.h"

#include "app/sandbox/RefusedCalls.h"
#include "host/kernel/RunningCall.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <seccomp.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

template <class Calls> auto findCall(const Calls &calls, int number) -> const typename Calls::value_type *
{
    const auto call = std::find_if(calls.begin(), calls.end(), [&](const auto &each) { return each.number == number; });
    return call == calls.end() ? nullptr : &*call;
}

const char *nameOf(int number)
{
    using namespace refused;
    for (const Call *call : {findCall(attributeCalls, number), findCall(startCalls, number),
                             findCall(signalCalls, number), findCall(signalCallsToThreads, number)})
        if (call)
            return call->what;
    return "a system call";
}

bool isThreadOfThisProcess(std::uint32_t thread)
{
    return ::syscall(SYS_tgkill, ::getpid(), thread, 0) == 0;
}

// What libraries look at on their own account, and go on without: where the desktop's settings may be, which machine
// has locked a file, a terminal to beep. What LISP programs read and write files by is no RunningCall.
constexpr std::string_view librariesFiles[] = {"/dev/tty",
                                               "/etc/machine-id",
                                               "/proc/filesystems",
                                               "/proc/mounts",
                                               "/proc/self/mountinfo",
                                               "/proc/sys/kernel/random/boot_id",
                                               "/var/lib/dbus/machine-id"};

bool isNoProgramsDoing(std::string_view path)
{
    return path.starts_with("/var/cache/fontconfig/") || // the font library tries to bring it up to date
           (RunningCall::number() != 0 &&
            std::find(std::begin(librariesFiles), std::end(librariesFiles), path) != std::end(librariesFiles));
}

// Says of each call of a LISP function what it was refused first. Functions try other ways then, of which a program
// knows nothing.
class Report
{
public:
    void say(const char *what, const char *path)
    {
        const std::uint64_t call = RunningCall::number();
        if (call != 0 && std::exchange(m_lastCall, call) == call)
            return;
        std::fprintf(stderr, path ? "lisphost: sandbox: refused %s %s\n" : "lisphost: sandbox: refused %s\n", what,
                     path);
    }
    // A file that could not be moved is copied by the function of the interpreter's own, too.
    void expectCopy(const char *from, const char *to) { m_copied = {from, to}; }
    bool isCopy(std::string_view path)
    {
        if (path != m_copied.first && path != m_copied.second)
            m_copied = {};
        return !m_copied.first.empty();
    }

private:
    std::uint64_t m_lastCall = 0;
    std::pair<std::string, std::string> m_copied;
};

// A signal may have chosen this thread to be handled in; to the caller the call has not been interrupted.
long callAgainAfterSignals(int number, const __u64 (&arguments)[6])
{
    long result = 0;
    do {
        result = ::syscall(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4]);
    } while (result < 0 && errno == EINTR);
    return result;
}

// The caller waits, in the same address space and with the same descriptors.
void runInstead(const refused::FileCall &call, const seccomp_notif &notice, seccomp_notif_resp &answer, Report &report)
{
    const auto &arguments = notice.data.args;
    const auto *path = reinterpret_cast<const char *>(arguments[call.path]);
    const bool isCopy = report.isCopy(path ? path : "");
    answer.val = callAgainAfterSignals(call.number, arguments);
    if (answer.val >= 0)
        return;
    answer.val = 0;
    answer.error = -errno;
    if ((errno != EACCES && errno != EPERM && errno != EXDEV) || isNoProgramsDoing(path))
        return;
    if (isCopy)
        return report.expectCopy("", "");
    report.say(call.what, path);
    if (call.target != 0)
        report.expectCopy(path, reinterpret_cast<const char *>(arguments[call.target]));
}

// By the kernel's own name of the file, in which no link is left.
std::string pathOf(int descriptor)
{
    std::array<char, PATH_MAX> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    return {path.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
}

bool isBelowAny(const std::vector<std::string> &folders, std::string_view path)
{
    return std::any_of(folders.begin(), folders.end(), [path](const std::string &folder) {
        return path.starts_with(folder) && path.substr(folder.size()).starts_with('/');
    });
}

// The settings library gives each file that it has made the permissions that it has.
bool leavesPermissions(const seccomp_data &call)
{
    if (call.nr != SYS_chmod && call.nr != SYS_fchmodat)
        return false;
    const bool isRelative = call.nr == SYS_fchmodat;
    const auto *path = reinterpret_cast<const char *>(call.args[isRelative ? 1 : 0]);
    struct stat file
    {
    };
    return ::fstatat(isRelative ? static_cast<int>(call.args[0]) : AT_FDCWD, path, &file, 0) == 0 &&
           (file.st_mode & 07777) == call.args[isRelative ? 2 : 1];
}

void letGo(seccomp_notif_resp &answer)
{
    answer.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
}

void refuseQuietly(seccomp_notif_resp &answer)
{
    answer.error = -EPERM;
}

void refuse(seccomp_notif_resp &answer, Report &report, const char *what, const char *path)
{
    answer.error = -EACCES; // other functions than these give it, too, where a file system is without attributes
    report.say(what, path);
}

void answerCall(const seccomp_notif &notice, seccomp_notif_resp &answer, Report &report,
                const std::vector<std::string> &libraryFolders)
{
    answer = {};
    answer.id = notice.id;
    const refused::FileCall *call = findCall(refused::fileCalls, notice.data.nr);
    const bool isLoading = notice.data.nr == SYS_mmap;
    const bool isRefused = !call && !isLoading;
    if (!isThreadOfThisProcess(notice.pid))                       // a started program's
        return isRefused ? refuseQuietly(answer) : letGo(answer); // the file rules bind it all the same
    if (isRefused && leavesPermissions(notice.data))
        return;
    if (isRefused)
        return refuse(answer, report, nameOf(notice.data.nr), nullptr);
    if (call)
        return runInstead(*call, notice, answer, report);
    const std::string file = pathOf(static_cast<int>(notice.data.args[4]));
    return isBelowAny(libraryFolders, file) ? letGo(answer) : refuse(answer, report, "loading code from", file.c_str());
}

} // namespace

void watchCalls(int descriptor, const std::vector<std::string> &libraryFolders)
{
    seccomp_notif *notice = nullptr;
    seccomp_notif_resp *answer = nullptr;
    if (seccomp_notify_alloc(&notice, &answer) != 0)
        return; // calls then fail for good
    for (Report report;;) {
        *notice = {};
        if (seccomp_notify_receive(descriptor, notice) != 0)
            continue; // the caller was interrupted before it could be heard
        answerCall(*notice, *answer, report, libraryFolders);
        seccomp_notify_respond(descriptor, answer);
    }
}
