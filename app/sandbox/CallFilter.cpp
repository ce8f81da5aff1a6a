// A thread that the filter does not bind is told of each call that is to be reported, and answers it. It runs a file's
// call itself, bound by the same file rules, and so sees how it ends.
// See https://docs.kernel.org/userspace-api/seccomp_filter.html#userspace-notification

#include "app/sandbox/CallFilter.h"

#include "app/sandbox/Supervisor.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <future>
#include <string_view>
#include <thread>

#include <seccomp.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

struct FileCall
{
    int number;
    int path; // which argument it is
    const char *what;
};

constexpr std::array fileCalls = {
    FileCall{SYS_open, 0, "opening"},      FileCall{SYS_openat, 1, "opening"},   FileCall{SYS_creat, 0, "making"},
    FileCall{SYS_truncate, 0, "changing"}, FileCall{SYS_mkdir, 0, "making"},     FileCall{SYS_mkdirat, 1, "making"},
    FileCall{SYS_symlink, 1, "making"},    FileCall{SYS_symlinkat, 2, "making"}, FileCall{SYS_link, 1, "making"},
    FileCall{SYS_linkat, 3, "making"},     FileCall{SYS_unlink, 0, "removing"},  FileCall{SYS_unlinkat, 1, "removing"},
    FileCall{SYS_rmdir, 0, "removing"},    FileCall{SYS_rename, 0, "moving"},    FileCall{SYS_renameat, 1, "moving"},
    FileCall{SYS_renameat2, 1, "moving"},
};

struct RefusedCall
{
    int number;
    const char *what;
};

// Landlock does not know these.
constexpr std::array attributeCalls = {
    RefusedCall{SYS_chmod, "a change of permissions"},
    RefusedCall{SYS_fchmodat, "a change of permissions"},
    RefusedCall{SYS_chown, "a change of owner"},
    RefusedCall{SYS_lchown, "a change of owner"},
    RefusedCall{SYS_fchownat, "a change of owner"},
    RefusedCall{SYS_setxattr, "a change of attributes"},
    RefusedCall{SYS_lsetxattr, "a change of attributes"},
    RefusedCall{SYS_fsetxattr, "a change of attributes"},
    RefusedCall{SYS_removexattr, "a change of attributes"},
    RefusedCall{SYS_lremovexattr, "a change of attributes"},
    RefusedCall{SYS_fremovexattr, "a change of attributes"},
    RefusedCall{SYS_utimensat, "a change of file times"},
    RefusedCall{SYS_utime, "a change of file times"},
    RefusedCall{SYS_utimes, "a change of file times"},
};

constexpr std::array startCalls = {
    RefusedCall{SYS_execve, "the start of a process"}, RefusedCall{SYS_execveat, "the start of a process"},
    RefusedCall{SYS_fork, "the start of a process"},   RefusedCall{SYS_vfork, "the start of a process"},
    RefusedCall{SYS_clone, "the start of a process"},
};

constexpr std::array signalCalls = {
    RefusedCall{SYS_kill, "a signal to another process"},
    RefusedCall{SYS_tgkill, "a signal to another process"},
    RefusedCall{SYS_tkill, "a signal to another process"},
    RefusedCall{SYS_pidfd_send_signal, "a signal to another process"},
};

// Fail without a word: libraries try them and go on, and no LISP function does.
constexpr std::array quietCalls = {SYS_socket,  SYS_ptrace,         SYS_process_vm_readv, SYS_process_vm_writev,
                                   SYS_fchmod,  SYS_fchown,         SYS_io_uring_setup,   SYS_mount,
                                   SYS_unshare, SYS_setns,          SYS_chroot,           SYS_bpf,
                                   SYS_keyctl,  SYS_perf_event_open};

template <class Calls> auto findCall(const Calls &calls, int number) -> const typename Calls::value_type *
{
    for (const auto &call : calls)
        if (call.number == number)
            return &call;
    return nullptr;
}

const char *nameOf(int number)
{
    if (const RefusedCall *call = findCall(attributeCalls, number))
        return call->what;
    if (const RefusedCall *call = findCall(startCalls, number))
        return call->what;
    const RefusedCall *call = findCall(signalCalls, number);
    return call ? call->what : "a system call";
}

class Filter
{
public:
    Filter() : m_context(seccomp_init(SCMP_ACT_ALLOW)) {}
    ~Filter() { seccomp_release(m_context); }
    Filter(const Filter &) = delete;
    Filter &operator=(const Filter &) = delete;

