// See getrlimit(2). The number of processes is not bound: the kernel counts all of a user's, in the sandbox and
// outside.

#include "app/sandbox/ResourceLimits.h"

#include "app/sandbox/Supervisor.h"

#include <algorithm>
#include <csignal>

#include <sys/resource.h>

namespace {

constexpr rlim_t Megabyte = 1024 * 1024;
constexpr rlim_t LargestFile = 1024 * Megabyte;
constexpr rlim_t BesidesLispData = 512 * Megabyte; // the program itself, the drawing, windows

// AddressSanitizer keeps its books in terabytes that it never touches.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool canLimitMemory = false;
#elif defined(__has_feature)
constexpr bool canLimitMemory = !__has_feature(address_sanitizer);
#else
constexpr bool canLimitMemory = true;
#endif

void limit(__rlimit_resource resource, rlim_t amount)
{
    rlimit limit{};
    if (::getrlimit(resource, &limit) != 0)
        throw SandboxError(QStringLiteral("the kernel tells no limits of resources"));
    limit = {std::min(amount, limit.rlim_cur), std::min(amount, limit.rlim_max)}; // what is bound more tightly stays so
    if (::setrlimit(resource, &limit) != 0)
        throw SandboxError(QStringLiteral("the kernel refuses the sandbox's limits of resources"));
}

} // namespace

void limitResources(int megabytes)
{
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, LargestFile);
    std::signal(SIGXFSZ, SIG_IGN); // writing more then fails as on a full disk
    // Memory that is written to. Address space would do as well for programs, but threads reserve much and use little.
    if (canLimitMemory && megabytes > 0)
        limit(RLIMIT_DATA, static_cast<rlim_t>(megabytes) * Megabyte + BesidesLispData);
}
