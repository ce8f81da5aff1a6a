// Files that a user may not read or write whom permissions bind. Linux alone: there is no other user under Wine.

#include "tests/functions/ini/IniTest.h"
#include "tests/support/Unprivileged.h"

namespace {

class IniPermissions : public IniTest
{
};

} // namespace

TEST_F(IniPermissions, SettingInAFileThatCannotBeWrittenYieldsNilAndChangesNothing)
{
    openDirectory();
    const QString file = newFile("[Main]\nsize=10\n");
    ASSERT_TRUE(QFile::setPermissions(file, QFile::Permissions(0x4444)));
    EXPECT_TRUE(holdsUnprivileged([&] {
        return call(acetIniSet, {text(file), text(u"Main"), text(u"size"), text(u"20")}) ==
               Operations{"getArgs", "retNil", "releaseRb 4"};
    }));
    EXPECT_TRUE(holdsUnprivileged([&] {
        return call(acetIniSet, {text(file), text(u"Main")}) == Operations{"getArgs", "retNil", "releaseRb null"};
    }));
    EXPECT_EQ(content(file), "[Main]\nsize=10\n");
}

TEST_F(IniPermissions, GettingFromAnUnreadableFileYieldsNil)
{
    openDirectory();
    const QString file = newFile("[Paths]\na=1\n");
    const auto get = [&] { return call(acetIniGet, {text(file), text(u"Paths"), text(u"a"), text(u"none")}); };
    ASSERT_TRUE(QFile::setPermissions(file, QFile::Permissions()));
    EXPECT_TRUE(holdsUnprivileged([&] { return get() == noValue; }));
    EXPECT_TRUE(holdsUnprivileged([&] { return call(acetIniGet, {text(file)}) == noValue; })) << "no empty list";
    ASSERT_TRUE(QFile::setPermissions(file, QFile::Permissions(0x4444)));
    EXPECT_TRUE(holdsUnprivileged([&] { return get() == stringValue("1"); })) << "nothing but the permission";
}
