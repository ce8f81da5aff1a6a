#include "tests/platform/registry/RegistryStoreTest.h"
#include "tests/support/Unprivileged.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

class RegistryBatchTest : public RegistryStoreTest
{
protected:
    QString otherHive() const { return folder() + u"/registry/HKEY_USERS.reg"_qs; }

    // In a key that is made for it.
    static LSTATUS setOther(const QByteArray &data)
    {
        HKEY key = nullptr;
        RegCreateKeyExW(HKEY_USERS, Key, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
        const LSTATUS status = RegSetValueExW(key, u"x", 0, REG_BINARY, reinterpret_cast<const BYTE *>(data.data()),
                                              static_cast<DWORD>(data.size()));
        RegCloseKey(key);
        return status;
    }
};

} // namespace

TEST_F(RegistryBatchTest, IsOneBlock)
{
    set(u"x", "0");
    const QByteArray before = contentOf(hive());
    RegistryBatch batch;
    set(u"x", "1");
    set(u"y", "2");
    EXPECT_EQ(contentOf(hive()), before);
    EXPECT_EQ(get(u"x") + get(u"y"), "12");
    EXPECT_TRUE(batch.commit());
    EXPECT_EQ(contentOf(hive()), before + "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"x\"=hex:31\n\"y\"=hex:32\n; end\n");
}

TEST_F(RegistryBatchTest, IsUndoneWhenItIsNotCommitted)
{
    set(u"x", "0");
    {
        RegistryBatch batch;
        set(u"x", "1");
        set(u"y", "2");
    }
    EXPECT_EQ(get(u"x") + get(u"y"), "0missing");
    restart();
    EXPECT_EQ(get(u"x") + get(u"y"), "0missing");
}

TEST_F(RegistryBatchTest, ChangesAfterwardsCountAtOnce)
{
    {
        RegistryBatch batch;
        set(u"x", "1");
        EXPECT_TRUE(batch.commit());
        EXPECT_EQ(set(u"y", "2"), 0);
    }
    restart();
    EXPECT_EQ(get(u"x") + get(u"y"), "12");
}

TEST_F(RegistryBatchTest, AFailureOfOneCallLeavesTheOthers)
{
    RegistryBatch batch;
    set(u"x", "1");
    EXPECT_EQ(set(u"half \xd83d pair", "2"), 87);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, u"missing"), 2);
    EXPECT_TRUE(batch.commit());
    restart();
    EXPECT_EQ(get(u"x"), "1");
}

TEST_F(RegistryBatchTest, OfSeveralRootsIsWrittenAsAWhole)
{
    set(u"y", "kept");
    RegistryBatch batch;
    set(u"x", "1");
    setOther("2");
    EXPECT_FALSE(QFile::exists(otherHive()));
    EXPECT_TRUE(batch.commit());
    EXPECT_TRUE(contentOf(otherHive()).endsWith("\n[HKEY_USERS\\Software\\Test]\n\"x\"=hex:32\n; end\n"));
    restart();
    EXPECT_EQ(get(u"x") + get(u"y"), "1kept");
    EXPECT_EQ(files().filter(u".new"_qs), QStringList());
}

TEST_F(RegistryBatchTest, OfSeveralRootsLeavesAllAsTheyWereWhenOneMayNotBeWritten)
{
    set(u"x", "0");
    setOther("0");
    const QByteArray before = contentOf(hive()), otherBefore = contentOf(otherHive());
    for (const QString &name : files())
        chmod(QFile::encodeName(folder() + u"/registry/"_qs + name).constData(), 0666);
    chmod(QFile::encodeName(folder()).constData(), 0755);
    chmod(QFile::encodeName(folder() + u"/registry"_qs).constData(), 0777);
    chmod(QFile::encodeName(otherHive()).constData(), 0444);
    EXPECT_TRUE(holdsUnprivileged([this] {
        restart();
        RegistryBatch batch;
        return set(u"x", "1") == 0 && setOther("1") == 0 && !batch.commit() && get(u"x") == "0";
    }));
    EXPECT_EQ(contentOf(hive()), before);
    EXPECT_EQ(contentOf(otherHive()), otherBefore);
    EXPECT_EQ(files().filter(u".new"_qs), QStringList());
}

TEST_F(RegistryBatchTest, OfSeveralRootsLeavesAllAsTheyWereWhenTheDiskIsFullForOne)
{
    set(u"x", "0");
    setOther("0");
    const QByteArray before = contentOf(hive()), otherBefore = contentOf(otherHive());
    {
        RegistryBatch batch;
        set(u"x", "1");
        setOther(QByteArray(20'000, '1'));
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit unlimited = {};
        getrlimit(RLIMIT_FSIZE, &unlimited);
        const rlimit limit{20'000, unlimited.rlim_max}; // no file can grow beyond
        setrlimit(RLIMIT_FSIZE, &limit);
        EXPECT_FALSE(batch.commit());
        setrlimit(RLIMIT_FSIZE, &unlimited);
    }
    EXPECT_EQ(get(u"x"), "0");
    EXPECT_EQ(contentOf(hive()), before);
    EXPECT_EQ(contentOf(otherHive()), otherBefore);
    EXPECT_EQ(files().filter(u".new"_qs), QStringList());
    EXPECT_EQ(set(u"x", "2"), 0); // and goes on
}
