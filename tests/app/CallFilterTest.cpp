#include "app/sandbox/CallFilter.h"
#include "app/sandbox/CallRules.h"
#include "tests/support/Unprivileged.h"

#include <cerrno>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

const char *const outOfMemory = reinterpret_cast<const char *>(1);

// In a process of its own, which a pointer that is followed here would end.
template <class Call> bool goesOnAfter(Call call)
{
    return holdsUnprivileged([call] {
        if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0)
            return false;
        filterCalls({});
        return call();
    });
}

bool failsWith(int error, long result)
{
    return result == -1 && errno == error;
}

} // namespace

TEST(CallFilter, LeavesAPathThatCannotBeReadToTheKernel)
{
    for (const char *path : {outOfMemory, static_cast<const char *>(nullptr)})
        EXPECT_TRUE(goesOnAfter([path] {
            return failsWith(EFAULT, ::syscall(SYS_open, path, O_RDONLY)) &&
                   failsWith(EFAULT, ::syscall(SYS_openat, AT_FDCWD, path, O_RDONLY)) &&
                   failsWith(EFAULT, ::syscall(SYS_rename, path, "/proc/x")) &&
                   failsWith(EFAULT, ::syscall(SYS_rename, "/proc/x", path));
        }));
}

// The kernel may refuse the one before it looks at the other.
TEST(CallFilter, LeavesTheOtherPathOfARefusedCallAloneThatCannotBeRead)
{
    char folder[] = "/tmp/closed-XXXXXX";
    ASSERT_NE(::mkdtemp(folder), nullptr);
    ASSERT_EQ(::chmod(folder, 0), 0);
    const std::string file = std::string(folder) + "/file";
    EXPECT_TRUE(goesOnAfter([&] {
        return ::syscall(SYS_rename, file.c_str(), outOfMemory) == -1 &&
               ::syscall(SYS_link, file.c_str(), outOfMemory) == -1;
    }));
    EXPECT_EQ(::rmdir(folder), 0);
}

// A call after a move that was refused may be of the copy that takes its place.
TEST(CallFilter, LeavesAPathAfterARefusedMoveToTheKernelToo)
{
    EXPECT_TRUE(goesOnAfter([] {
        return failsWith(EACCES, ::syscall(SYS_rename, "/usr/share", "/usr/other")) &&
               failsWith(EFAULT, ::syscall(SYS_open, outOfMemory, O_RDONLY));
    }));
}
