// Files and folders that cannot be used, and a full disk.

#include "tests/platform/registry/RegistryStoreTest.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/Unprivileged.h"

#include <sys/stat.h>

namespace {

class RegistryFailures : public RegistryStoreTest
{
protected:
    static void setMode(const QString &file, mode_t mode)
    {
        ASSERT_EQ(chmod(QFile::encodeName(file).constData(), mode), 0);
    }
};

} // namespace

TEST_F(RegistryFailures, AFullDiskFailsTheChangeAndLeavesEverythingAsItWas)
{
    set(u"x", "1");
    const QByteArray before = contentOf(hive());
    {
        const FileSizeLimit limit(static_cast<rlim_t>(before.size()) + 20);
        EXPECT_EQ(set(u"x", "2"), ERROR_REGISTRY_IO_FAILED);
        EXPECT_EQ(get(u"x"), "1");
    }
    EXPECT_EQ(contentOf(hive()), before);
    EXPECT_EQ(warnings(), QStringList(hive() + u": File too large"_qs));
    EXPECT_EQ(set(u"x", "2"), 0);
    restart();
    EXPECT_EQ(get(u"x"), "2");
}

TEST_F(RegistryFailures, AFolderThatMayNotBeWrittenCanBeRead)
{
    set(u"x", "1");
    QFile::remove(hive() + u".lock"_qs);
    QFile::remove(QFileInfo(hive()).path() + u"/.changes"_qs);
    setMode(folder(), 0755);
    setMode(hive(), 0644);
    setMode(QFileInfo(hive()).path(), 0555);
    EXPECT_TRUE(holdsUnprivileged([this] {
        restart();
        return get(u"x") == "1" && set(u"x", "2") == ERROR_REGISTRY_IO_FAILED && get(u"x") == "1";
    }));
    setMode(QFileInfo(hive()).path(), 0755);
}

TEST_F(RegistryFailures, AFileThatMayNotBeReadIsLeftAlone)
{
    set(u"x", "1");
    const QByteArray before = contentOf(hive());
    setMode(folder(), 0755);
    setMode(QFileInfo(hive()).path(), 0777);
    setMode(hive() + u".lock"_qs, 0666);
    setMode(hive(), 0000);
    EXPECT_TRUE(holdsUnprivileged([this] {
        restart();
        return get(u"x") == "missing" && set(u"x", "2") == ERROR_REGISTRY_IO_FAILED;
    }));
    setMode(hive(), 0644);
    EXPECT_EQ(contentOf(hive()), before);
    EXPECT_EQ(copies(), QStringList());
}

TEST_F(RegistryFailures, AFolderInThePlaceOfTheFileIsReported)
{
    ASSERT_TRUE(QDir().mkpath(hive()));
    EXPECT_EQ(get(u"x"), "missing");
    EXPECT_EQ(set(u"x", "1"), ERROR_REGISTRY_IO_FAILED);
    ASSERT_EQ(warnings().size(), 1);
    EXPECT_TRUE(warnings()[0].startsWith(hive())) << warnings()[0].toStdString();
}

TEST_F(RegistryFailures, AFileInThePlaceOfTheFolderIsReported)
{
    write(folder() + u"/registry"_qs, "");
    EXPECT_EQ(get(u"x"), "missing");
    EXPECT_EQ(set(u"x", "1"), ERROR_REGISTRY_IO_FAILED);
    EXPECT_EQ(warnings().size(), 1);
}
