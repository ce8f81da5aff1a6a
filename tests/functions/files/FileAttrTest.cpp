#include "platform/FileAttributes.h"
#include "tests/functions/files/FilesTest.h"
#ifndef _WIN32
#include "tests/support/ExtendedAttributes.h"
#endif

namespace {

class FileAttr : public FilesTest
{
protected:
#ifdef _WIN32
    static constexpr bool IsWine =
        true; // every file has ARCHIVE there, and SetFileAttributesW takes what it cannot set
#else
    static constexpr bool IsWine = false;
#endif

    static int attributes(const QString &file)
    {
        return int(GetFileAttributesW(windowsText(file.toStdU16String().c_str())));
    }
};

// For other attributes than read-only.
class StoredFileAttr : public FileAttr
{
#ifndef _WIN32
protected:
    void SetUp() override
    {
        if (!keepsExtendedAttributes(QFile::encodeName(path(QString())).constData()))
            GTEST_SKIP() << "the file system of the build keeps no extended attributes";
    }
#endif
};

} // namespace

TEST_F(FileAttr, WithOnlyAPathOnAMissingFilePrintsTheMessageWithThePathAndYieldsNil)
{
    const QString missing = path(u"100%d %s.dwg"_qs);
    EXPECT_EQ(
        call(acetFileAttr, {text(missing)}),
        (Operations{"getArgs", operation("prompt", u"\nError: Unable to get the file attributes: "_qs + missing + u'.'),
                    "retNil", "releaseRb null"}));
}

TEST_F(FileAttr, OnAnExistingFileYieldsTheRawAttributeWord)
{
    EXPECT_EQ(call(acetFileAttr, {text(newFile(u"file"_qs))}), (Operations{"getArgs", "retInt 32", "releaseRb null"}));
    EXPECT_EQ(call(acetFileAttr, {text(path(u"."_qs))}), (Operations{"getArgs", "retInt 16", "releaseRb null"}));
}

TEST_F(FileAttr, WithAPathAndNilBehavesAsTheOneArgumentForm)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_EQ(call(acetFileAttr, {text(file), nil()}), (Operations{"getArgs", "retInt 32", "releaseRb 2"}));
    EXPECT_EQ(attributes(file), 32);
}

TEST_F(StoredFileAttr, WithAPathAndTheInteger1MakesTheFileReadOnlyAndYields1)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_EQ(call(acetFileAttr, {text(file), shortInteger(1)}), (Operations{"getArgs", "retInt 1", "releaseRb 2"}));
    EXPECT_EQ(attributes(file), IsWine ? 33 : 1);
    EXPECT_FALSE(QFile::permissions(file) & QFile::WriteOwner);
}

TEST_F(StoredFileAttr, YieldsTheWordThatWasGivenNotTheOneThatResults)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_EQ(call(acetFileAttr, {text(file), longInteger(0x20000 + 34)}),
              (Operations{"getArgs", "retInt 131106", "releaseRb 2"}));
    EXPECT_EQ(attributes(file), 34);
}

TEST_F(StoredFileAttr, ReadsTheWordFromANodeOfAnyType)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_EQ(call(acetFileAttr, {text(file), truth()}), (Operations{"getArgs", "retInt 0", "releaseRb 2"}));
    EXPECT_EQ(attributes(file), IsWine ? 32 : 128);
}

TEST_F(FileAttr, ThatCannotBeSetYieldsNilAndPrintsNothing)
{
    EXPECT_EQ(call(acetFileAttr, {text(path(u"missing"_qs)), shortInteger(1)}),
              (Operations{"getArgs", "retNil", "releaseRb 2"}));
    EXPECT_EQ(call(acetFileAttr, {text(newFile(u"file"_qs)), shortInteger(16), text(u"surplus")}),
              (Operations{"getArgs", IsWine ? "retInt 16" : "retNil", "releaseRb 2"}));
}

TEST_F(FileAttr, WithoutAPathIsRefused)
{
    EXPECT_EQ(call(acetFileAttr, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetFileAttr, {shortInteger(1), shortInteger(1)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
