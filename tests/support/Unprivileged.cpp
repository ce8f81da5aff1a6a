#include "tests/support/Unprivileged.h"

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned int nobody = 65534;

bool dropPrivileges()
{
    return geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0);
}

} // namespace

bool holdsUnprivileged(bool (*action)(void *context), void *context)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(dropPrivileges() && action(context) ? 0 : 1);
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
