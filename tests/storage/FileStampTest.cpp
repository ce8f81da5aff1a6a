#include "storage/FileStamp.h"

#include "storage/AtomicFile.h"
#include "tests/storage/StorageTest.h"

using FileStamps = StorageTest;

TEST_F(FileStamps, OfAMissingFileSaysSo)
{
    EXPECT_FALSE(FileStamp::of(path(u"a"_qs)).exists());
    EXPECT_EQ(FileStamp::of(path(u"a"_qs)), FileStamp());
}

TEST_F(FileStamps, StaysWhileNothingHappens)
{
    write(u"a"_qs, "content");
    const FileStamp stamp = FileStamp::of(path(u"a"_qs));
    EXPECT_TRUE(stamp.exists());
    EXPECT_EQ(contentOf(u"a"_qs), "content");
    EXPECT_EQ(FileStamp::of(path(u"a"_qs)), stamp);
}

TEST_F(FileStamps, ChangesWhenTheFileIsReplacedByOneOfTheSameSize)
{
    write(u"a"_qs, "content");
    const FileStamp stamp = FileStamp::of(path(u"a"_qs));
    ASSERT_TRUE(replaceFile(path(u"a"_qs), "CONTENT", m_failure));
    EXPECT_NE(FileStamp::of(path(u"a"_qs)), stamp);
}

TEST_F(FileStamps, ChangesWithTheSize)
{
    write(u"a"_qs, "content");
    const FileStamp stamp = FileStamp::of(path(u"a"_qs));
    write(u"a"_qs, "longer content");
    EXPECT_NE(FileStamp::of(path(u"a"_qs)), stamp);
}