    template <class... Conditions> void add(std::uint32_t action, int number, Conditions... conditions)
    {
        m_isComplete &= seccomp_rule_add(m_context, action, number, sizeof...(conditions), conditions...) == 0;
    }
    template <class Calls> void addAll(std::uint32_t action, const Calls &calls)
    {
        for (const auto &call : calls)
            add(action, call.number);
    }
    int load() // gives the descriptor that tells of calls
    {
        if (!m_isComplete || seccomp_load(m_context) != 0)
            throw SandboxError(QStringLiteral("the kernel refuses the sandbox's filter of system calls"));
        return seccomp_notify_fd(m_context);
    }

private:
    scmp_filter_ctx m_context;
    bool m_isComplete = true;
};

scmp_arg_cmp argument(unsigned index, scmp_compare comparison, std::uint64_t value, std::uint64_t other = 0)
{
    return {index, comparison, value, other};
}

void refuseStarts(Filter &filter)
{
    constexpr std::uint64_t CloneThread = 0x00010000; // linux/sched.h; a thread is no process
    filter.add(SCMP_ACT_ERRNO(ENOSYS), SYS_clone3);   // the C library then uses clone, whose flags the filter can see
    for (const RefusedCall &call : startCalls) {
        if (call.number == SYS_clone)
            filter.add(SCMP_ACT_NOTIFY, call.number, argument(0, SCMP_CMP_MASKED_EQ, CloneThread, 0));
        else
            filter.add(SCMP_ACT_NOTIFY, call.number);
    }
}

// Where processes may be started, the file rules limit signals to those processes.
void refuseSignals(Filter &filter)
{
    const auto self = static_cast<std::uint64_t>(::getpid());
    filter.add(SCMP_ACT_NOTIFY, SYS_kill, argument(0, SCMP_CMP_NE, self));
    filter.add(SCMP_ACT_NOTIFY, SYS_tgkill, argument(0, SCMP_CMP_NE, self));
    filter.add(SCMP_ACT_NOTIFY, SYS_tkill);
    filter.add(SCMP_ACT_NOTIFY, SYS_pidfd_send_signal);
}

bool isThreadOfThisProcess(std::uint32_t thread)
{
    return ::syscall(SYS_tgkill, ::getpid(), thread, 0) == 0;
}

void say(const char *what, const char *path)
{
    std::fprintf(stderr, path ? "lisphost: sandbox: refused %s %s\n" : "lisphost: sandbox: refused %s\n", what, path);
}

// The font library tries to bring its cache up to date and goes on without: no program's doing.
bool isLibraryCache(const char *path)
{
    return std::string_view(path).starts_with("/var/cache/fontconfig/");
}

// The caller waits, in the same address space and with the same descriptors.
void runInstead(const FileCall &call, const seccomp_notif &notice, seccomp_notif_resp &answer)
{
    const auto &arguments = notice.data.args;
    answer.val = ::syscall(call.number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4]);
    if (answer.val >= 0)
        return;
    answer.val = 0;
    answer.error = -errno;
    const auto *path = reinterpret_cast<const char *>(arguments[call.path]);
    if ((errno == EACCES || errno == EPERM || errno == EXDEV) && !isLibraryCache(path))
        say(call.what, path);
}

void answerCall(const seccomp_notif &notice, seccomp_notif_resp &answer)
{
    answer = {};
    answer.id = notice.id;
    const FileCall *call = findCall(fileCalls, notice.data.nr);
    if (call && isThreadOfThisProcess(notice.pid)) {
        runInstead(*call, notice, answer);
    } else if (call) {
        answer.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE; // a started program's: the file rules bind it all the same
    } else {
        answer.error = -EPERM;
        say(nameOf(notice.data.nr), nullptr);
    }
}

void watch(int descriptor)
{
    seccomp_notif *notice = nullptr;
    seccomp_notif_resp *answer = nullptr;
    if (seccomp_notify_alloc(&notice, &answer) != 0)
        return; // calls then fail for good
    for (;;) {
        *notice = {};
        if (seccomp_notify_receive(descriptor, notice) != 0)
            continue; // the caller was interrupted before it could be heard
        answerCall(*notice, *answer);
        seccomp_notify_respond(descriptor, answer);
    }
}

} // namespace

void filterCalls(ProcessStarts starts)
{
    Filter filter;
    filter.addAll(SCMP_ACT_NOTIFY, fileCalls);
    filter.addAll(SCMP_ACT_NOTIFY, attributeCalls);
    for (const long number : quietCalls)
        filter.add(SCMP_ACT_ERRNO(EPERM), static_cast<int>(number));
    if (starts == ProcessStarts::Refused) {
        refuseStarts(filter);
        refuseSignals(filter);
    }
    // The thread has to start before the filter binds this one, and hears of the descriptor afterwards.
    std::promise<int> descriptor;
    std::thread([listening = descriptor.get_future()]() mutable { watch(listening.get()); }).detach();
    descriptor.set_value(filter.load());
}
