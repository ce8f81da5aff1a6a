#include "tests/functions/files/FilesTest.h"

namespace {

const Operations removed = {"getArgs", "retT", "releaseRb 1"};

class FileRmdir : public FilesTest
{
};

} // namespace

TEST_F(FileRmdir, OnANonEmptyDirectoryRemovesItWithAllItsContentsAndYieldsT)
{
    ASSERT_TRUE(QDir().mkpath(path(u"tree/branch/twig"_qs)));
    newFile(u"tree/leaf"_qs);
    newFile(u"tree/branch/leaf"_qs);
    EXPECT_EQ(call(acetFileRmdir, {text(path(u"tree"_qs)), nil()}), removed);
    EXPECT_FALSE(QFile::exists(path(u"tree"_qs)));
}

TEST_F(FileRmdir, OfADirectoryThatDoesNotExistYieldsT)
{
    EXPECT_EQ(call(acetFileRmdir, {text(path(u"missing"_qs))}), removed);
}

TEST_F(FileRmdir, DoesNotFollowSymbolicLinksOutOfTheTree)
{
    const QString kept = newFile(u"kept"_qs, "content");
    ASSERT_TRUE(QDir().mkdir(path(u"tree"_qs)) && QFile::link(kept, path(u"tree/link"_qs)));
    EXPECT_EQ(call(acetFileRmdir, {text(path(u"tree"_qs))}), removed);
    EXPECT_EQ(content(kept), "content");
}

TEST_F(FileRmdir, WithoutAPathIsRefused)
{
    EXPECT_EQ(call(acetFileRmdir, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetFileRmdir, {real(0)}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
