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
