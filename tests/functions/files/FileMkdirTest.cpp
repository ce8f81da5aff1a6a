#include "tests/functions/files/FilesTest.h"

namespace {

const Operations made = {"getArgs", "retT", "releaseRb 1"};
const Operations notMade = {"getArgs", "retNil", "releaseRb 1"};

class FileMkdir : public FilesTest
{
};

} // namespace

TEST_F(FileMkdir, OfABCCreatesAllThreeLevelsBelowTheCurrentDirectoryAndYieldsTAgainASecondTime)
{
    ASSERT_TRUE(QDir::setCurrent(path(u"."_qs)));
    EXPECT_EQ(call(acetFileMkdir, {text(u"a/b/c")}), made);
    EXPECT_TRUE(QDir(path(u"a/b/c"_qs)).exists());
    EXPECT_EQ(call(acetFileMkdir, {text(u"a/b/c"), nil()}), made);
    EXPECT_EQ(QDir(path(u"a/b"_qs)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{u"c"_qs});
}

TEST_F(FileMkdir, WhereAFileStandsYieldsNil)
{
    const QString file = newFile(u"file"_qs);
    EXPECT_EQ(call(acetFileMkdir, {text(file)}), notMade);
    EXPECT_EQ(call(acetFileMkdir, {text(file + u"/below"_qs)}), notMade);
}

TEST_F(FileMkdir, WithAnIntegerArgumentYieldsNothingAndPrintsNothing)
{
    EXPECT_EQ(call(acetFileMkdir, {shortInteger(1), text(u"a")}), Operations{"getArgs"});
}

TEST_F(FileMkdir, WithoutArgumentsYieldsNothingAndPrintsNothing)
{
    EXPECT_EQ(call(acetFileMkdir, {}), Operations{"getArgs"});
}
