// Failures that need permissions, links or limits.

#include "storage/AtomicFile.h"

#include "tests/storage/StorageTest.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/Unprivileged.h"

#include <sys/stat.h>

namespace {

class AtomicFileFailures : public StorageTest
{
protected:
    void setMode(const QString &file, mode_t mode) { ASSERT_EQ(chmod(QFile::encodeName(file).constData(), mode), 0); }
    mode_t modeOf(const QString &file)
    {
        struct stat status = {};
        EXPECT_EQ(stat(QFile::encodeName(file).constData(), &status), 0);
        return status.st_mode & 07777u;
    }
};

} // namespace

TEST_F(AtomicFileFailures, AFullDiskLeavesTheOldContent)
{
    write(u"a"_qs, "old");
    {
        const FileSizeLimit limit(1000);
        EXPECT_FALSE(replaceFile(path(u"a"_qs), QByteArray(5000, 'x'), m_failure));
    }
    EXPECT_EQ(contentOf(u"a"_qs), "old");
    EXPECT_EQ(names(), QStringList({u"a"_qs}));
    EXPECT_EQ(m_failure, path(u"a"_qs) + u": File too large"_qs);
}

TEST_F(AtomicFileFailures, AReadOnlyFolderLeavesTheOldContent)
{
    write(u"a"_qs, "old");
    setMode(path(u"a"_qs), 0666);
    setMode(path(u"."_qs), 0555);
    EXPECT_TRUE(holdsUnprivileged([this] {
        return !replaceFile(path(u"a"_qs), "new", m_failure) && m_failure.endsWith(u"Permission denied"_qs);
    }));
    setMode(path(u"."_qs), 0755);
    EXPECT_EQ(contentOf(u"a"_qs), "old");
}

TEST_F(AtomicFileFailures, AReadOnlyFileIsNotReplacedThoughItsFolderAllowsIt)
{
    write(u"a"_qs, "old");
    setMode(path(u"a"_qs), 0444);
    setMode(path(u"."_qs), 0777);
    EXPECT_TRUE(holdsUnprivileged([this] {
        return !replaceFile(path(u"a"_qs), "new", m_failure) &&
               m_failure == path(u"a"_qs) + u": it may not be written"_qs;
    }));
    EXPECT_EQ(contentOf(u"a"_qs), "old");
}

TEST_F(AtomicFileFailures, WhatIsNoRegularFileStays)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path(u"pipe"_qs)).constData(), 0600), 0);
    ASSERT_TRUE(QDir().mkdir(path(u"folder"_qs)));
    ASSERT_TRUE(QFile::link(path(u"pipe"_qs), path(u"link"_qs)));
    for (const QString &name : {u"pipe"_qs, u"folder"_qs, u"link"_qs}) {
        EXPECT_FALSE(replaceFile(path(name), "new", m_failure));
        EXPECT_EQ(m_failure, path(name) + u": it is no regular file"_qs);
    }
    struct stat status = {};
    ASSERT_EQ(stat(QFile::encodeName(path(u"pipe"_qs)).constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
    EXPECT_EQ(names(), QStringList({u"link"_qs})); // the others are no files
}

TEST_F(AtomicFileFailures, KeepsThePermissions)
{
    write(u"a"_qs, "old");
    setMode(path(u"a"_qs), 0640);
    EXPECT_TRUE(replaceFile(path(u"a"_qs), "new", m_failure));
    EXPECT_EQ(modeOf(path(u"a"_qs)), 0640u);
}

TEST_F(AtomicFileFailures, ASymbolicLinkStaysOne)
{
    ASSERT_TRUE(QDir().mkdir(path(u"elsewhere"_qs)));
    write(u"elsewhere/real"_qs, "old");
    ASSERT_TRUE(QFile::link(path(u"elsewhere/real"_qs), path(u"a"_qs)));
    EXPECT_TRUE(replaceFile(path(u"a"_qs), "new", m_failure));
    EXPECT_EQ(contentOf(u"elsewhere/real"_qs), "new");
    EXPECT_EQ(QFile::symLinkTarget(path(u"a"_qs)), path(u"elsewhere/real"_qs));
}
