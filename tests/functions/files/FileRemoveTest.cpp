#include "tests/functions/files/FilesTest.h"

namespace {

class FileRemove : public FilesTest
{
protected:
    QString newReadOnlyFile(const QString &name) const
    {
        QString file = newFile(name);
        EXPECT_TRUE(QFile::setPermissions(file, QFile::ReadOwner));
        return file;
    }
};

} // namespace

TEST_F(FileRemove, YieldsTheInteger1AndTheFileIsGone)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_EQ(call(acetFileRemove, {text(file)}), (Operations{"getArgs", "retInt 1", "releaseRb null"}));
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(FileRemove, OnAReadOnlyFileYields0WhereTheSystemProtectsIt)
{
#ifdef _WIN32
    const char *result = "retInt 0";
#else
    const char *result = "retInt 1"; // here the directory's permissions decide, not the file's
#endif
    EXPECT_EQ(call(acetFileRemove, {text(newReadOnlyFile(u"file"_qs))}),
              (Operations{"getArgs", result, "releaseRb null"}));
}

TEST_F(FileRemove, OnAReadOnlyFileWithASecondArgumentTYields1AndTheFileIsGone)
{
    const QString file = newReadOnlyFile(u"file"_qs);
    EXPECT_EQ(call(acetFileRemove, {text(file), truth()}), (Operations{"getArgs", "retInt 1", "releaseRb 2"}));
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(FileRemove, OfAMissingFileYields0)
{
    EXPECT_EQ(call(acetFileRemove, {text(path(u"missing"_qs))}), (Operations{"getArgs", "retInt 0", "releaseRb null"}));
    EXPECT_EQ(call(acetFileRemove, {text(u""), truth(), nil()}), (Operations{"getArgs", "retInt 0", "releaseRb 2"}));
}

TEST_F(FileRemove, WithoutAPathIsRefused)
{
    EXPECT_EQ(call(acetFileRemove, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetFileRemove, {truth(), truth()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
