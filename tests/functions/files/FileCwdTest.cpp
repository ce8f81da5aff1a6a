#include "tests/functions/files/FilesTest.h"

namespace {

class FileCwd : public FilesTest
{
};

} // namespace

TEST_F(FileCwd, YieldsTheCurrentDirectoryAndReadsNoArguments)
{
    ASSERT_TRUE(QDir::setCurrent(path(u"."_qs)));
    EXPECT_EQ(call(acetFileCwd, {text(u"any"), nil()}),
              (Operations{operation("retWStr", QDir::toNativeSeparators(QDir::currentPath()))}));
}

TEST_F(FileCwd, OfADirectoryThatIsGoneDoesNotFail)
{
    ASSERT_TRUE(QDir().mkdir(path(u"gone"_qs)) && QDir::setCurrent(path(u"gone"_qs)) && QDir().rmdir(path(u"gone"_qs)));
    const QString expected = QDir::currentPath();
    const std::string result = expected.isNull() ? "retNil" : operation("retWStr", QDir::toNativeSeparators(expected));
    EXPECT_EQ(call(acetFileCwd, {}), Operations{result});
}
