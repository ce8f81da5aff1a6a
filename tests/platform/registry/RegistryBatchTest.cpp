#include "tests/platform/registry/RegistryStoreTest.h"

namespace {

class RegistryBatchTest : public RegistryStoreTest
{
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
