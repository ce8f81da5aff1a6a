#include "app/sandbox/MemoryFolder.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>

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
    EXPECT_EQ(foldersInMemory({u"/proc"_qs, u"/sys"_qs, u"/usr"_qs, u"/no such folder"_qs}), QStringList());
}

TEST(MemoryFolder, IsTheSystemsWhereThatIsInMemory)
{
    const QString forAll = u"/dev/shm"_qs;
    EXPECT_EQ(memoryFolders().value(0) == forAll, isTmpfs(forAll));
    EXPECT_EQ(foldersInMemory({u"/proc"_qs, forAll, u"/usr"_qs}),
              isTmpfs(forAll) ? QStringList{forAll} : QStringList());
}

TEST(NewFolder, IsInTheFirstWhereOneCanBeMade)
{
    const QTemporaryDir first, second;
    const QString nobodys = u"/proc"_qs, missing = u"/no such folder"_qs;
    for (const QStringList &parents : {QStringList{first.path(), second.path()},
                                       {nobodys, first.path()},
                                       {missing, nobodys, first.path(), second.path()}}) {
        const auto made = newFolderInFirst(parents);
        ASSERT_TRUE(made->isValid()) << qPrintable(made->errorString());
        EXPECT_EQ(QFileInfo(made->path()).path(), first.path());
        EXPECT_TRUE(QFileInfo(made->path()).fileName().startsWith(u"lisphost-"_qs));
    }
    EXPECT_TRUE(QDir(first.path()).isEmpty());
}

TEST(NewFolder, ThatCannotBeMadeAnywhereSaysWhy)
{
    const auto made = newFolderInFirst({u"/proc"_qs, u"/no such folder"_qs});
    EXPECT_FALSE(made->isValid());
    EXPECT_EQ(made->errorString(), QString::fromLocal8Bit(std::strerror(ENOENT)));
}
