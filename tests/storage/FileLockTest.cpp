#include "storage/FileLock.h"

#include "tests/storage/StorageTest.h"

#include <QElapsedTimer>

#include <optional>

using namespace std::chrono_literals;
using FileLocks = StorageTest;

TEST_F(FileLocks, IsHeldUntilItsEnd)
{
    std::optional<FileLock> first(path(u"a"_qs));
    EXPECT_TRUE(first->isHeld());
    const FileLock second(path(u"a"_qs), 0ms);
    EXPECT_FALSE(second.isHeld());
    EXPECT_EQ(second.failure(), path(u"a"_qs) + u": another process keeps it locked"_qs);
    first.reset();
    EXPECT_TRUE(FileLock(path(u"a"_qs), 0ms).isHeld());
}

TEST_F(FileLocks, WaitsAsLongAsGiven)
{
    const FileLock first(path(u"a"_qs));
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(FileLock(path(u"a"_qs), 50ms).isHeld());
    EXPECT_GE(timer.elapsed(), 50);
}

TEST_F(FileLocks, OfTwoFilesDoNotMeet)
{
    const FileLock first(path(u"a"_qs));
    EXPECT_TRUE(FileLock(path(u"b"_qs), 0ms).isHeld());
}

TEST_F(FileLocks, DoNotTouchTheFileItself)
{
    const FileLock lock(path(u"a"_qs));
    EXPECT_EQ(names(), QStringList({u"a.lock"_qs}));
}

TEST_F(FileLocks, InAFolderThatIsNotThereFail)
{
    const FileLock lock(path(u"no folder/a"_qs), 0ms);
    EXPECT_FALSE(lock.isHeld());
    EXPECT_TRUE(lock.failure().startsWith(path(u"no folder/a.lock"_qs))) << qPrintable(lock.failure());
}
