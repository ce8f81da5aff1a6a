// What a user may not do whom permissions bind. Linux alone: there is no other user under Wine.

#include "tests/functions/files/FilesTest.h"
#include "tests/support/Unprivileged.h"

namespace {

const Operations notRemoved = {"getArgs", "retNil", "releaseRb 1"};

class FilePermissions : public FilesTest
{
};

} // namespace

TEST_F(FilePermissions, RmdirThatTheSystemRefusesYieldsNil)
{
    const QTemporaryDir shared; // one that another user can reach
    const QString locked = shared.filePath(u"locked"_qs);
    ASSERT_TRUE(QFile::setPermissions(shared.path(), QFile::Permissions(0x7755)));
    ASSERT_TRUE(QDir().mkpath(locked + u"/folder"_qs) && QFile::setPermissions(locked, QFile::Permissions(0x5555)));
    EXPECT_TRUE(holdsUnprivileged([&] { return call(acetFileRmdir, {text(locked)}) == notRemoved; }));
    EXPECT_TRUE(QFile::exists(locked + u"/folder"_qs));
    QFile::setPermissions(locked, QFile::Permissions(0x7755));
}
