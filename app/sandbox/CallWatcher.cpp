// The watching thread runs a file's call itself, bound by the same file rules, and so sees how it ends.
// See https://docs.kernel.org/userspace-api/seccomp_filter.html#userspace-notification

#include "app/sandbox/CallWatcher.h"

#include "app/sandbox/CallRules.h"
#include "app/sandbox/RefusedCalls.h"
#include "host/kernel/RunningCall.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <seccomp.h>
#include <sys/stat.h>
#include <sys/uio.h>
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

struct Move
{
    const char *what;
    std::string from, to;
    bool isSaid; // that it was refused
};

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
    // A file that could not be moved is copied by the function of the interpreter's own, too. What the copy is refused
    // first is the move that is refused.
    void expectCopy(Move move) { m_move = std::move(move); }
    bool expectsCopy() const { return m_move.has_value(); }
    bool isOfCopy(std::string_view path)
    {
        const bool isPart = m_move && (path == m_move->from || path == m_move->to);
        if (!isPart && !path.starts_with("/usr/share/locale")) // where the C library looks for the text of an error
            m_move.reset();
        return isPart;
    }
    void refuseCopy()
    {
        if (!m_move->isSaid)
            say(m_move->what, m_move->from.c_str());
        m_move.reset();
    }

private:
    std::uint64_t m_lastCall = 0;
    std::optional<Move> m_move;
};

using Arguments = __u64[6];

// A signal may have chosen this thread to be handled in; to the caller the call has not been interrupted.
long callAgainAfterSignals(int number, const Arguments &arguments)
{
    long result = 0;
    do {
        result = ::syscall(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4]);
    } while (result < 0 && errno == EINTR);
    return result;
}

// The caller's text; empty where the address is none, which a call that has failed need not have found out.
std::string textAt(__u64 address)
{
    const auto *text = reinterpret_cast<const char *>(address);
    const bool isReadable = ::access(text, F_OK) == 0 || (errno != EFAULT && errno != ENAMETOOLONG);
    return isReadable ? text : "";
}

// Of the folder that the last name of a path stands in. Two mounts may have one device between them.
std::uint64_t mountOf(const refused::FileCall &call, const Arguments &arguments, int path)
{
    std::string folder = textAt(arguments[path]);
    folder.resize(folder.rfind('/') + 1); // nothing of a name alone
    const bool isBelowDescriptor = call.path != 0;
    struct statx status
    {
    };
    ::statx(isBelowDescriptor ? static_cast<int>(arguments[path - 1]) : AT_FDCWD, folder.empty() ? "." : folder.c_str(),
            0, STATX_MNT_ID, &status);
    return status.stx_mnt_id;
}

// The kernel moves no file from one mount to another, and the file rules give the same error within one.
bool isBetweenMounts(const refused::FileCall &call, const Arguments &arguments)
{
    return call.target != 0 && mountOf(call, arguments, call.path) != mountOf(call, arguments, call.target);
}

void tell(const refused::FileCall &call, const Arguments &arguments, int error, Report &report)
{
    const bool isRefused = error == EACCES || error == EPERM || error == EXDEV;
    if (!isRefused && !report.expectsCopy())
        return;
    const std::string path = textAt(arguments[call.path]);
    const bool isMove = call.target != 0;
    const bool isOfCopy = !isMove && report.isOfCopy(path);
    if (!isRefused || isNoProgramsDoing(path))
        return;
    if (isOfCopy)
        return report.refuseCopy();
    const bool isSaid = error != EXDEV || !isBetweenMounts(call, arguments);
    if (isSaid)
        report.say(call.what, path.c_str());
    if (isMove)
        report.expectCopy({call.what, path, textAt(arguments[call.target]), isSaid});
}

