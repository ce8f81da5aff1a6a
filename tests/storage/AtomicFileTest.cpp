#include "storage/AtomicFile.h"

#include "tests/storage/StorageTest.h"

using AtomicFile = StorageTest;

TEST_F(AtomicFile, IsMadeWhenItWasNotThere)
{
    EXPECT_TRUE(replaceFile(path(u"a"_qs), "one\n", m_failure));
    EXPECT_EQ(contentOf(u"a"_qs), "one\n");
    EXPECT_EQ(names(), QStringList({u"a"_qs}));
    EXPECT_EQ(m_failure, QString());
}

TEST_F(AtomicFile, HoldsTheNewContentAlone)
{
    write(u"a"_qs, "a long content");
    EXPECT_TRUE(replaceFile(path(u"a"_qs), "short", m_failure));
    EXPECT_EQ(contentOf(u"a"_qs), "short");
    EXPECT_TRUE(replaceFile(path(u"a"_qs), "", m_failure));
    EXPECT_EQ(contentOf(u"a"_qs), "");
}

TEST_F(AtomicFile, OverwritesWhatAKilledWriterLeft)
{
    write(u"a.new"_qs, "half of a much longer cont");
    EXPECT_TRUE(replaceFile(path(u"a"_qs), "whole", m_failure));
    EXPECT_EQ(contentOf(u"a"_qs), "whole");
    EXPECT_EQ(names(), QStringList({u"a"_qs}));
}

TEST_F(AtomicFile, InAFolderThatIsNotThereFails)
{
    const QString file = path(u"no folder/a"_qs);
    EXPECT_FALSE(replaceFile(file, "content", m_failure));
    EXPECT_TRUE(m_failure.startsWith(file + u": "_qs)) << qPrintable(m_failure);
}

TEST_F(AtomicFile, OverAFolderFails)
{
    ASSERT_TRUE(QDir().mkdir(path(u"a"_qs)));
    EXPECT_FALSE(replaceFile(path(u"a"_qs), "content", m_failure));
    EXPECT_TRUE(QDir(path(u"a"_qs)).exists());
    EXPECT_EQ(names(), QStringList());
}
