// See capabilities(7).

#include "app/sandbox/Privileges.h"

#include "app/sandbox/Supervisor.h"

#include <cstdint>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// Root's programs and drawings may stand where only somebody else has permission, and root reads them.
constexpr std::uint64_t Kept = std::uint64_t{1} << CAP_DAC_OVERRIDE | std::uint64_t{1} << CAP_FOWNER;

// What a program could get that is started. Who may not change this gets nothing either, being bound to get no new
// privileges.
void boundStartedPrograms()
{
    for (unsigned capability = 0; capability <= CAP_LAST_CAP; ++capability)
        if ((Kept >> capability & 1) == 0)
            ::prctl(PR_CAPBSET_DROP, capability, 0, 0, 0);
}

} // namespace

void dropPrivileges()
{
    boundStartedPrograms();
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct halves[_LINUX_CAPABILITY_U32S_3] = {};
    if (::syscall(SYS_capget, &header, halves) == 0) {
        for (unsigned half = 0; half < _LINUX_CAPABILITY_U32S_3; ++half) {
            const auto kept = static_cast<std::uint32_t>(Kept >> (32 * half));
            halves[half].effective &= kept;
            halves[half].permitted &= kept;
            halves[half].inheritable &= kept; // and with them the ambient ones
        }
        if (::syscall(SYS_capset, &header, halves) == 0)
            return;
    }
    throw SandboxError(QStringLiteral("the kernel refuses to take the privileges of root away in the sandbox"));
}
