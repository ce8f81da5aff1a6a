#include "tests/functions/files/FilesTest.h"

namespace {

const Operations moved = {"getArgs", "retT", "releaseRb 2"};
const Operations notMoved = {"getArgs", "retNil", "releaseRb 2"};

class FileMove : public FilesTest
{
};

} // namespace

TEST_F(FileMove, RenamesOrMovesAFile)
{
    const QString source = newFile(u"source"_qs, "content");
    ASSERT_TRUE(QDir().mkdir(path(u"folder"_qs)));
    EXPECT_EQ(call(acetFileMove, {text(source), text(path(u"folder/target"_qs)), nil()}), moved);
    EXPECT_EQ(content(path(u"folder/target"_qs)), "content");
    EXPECT_FALSE(QFile::exists(source));
}

TEST_F(FileMove, OntoADestinationThatAlreadyExistsYieldsNilAndLeavesBothFilesUnchanged)
{
    const QString source = newFile(u"source"_qs, "one");
    const QString target = newFile(u"target"_qs, "two");
    EXPECT_EQ(call(acetFileMove, {text(source), text(target)}), notMoved);
    EXPECT_EQ(content(source), "one");
    EXPECT_EQ(content(target), "two");
}

TEST_F(FileMove, OfAMissingFileOrIntoAMissingFolderYieldsNil)
{
    EXPECT_EQ(call(acetFileMove, {text(path(u"missing"_qs)), text(path(u"target"_qs))}), notMoved);
    const QString source = newFile(u"source"_qs, "content");
    EXPECT_EQ(call(acetFileMove, {text(source), text(path(u"no/such/folder"_qs))}), notMoved);
    EXPECT_EQ(content(source), "content");
}

TEST_F(FileMove, WithoutASourceIsRefused)
{
    EXPECT_EQ(call(acetFileMove, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetFileMove, {nil(), text(u"b")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}

TEST_F(FileMove, WithoutADestinationIsRefusedAndStillReleasesNull)
{
    const QString source = newFile(u"source"_qs);
    EXPECT_EQ(call(acetFileMove, {text(source)}), (Operations{"getArgs", tooFewArguments, "retNil", "releaseRb null"}));
    EXPECT_EQ(call(acetFileMove, {text(source), shortInteger(1)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2", "releaseRb null"}));
    EXPECT_TRUE(QFile::exists(source));
}
