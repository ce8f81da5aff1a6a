#include "platform/LastError.h"
#include "tests/platform/AttributeFixture.h"
#include "tests/support/Unprivileged.h"

namespace {

class SetFileAttributes : public AttributeFixture
{
};

class SetStoredFileAttributes : public StoredAttributeFixture
{
};

} // namespace

TEST_F(SetStoredFileAttributes, ReadOnlyAloneClearsArchive)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_TRUE(setAttributes(file, 1));
    EXPECT_EQ(attributes(file), 1u);
    EXPECT_EQ(mode(file) & 0200, 0u);
}

TEST_F(SetFileAttributes, ChangesTheOwnersWritePermissionAndNoOther)
{
    const QString file = newFile(u"file"_qs);
    ASSERT_TRUE(setMode(file, 0664));
    EXPECT_TRUE(setAttributes(file, 33));
    EXPECT_EQ(mode(file), 0464u);
    EXPECT_TRUE(setAttributes(file, 32));
    EXPECT_EQ(mode(file), 0664u);
}

TEST_F(SetStoredFileAttributes, StoresTheOtherBitsAsHexadecimalText)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_TRUE(setAttributes(file, 0x22));
    EXPECT_EQ(stored(file), "0x22");
    EXPECT_TRUE(setAttributes(file, 0x7));
    EXPECT_EQ(stored(file), "0x6");
    EXPECT_EQ(attributes(file), 7u);
}

TEST_F(SetStoredFileAttributes, NormalOrNothingClearsAllBits)
{
    const QString file = newFile(u"file"_qs);
    for (const DWORD nothing : {FILE_ATTRIBUTE_NORMAL, DWORD(0)}) {
        ASSERT_TRUE(setAttributes(file, 0x27));
        EXPECT_TRUE(setAttributes(file, nothing));
        EXPECT_EQ(attributes(file), FILE_ATTRIBUTE_NORMAL);
    }
}

TEST_F(SetStoredFileAttributes, IgnoresNormalBesideOtherBits)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_TRUE(setAttributes(file, FILE_ATTRIBUTE_NORMAL | FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(attributes(file), FILE_ATTRIBUTE_HIDDEN);
}

TEST_F(SetFileAttributes, IgnoresBitsThatCannotBeSet)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_TRUE(setAttributes(file, 0x20 | 0x400 | 0x800)); // reparse point, compressed
    EXPECT_EQ(attributes(file), 0x20u);
}

TEST_F(SetStoredFileAttributes, WorksOnADirectory)
{
    const QString folder = path(u"folder"_qs);
    ASSERT_TRUE(QDir().mkdir(folder));
    EXPECT_TRUE(setAttributes(folder, FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(attributes(folder), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_TRUE(setAttributes(folder, FILE_ATTRIBUTE_DIRECTORY));
    EXPECT_EQ(attributes(folder), FILE_ATTRIBUTE_DIRECTORY);
}

TEST_F(SetFileAttributes, RefusesWhatCannotBeTrueOfTheFile)
{
    ASSERT_TRUE(QDir().mkdir(path(u"folder"_qs)));
    EXPECT_FALSE(setAttributes(newFile(u"file"_qs), FILE_ATTRIBUTE_DIRECTORY));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(setAttributes(path(u"folder"_qs), FILE_ATTRIBUTE_TEMPORARY));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST_F(SetFileAttributes, OfAMissingFileFails)
{
    EXPECT_FALSE(setAttributes(path(u"missing"_qs), 32));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

// The extended attribute of a read-only file can be written only while the permission is lifted, except by root.
TEST_F(SetFileAttributes, ReachesAFileThatIsAndStaysReadOnly)
{
    QTemporaryDir directory;
    ASSERT_TRUE(setMode(directory.path(), 0777));
    EXPECT_TRUE(holdsUnprivileged([&directory] {
        const QString path = directory.filePath(u"file"_qs);
        QFile file(path);
        return file.open(QFile::WriteOnly) && setMode(path, 0444) && setAttributes(path, 3) && mode(path) == 0444 &&
               (attributes(path) & FILE_ATTRIBUTE_READONLY) != 0;
    }));
}

TEST_F(SetFileAttributes, OfSomebodyElsesFileIsDenied)
{
    EXPECT_TRUE(holdsUnprivileged([] {
        return !setAttributes(u"/etc/passwd"_qs, 1) && GetLastError() == ERROR_ACCESS_DENIED &&
               attributes(u"/etc/passwd"_qs) == 32;
    }));
}

TEST_F(SetFileAttributes, WithoutExtendedAttributesKeepsReadOnlyAlone)
{
    // A named pipe may not have them, whatever the file system.
    const QString pipe = path(u"pipe"_qs);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_TRUE(setAttributes(pipe, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(attributes(pipe), FILE_ATTRIBUTE_READONLY);
    // The process file system has none at all.
    EXPECT_TRUE(setAttributes(u"/proc/self/comm"_qs, FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(attributes(u"/proc/self/comm"_qs), FILE_ATTRIBUTE_ARCHIVE);
}
