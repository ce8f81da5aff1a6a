#include "tests/functions/files/FilesTest.h"

namespace {

class FileChdir : public FilesTest
{
};

} // namespace

TEST_F(FileChdir, OnSuccessYieldsTheArgumentWithNativeSeparators)
{
    const QString target = path(u"below/../below"_qs);
    ASSERT_TRUE(QDir().mkpath(target));
    EXPECT_EQ(call(acetFileChdir, {text(target)}),
              (Operations{"getArgs", operation("retWStr", QDir::toNativeSeparators(target)), "releaseRb 1"}));
    EXPECT_EQ(QDir::currentPath(), path(u"below"_qs));
}

TEST_F(FileChdir, TakesARelativePath)
{
    ASSERT_TRUE(QDir::setCurrent(path(u"."_qs)) && QDir().mkdir(u"below"_qs));
    EXPECT_EQ(call(acetFileChdir, {text(u"below"), text(u"surplus")}),
              (Operations{"getArgs", operation("retWStr", "below"), "releaseRb 1"}));
    EXPECT_EQ(QDir::currentPath(), path(u"below"_qs));
}

TEST_F(FileChdir, OnFailurePrintsTheMessageWithoutFullStopAndYieldsNil)
{
    const QString before = QDir::currentPath();
    const QString missing = path(u"50%s off"_qs);
    EXPECT_EQ(call(acetFileChdir, {text(missing)}),
              (Operations{"getArgs",
                          operation("prompt", u"\nError: Unable to change the current directory: "_qs +
                                                  QDir::toNativeSeparators(missing)),
                          "retNil", "releaseRb 1"}));
    EXPECT_EQ(QDir::currentPath(), before);
}

TEST_F(FileChdir, IntoAFileFails)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_EQ(call(acetFileChdir, {text(file)}).at(2), "retNil");
}

TEST_F(FileChdir, WithoutAPathIsRefused)
{
    EXPECT_EQ(call(acetFileChdir, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetFileChdir, {nil()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
