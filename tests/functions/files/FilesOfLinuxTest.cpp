// What there is on Linux alone: a file's permissions for its owner and for others, users whom they bind, and
// directories that can be removed while they are the current one.

#include "tests/functions/files/FilesTest.h"
#include "tests/support/Unprivileged.h"

namespace {

const Operations notRemoved = {"getArgs", "retNil", "releaseRb 1"};

class FilesOfLinux : public FilesTest
{
};

} // namespace

TEST_F(FilesOfLinux, RmdirThatTheSystemRefusesYieldsNil)
{
    const QTemporaryDir shared; // one that another user can reach
    const QString locked = shared.filePath(u"locked"_qs);
    ASSERT_TRUE(QFile::setPermissions(shared.path(), QFile::Permissions(0x7755)));
    ASSERT_TRUE(QDir().mkpath(locked + u"/folder"_qs) && QFile::setPermissions(locked, QFile::Permissions(0x5555)));
    EXPECT_TRUE(holdsUnprivileged([&] { return call(acetFileRmdir, {text(locked)}) == notRemoved; }));
    EXPECT_TRUE(QFile::exists(locked + u"/folder"_qs));
    QFile::setPermissions(locked, QFile::Permissions(0x7755));
}

// A directory cannot be removed so, which leaves it there to show what happened to its permissions.
TEST_F(FilesOfLinux, RemovingByForceAddsTheOwnersWritePermissionAndKeepsTheOthers)
{
    const QString folder = path(u"folder"_qs);
    const QFile::Permissions before = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup;
    for (const Argument &force : {truth(), shortInteger(0), text(u"")}) {
        ASSERT_TRUE(QDir().mkpath(folder) && QFile::setPermissions(folder, before));
        EXPECT_EQ(call(acetFileRemove, {text(folder), force}), (Operations{"getArgs", "retInt 0", "releaseRb 2"}));
        EXPECT_EQ(QFile::permissions(folder) & ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser),
                  before | QFile::WriteOwner);
    }
}

TEST_F(FilesOfLinux, RemovingWithNilAsTheSecondArgumentIsNotForced)
{
    const QString folder = path(u"folder"_qs);
    ASSERT_TRUE(QDir().mkpath(folder) && QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_EQ(call(acetFileRemove, {text(folder), nil()}), (Operations{"getArgs", "retInt 0", "releaseRb 2"}));
    EXPECT_FALSE(QFile::permissions(folder) & QFile::WriteOwner);
}

TEST_F(FilesOfLinux, CwdOfADirectoryThatIsGoneDoesNotFail)
{
    ASSERT_TRUE(QDir().mkdir(path(u"gone"_qs)) && QDir::setCurrent(path(u"gone"_qs)) && QDir().rmdir(path(u"gone"_qs)));
    const QString expected = QDir::currentPath();
    const std::string result = expected.isNull() ? "retNil" : operation("retWStr", QDir::toNativeSeparators(expected));
    EXPECT_EQ(call(acetFileCwd, {}), Operations{result});
}
