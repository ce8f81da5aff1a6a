#include "platform/LastError.h"
#include "tests/platform/AttributeFixture.h"

namespace {

class GetFileAttributes : public AttributeFixture
{
};

class GetStoredFileAttributes : public StoredAttributeFixture
{
};

} // namespace

TEST_F(GetFileAttributes, OfANewFileIsArchive)
{
    EXPECT_EQ(attributes(newFile(u"new"_qs)), 32u);
}

TEST_F(GetFileAttributes, OfANameThatBeginsWithAByteOrderMarkAreThatFiles)
{
    ASSERT_TRUE(QDir().mkdir(path(u"name"_qs)));
    newFile(u"\uFEFFname"_qs);
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(path(QString())));
    EXPECT_EQ(attributes(u"\uFEFFname"_qs), 32u);
    EXPECT_EQ(attributes(u"name"_qs), 16u);
    QDir::setCurrent(before);
}

TEST_F(GetFileAttributes, OfADirectoryIsDirectoryAlone)
{
    ASSERT_TRUE(QDir().mkdir(path(u"folder"_qs)));
    EXPECT_EQ(attributes(path(u"folder"_qs)), 16u);
}

TEST_F(GetFileAttributes, ReportsAMissingOwnerWritePermissionAsReadOnly)
{
    const QString file = newFile(u"locked"_qs);
    ASSERT_TRUE(setMode(file, 0464)); // others may write: it is the owner who counts
    EXPECT_EQ(attributes(file), 33u);
}

TEST_F(GetStoredFileAttributes, ReadsTheStoredText)
{
    const QString file = newFile(u"hidden"_qs);
    ASSERT_TRUE(store(file, "0x22"));
    EXPECT_EQ(attributes(file), 0x22u);
}

TEST_F(GetStoredFileAttributes, ReadsTheBinaryRecord)
{
    const QString file = newFile(u"served"_qs);
    ASSERT_TRUE(store(file, {"\0\0\5\0\5\0\0\0\x11\0\0\0\x06\0\0\0\xd8\x6f\xb5\xb7\xf2\x28\xd5\x01", 24}));
    EXPECT_EQ(attributes(file), 6u);
}

TEST_F(GetStoredFileAttributes, TakesReadOnlyAndDirectoryFromTheFileSystemAlone)
{
    const QString file = newFile(u"liar"_qs);
    ASSERT_TRUE(store(file, "0x33"));
    EXPECT_EQ(attributes(file), 0x22u);
}

TEST_F(GetStoredFileAttributes, FallsBackOnArchiveWhenTheStoredValueMakesNoSense)
{
    const QString file = newFile(u"odd"_qs);
    ASSERT_TRUE(store(file, "rubbish"));
    EXPECT_EQ(attributes(file), 32u);
}

TEST_F(GetStoredFileAttributes, OfAFileWithoutAnyBitIsNormal)
{
    const QString file = newFile(u"plain"_qs);
    ASSERT_TRUE(store(file, "0x0"));
    EXPECT_EQ(attributes(file), 128u);
}

TEST_F(GetStoredFileAttributes, FollowsASymbolicLink)
{
    ASSERT_TRUE(QFile::link(newFile(u"target"_qs), path(u"link"_qs)));
    ASSERT_TRUE(store(path(u"target"_qs), "0x2"));
    EXPECT_EQ(attributes(path(u"link"_qs)), 2u);
}

TEST_F(GetFileAttributes, OfAMissingFileFailsWithItsError)
{
    EXPECT_EQ(attributes(path(u"missing"_qs)), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(attributes(path(u"missing/"_qs)), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(attributes(path(u"missing/below"_qs)), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(attributes(newFile(u"file"_qs) + u"/below"_qs), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(attributes(QString()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(attributes(QString(4096, u'x')), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_FILENAME_EXCED_RANGE);
}
