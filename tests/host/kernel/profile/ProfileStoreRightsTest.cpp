// Without the right to read or write.

#include "tests/host/kernel/profile/ProfileStoreFixture.h"
#include "tests/support/Unprivileged.h"

namespace {

class StoreRights : public ProfileStoreTest
{
protected:
    StoreRights()
    {
        EXPECT_TRUE(store().setValue(u"s"_qs, u"a"_qs, u"1"_qs));
        setRights(folder() + u"/.."_qs, 0x7755);
    }
    static void setRights(const QString &path, int rights)
    {
        EXPECT_TRUE(QFile::setPermissions(path, QFileDevice::Permissions(rights)));
    }
};

} // namespace

TEST_F(StoreRights, AReadOnlyFolderIsReadButNotWritten)
{
    setRights(folder(), 0x5555);
    EXPECT_TRUE(holdsUnprivileged([this] {
        ProfileStore profile = store();
        return read(profile, u"a"_qs) == "1" && !profile.setValue(u"s"_qs, u"a"_qs, u"2"_qs) &&
               read(profile, u"a"_qs) == "1";
    }));
    setRights(folder(), 0x7755);
}

TEST_F(StoreRights, AFileThatMayNotBeReadFails)
{
    setRights(file(), 0x6600);
    EXPECT_TRUE(holdsUnprivileged([this] {
        ProfileStore profile = store();
        return read(profile, u"a"_qs) == "failure";
    }));
}

TEST_F(StoreRights, AFolderThatMayNotBeEnteredFails)
{
    setRights(folder(), 0x7700);
    EXPECT_TRUE(holdsUnprivileged([this] {
        ProfileStore profile = store();
        return read(profile, u"a"_qs) == "failure" && !profile.setValue(u"s"_qs, u"a"_qs, u"2"_qs);
    }));
}

TEST_F(StoreRights, AFolderThatCannotBeMadeFails)
{
    EXPECT_TRUE(holdsUnprivileged([this] {
        ProfileStore profile(folder() + u"/../other"_qs, [](const QString &) {});
        return read(profile, u"a"_qs) == "none" && !profile.setValue(u"s"_qs, u"a"_qs, u"2"_qs);
    }));
}
