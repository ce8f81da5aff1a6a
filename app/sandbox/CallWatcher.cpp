// The watching thread runs a file's call itself, bound by the same file rules, and so sees how it ends.
// See https://docs.kernel.org/userspace-api/seccomp_filter.html#userspace-notification

#include "app/sandbox/CallWatcher.h"

#include "app/sandbox/RefusedCalls.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <string_view>

#include <seccomp.h>
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

void say(const char *what, const char *path)
{
    std::fprintf(stderr, path ? "lisphost: sandbox: refused %s %s\n" : "lisphost: sandbox: refused %s\n", what, path);
}

// The font library tries to bring its cache up to date and goes on without: no program's doing.
bool isLibraryCache(const char *path)
{
    return std::string_view(path).starts_with("/var/cache/fontconfig/");
}

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
void runInstead(const refused::FileCall &call, const seccomp_notif &notice, seccomp_notif_resp &answer)
{
    const auto &arguments = notice.data.args;
    answer.val = callAgainAfterSignals(call.number, arguments);
    if (answer.val >= 0)
        return;
    answer.val = 0;
    answer.error = -errno;
    const auto *path = reinterpret_cast<const char *>(arguments[call.path]);
    if ((errno == EACCES || errno == EPERM || errno == EXDEV) && !isLibraryCache(path))
        say(call.what, path);
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

void letGo(seccomp_notif_resp &answer)
{
    answer.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
}

void refuseQuietly(seccomp_notif_resp &answer)
{
    answer.error = -EPERM;
}

void refuse(seccomp_notif_resp &answer, const char *what, const char *path)
{
    refuseQuietly(answer);
    say(what, path);
}

void answerCall(const seccomp_notif &notice, seccomp_notif_resp &answer, const std::vector<std::string> &libraryFolders)
{
    answer = {};
    answer.id = notice.id;
    const refused::FileCall *call = findCall(refused::fileCalls, notice.data.nr);
    const bool isLoading = notice.data.nr == SYS_mmap;
    const bool isRefused = !call && !isLoading;
    if (!isThreadOfThisProcess(notice.pid))                       // a started program's
        return isRefused ? refuseQuietly(answer) : letGo(answer); // the file rules bind it all the same
    if (isRefused)
        return refuse(answer, nameOf(notice.data.nr), nullptr);
    if (call)
        return runInstead(*call, notice, answer);
    const std::string file = pathOf(static_cast<int>(notice.data.args[4]));
    return isBelowAny(libraryFolders, file) ? letGo(answer) : refuse(answer, "loading code from", file.c_str());
}

} // namespace

void watchCalls(int descriptor, const std::vector<std::string> &libraryFolders)
{
    seccomp_notif *notice = nullptr;
    seccomp_notif_resp *answer = nullptr;
    if (seccomp_notify_alloc(&notice, &answer) != 0)
        return; // calls then fail for good
    for (;;) {
        *notice = {};
        if (seccomp_notify_receive(descriptor, notice) != 0)
            continue; // the caller was interrupted before it could be heard
        answerCall(*notice, *answer, libraryFolders);
        seccomp_notify_respond(descriptor, answer);
    }
}