// The caller waits, in the same address space and with the same descriptors.
void runInstead(const refused::FileCall &call, const seccomp_notif &notice, seccomp_notif_resp &answer, Report &report)
{
    answer.val = callAgainAfterSignals(call.number, notice.data.args);
    const int error = answer.val < 0 ? errno : 0;
    if (error != 0) {
        answer.val = 0;
        answer.error = -error;
    }
    tell(call, notice.data.args, error, report);
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

// What the kernel knows a file by, whatever path leads there.
struct FileIdentity
{
    dev_t device;
    ino_t number;
    bool operator==(const FileIdentity &other) const { return device == other.device && number == other.number; }
};

std::optional<FileIdentity> identityOf(const std::string &path)
{
    struct stat file
    {
    };
    if (::stat(path.c_str(), &file) != 0)
        return {};
    return FileIdentity{file.st_dev, file.st_ino};
}

// One of this process's own making that does not run another program yet.
bool isForkOfThisProcess(std::uint32_t process)
{
    const auto program = identityOf("/proc/" + std::to_string(process) + "/exe");
    return program && program == identityOf("/proc/self/exe");
}

// What follows the text may be no memory: no page is asked for together with the one before.
ssize_t copyFrom(pid_t process, __u64 address, std::array<char, PATH_MAX> &text)
{
    constexpr std::size_t PageSize = 4096;
    const std::size_t onFirstPage = PageSize - address % PageSize;
    const iovec here{text.data(), text.size()};
    const iovec there[] = {{reinterpret_cast<void *>(address), onFirstPage},
                           {reinterpret_cast<void *>(address + onFirstPage), text.size() - onFirstPage}};
    return ::process_vm_readv(process, &here, 1, there, std::size(there), 0);
}

// Where the system lets nobody look into other processes, the text is still where it was before the fork.
std::string textInFork(pid_t process, __u64 address)
{
    std::array<char, PATH_MAX> text{};
    ssize_t length = copyFrom(process, address, text);
    if (length < 0)
        length = copyFrom(::getpid(), address, text);
    return {text.data(), ::strnlen(text.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)))};
}

// The file rules decide which files may run, and they have to let the dynamic loader, which runs any file that can be
// read. A LISP program may not start it. Started programs are left to the file rules: those that can start others could
// change what stands at a path between this look at it and the kernel's.
void answerStart(const seccomp_notif &notice, seccomp_notif_resp &answer, Report &report,
                 const std::vector<FileIdentity> &programs)
{
    if (!isForkOfThisProcess(notice.pid))
        return letGo(answer);
    if (notice.data.nr != SYS_execve) // nobody here starts a program by other means
        return refuse(answer, report, nameOf(notice.data.nr), nullptr);
    const std::string path = textInFork(static_cast<pid_t>(notice.pid), notice.data.args[0]);
    const std::string folder = path.starts_with('/') ? "" : "/proc/" + std::to_string(notice.pid) + "/cwd/";
    const auto file = path.empty() ? std::nullopt : identityOf(folder + path);
    if (!file)
        answer.error = path.empty() ? -ENOENT : -errno;
    else if (std::find(programs.begin(), programs.end(), *file) != programs.end())
        letGo(answer);
    else
        refuse(answer, report, "starting", path.c_str());
}

std::vector<FileIdentity> identitiesOf(const std::vector<std::string> &paths)
{
    std::vector<FileIdentity> identities;
    for (const std::string &path : paths)
        if (const auto identity = identityOf(path))
            identities.push_back(*identity);
    return identities;
}

struct Watch
{
    const CallRules &rules;
    const std::vector<FileIdentity> programs = identitiesOf(rules.programs);
    Report report = {};
};

void answerCall(const seccomp_notif &notice, seccomp_notif_resp &answer, Watch &watch)
{
    answer = {};
    answer.id = notice.id;
    const refused::FileCall *call = findCall(refused::fileCalls, notice.data.nr);
    const bool isLoading = notice.data.nr == SYS_mmap;
    const bool isProgram = std::find(refused::programCalls.begin(), refused::programCalls.end(), notice.data.nr) !=
                           refused::programCalls.end();
    if (isProgram && !watch.programs.empty())
        return answerStart(notice, answer, watch.report, watch.programs);
    const bool isRefused = !call && !isLoading;
    if (!isThreadOfThisProcess(notice.pid))                       // a started program's
        return isRefused ? refuseQuietly(answer) : letGo(answer); // the file rules bind it all the same
    if (isRefused && leavesPermissions(notice.data))
        return;
    if (isRefused)
        return refuse(answer, watch.report, nameOf(notice.data.nr), nullptr);
    if (call)
        return runInstead(*call, notice, answer, watch.report);
    const std::string file = pathOf(static_cast<int>(notice.data.args[4]));
    return isBelowAny(watch.rules.libraryFolders, file)
               ? letGo(answer)
               : refuse(answer, watch.report, "loading code from", file.c_str());
}

} // namespace

void watchCalls(int descriptor, const CallRules &rules)
{
    seccomp_notif *notice = nullptr;
    seccomp_notif_resp *answer = nullptr;
    if (seccomp_notify_alloc(&notice, &answer) != 0)
        return; // calls then fail for good
    for (Watch watch{rules};;) {
        *notice = {};
        if (seccomp_notify_receive(descriptor, notice) != 0)
            continue; // the caller was interrupted before it could be heard
        answerCall(*notice, *answer, watch);
        seccomp_notify_respond(descriptor, answer);
    }
}
