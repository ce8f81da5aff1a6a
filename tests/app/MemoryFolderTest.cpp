#include "app/sandbox/MemoryFolder.h"

#include <QFile>

#include <gtest/gtest.h>

#include <linux/magic.h>
#include <sys/vfs.h>

namespace {

bool isTmpfs(const QString &folder)
{
    struct statfs system = {};
    return ::statfs(QFile::encodeName(folder).constData(), &system) == 0 && system.f_type == TMPFS_MAGIC;
}

} // namespace

TEST(MemoryFolder, IsNoFolderOfADiskOrOfTheKernel)
{
    EXPECT_EQ(firstMemoryFolder({u"/proc"_qs, u"/sys"_qs, u"/usr"_qs, u"/no such folder"_qs}), QString());
}

TEST(MemoryFolder, IsTheSystemsWhereThatIsInMemory)
{
    if (isTmpfs(u"/dev/shm"_qs)) {
        EXPECT_EQ(memoryFolder(), u"/dev/shm"_qs);
        EXPECT_EQ(firstMemoryFolder({u"/proc"_qs, u"/dev/shm"_qs}), u"/dev/shm"_qs);
    } else {
        EXPECT_NE(memoryFolder(), u"/dev/shm"_qs);
    }
}
