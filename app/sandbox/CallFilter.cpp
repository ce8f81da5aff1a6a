// A thread that the filter does not bind is told of each call that is to be reported, and answers it.
// See https://docs.kernel.org/userspace-api/seccomp_filter.html

#include "app/sandbox/CallFilter.h"

#include "app/sandbox/CallRules.h"
#include "app/sandbox/CallWatcher.h"
#include "app/sandbox/RefusedCalls.h"
#include "app/sandbox/Supervisor.h"

#include <cerrno>
#include <cstddef>
#include <future>
#include <thread>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <seccomp.h>
#include <unistd.h>

namespace {

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
    template <class Calls, class... Conditions>
    void addAll(std::uint32_t action, const Calls &calls, Conditions... conditions)
    {
        for (const auto &call : calls)
            add(action, call.number, conditions...);
    }
    // The rules in the kernel's language; empty when they cannot be had.
    std::vector<sock_filter> program() const
    {
        const int file = ::memfd_create("filter", MFD_CLOEXEC);
        std::vector<sock_filter> program;
        if (m_isComplete && file >= 0 && seccomp_export_bpf(m_context, file) == 0) {
            program.resize(static_cast<std::size_t>(::lseek(file, 0, SEEK_END)) / sizeof(sock_filter));
            const std::size_t size = program.size() * sizeof(sock_filter);
            if (::pread(file, program.data(), size, 0) != static_cast<ssize_t>(size))
                program.clear();
        }
        ::close(file);
        return program;
    }

private:
    scmp_filter_ctx m_context;
    bool m_isComplete = true;
};

constexpr std::uint32_t Quietly = SCMP_ACT_ERRNO(EPERM);

scmp_arg_cmp argument(unsigned index, scmp_compare comparison, std::uint64_t value, std::uint64_t other = 0)
{
    return {index, comparison, value, other};
}

// Whether all bits of the value are set in an argument.
scmp_arg_cmp argumentHas(unsigned index, std::uint64_t bits)
{
    return argument(index, SCMP_CMP_MASKED_EQ, bits, bits);
}

// Where programs may be started, the watcher is asked which.
void watchStarts(Filter &filter)
{
    for (const int number : refused::programCalls)
        filter.add(SCMP_ACT_NOTIFY, number);
}

void refuseStarts(Filter &filter)
{
    constexpr std::uint64_t CloneThread = 0x00010000; // linux/sched.h; a thread is no process
    for (const refused::Call &call : refused::startCalls) {
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
    filter.addAll(SCMP_ACT_NOTIFY, refused::signalCalls, argument(0, SCMP_CMP_NE, self));
    filter.addAll(SCMP_ACT_NOTIFY, refused::signalCallsToThreads);
}

void refuseQuietly(Filter &filter)
{
    constexpr std::uint64_t Request = 0xffffffff; // the kernel looks at these bits alone
    for (const long number : refused::quietCalls)
        filter.add(Quietly, static_cast<int>(number));
    for (const refused::BoundCall &call : refused::boundCalls)
        filter.add(Quietly, call.number, argument(call.argument, SCMP_CMP_NE, call.allowed));
    for (const unsigned request : refused::quietRequests)
        filter.add(Quietly, SYS_ioctl, argument(1, SCMP_CMP_MASKED_EQ, Request, request));
    for (const int flag : refused::quietCloneFlags)
        filter.add(Quietly, SYS_clone, argumentHas(0, static_cast<unsigned>(flag)));
    filter.add(SCMP_ACT_ERRNO(ENOSYS), SYS_clone3); // the C library then uses clone, whose flags the filter can see
}

// The dynamic loader maps all that it loads with this mark, whoever asks for it: a program that loads a module, Qt that
// looks for plug-ins, the C library that needs a character set. Nobody else sets the mark.
void watchTheLoader(Filter &filter)
{
    filter.add(SCMP_ACT_NOTIFY, SYS_mmap, argumentHas(3, MAP_DENYWRITE));
}

// Calls with higher numbers do not exist, as on a kernel that is older.
std::vector<sock_filter> withoutCallsAfter(int newest, std::vector<sock_filter> program)
{
    const sock_filter newer[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JGT | BPF_K, static_cast<unsigned>(newest), 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
    };
    program.insert(program.begin(), std::begin(newer), std::end(newer));
    return program;
}

// Gives the descriptor that tells of calls, -1 when the kernel refuses. A signal must not interrupt a call that the
// watcher has taken on: it would be made twice. This is why the library does not load the filter, whose versions
// before 2.6 cannot ask for that.
int load(std::vector<sock_filter> program)
{
    const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
    return static_cast<int>(::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER,
                                      SECCOMP_FILTER_FLAG_NEW_LISTENER | SECCOMP_FILTER_FLAG_WAIT_KILLABLE_RECV,
                                      &filter));
}

} // namespace

void filterCalls(const CallRules &rules)
{
    Filter filter;
    filter.addAll(SCMP_ACT_NOTIFY, refused::fileCalls);
    filter.addAll(SCMP_ACT_NOTIFY, refused::attributeCalls);
    watchTheLoader(filter);
    refuseQuietly(filter);
    if (rules.programs.empty()) {
        refuseStarts(filter);
        refuseSignals(filter);
    } else {
        watchStarts(filter);
    }
    const std::vector<sock_filter> program = filter.program();
    if (program.empty())
        throw SandboxError(QStringLiteral("the filter of system calls for the sandbox cannot be made"));
    // The thread has to start before the filter binds this one, and hears of the descriptor afterwards.
    std::promise<int> promise;
    std::thread([listening = promise.get_future(), rules]() mutable {
        if (const int descriptor = listening.get(); descriptor >= 0)
            watchCalls(descriptor, rules);
    }).detach();
    const int descriptor = load(withoutCallsAfter(refused::NewestCall, program));
    promise.set_value(descriptor);
    if (descriptor < 0)
        throw SandboxError(QStringLiteral("the kernel refuses the sandbox's filter of system calls"));
}
