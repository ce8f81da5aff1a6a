#include "tests/functions/ini/IniTest.h"

namespace {

class IniSet : public IniTest
{
};

Operations result(const char *operationName, const char *released)
{
    return {"getArgs", operationName, std::string("releaseRb ") + released};
}

} // namespace

TEST_F(IniSet, WritesTheValueAndLeavesTheOthersAlone)
{
    const QString file = newFile("[Main]\nsize=10\n\n[Other]\na=1\n");
    EXPECT_EQ(call(acetIniSet, {text(file), text(u"Main"), text(u"colour"), text(u"red")}), result("retT", "4"));
    EXPECT_EQ(call(acetIniSet, {text(file), text(u"Main"), text(u"size"), text(u"20")}), result("retT", "4"));
#ifdef _WIN32
    EXPECT_EQ(content(file), "[Main]\nsize=20\ncolour=red\n\n[Other]\na=1\n"); // QSettings keeps the order there
#else
    EXPECT_EQ(content(file), "[Main]\ncolour=red\nsize=20\n\n[Other]\na=1\n");
#endif
}

TEST_F(IniSet, CreatesAMissingFileWithItsDirectories)
{
    const QString file = path(u"new folder/Zürich 'quoted'.ini"_qs);
    EXPECT_EQ(call(acetIniSet, {text(file), text(u"Main"), text(u"size"), text(u"10")}), result("retT", "4"));
    EXPECT_EQ(content(file), "[Main]\nsize=10\n");
}

TEST_F(IniSet, WritesWhatGetReadsBack)
{
    const QString file = path(u"odd.ini"_qs);
    for (const char *value :
         {"a;b", "a,b", " blanks ", "\"quoted\"", "line\nbreak", "C:\\temp", "Zürich 図面", "100%", "=", "[x]"}) {
        call(acetIniSet, {text(file), text(u"Main"), text(u"key"), text(QString::fromUtf8(value))});
        EXPECT_EQ(call(acetIniGet, {text(file), text(u"Main"), text(u"key")}), stringValue(value));
    }
}

TEST_F(IniSet, OfAnIntegerValueRemovesTheKeyInsteadOfStoringANumber)
{
    const QString file = newFile("[Main]\nsize=10\nother=1\n");
    EXPECT_EQ(call(acetIniSet, {text(file), text(u"Main"), text(u"size"), shortInteger(5)}), result("retT", "4"));
    EXPECT_EQ(content(file), "[Main]\nother=1\n");
}

TEST_F(IniSet, WithFileSectionAndKeyButNoValueRemovesTheKeyAndYieldsT)
{
    const QString file = newFile("[Main]\nsize=10\nother=1\n");
    EXPECT_EQ(call(acetIniSet, {text(file), text(u"Main"), text(u"size")}), result("retT", "null"));
    EXPECT_EQ(content(file), "[Main]\nother=1\n");
}

TEST_F(IniSet, WithFileAndSectionOnlyRemovesTheSectionAndYieldsT)
{
    const QString file = newFile("[Main]\nsize=10\n\n[Other]\na=1\n");
    EXPECT_EQ(call(acetIniSet, {text(file), text(u"Main")}), result("retT", "null"));
    EXPECT_EQ(content(file), "[Other]\na=1\n");
}

TEST_F(IniSet, YieldsTEvenWhenThereIsNothingToRemove)
{
    const QString file = newFile("[Main]\nsize=10\n");
    EXPECT_EQ(call(acetIniSet, {text(file), text(u"None")}), result("retT", "null"));
    EXPECT_EQ(call(acetIniSet, {text(file), text(u"Main"), text(u"none"), nil()}), result("retT", "4"));
    EXPECT_EQ(content(file), "[Main]\nsize=10\n");
}

TEST_F(IniSet, OfADirectoryOrAPathThroughAFileYieldsNil)
{
    for (const QString &file : {path(u"."_qs), newFile("") + u"/below/it.ini"_qs})
        EXPECT_EQ(call(acetIniSet, {text(file), text(u"Main"), text(u"size"), text(u"20")}), result("retNil", "4"));
}

// Writable says QSettings of the directory, and a failure to write the file itself later is not reported.
TEST_F(IniSet, OfAFileNameOfFourThousandCharactersWritesNothing)
{
    const QString file = path(QString(4000, u'x'));
#ifdef _WIN32
    const char *yielded = "retNil";
#else
    const char *yielded = "retT";
#endif
    EXPECT_EQ(call(acetIniSet, {text(file), text(u"Main"), text(u"size"), text(u"20")}), result(yielded, "4"));
    EXPECT_TRUE(QDir(path(u"."_qs)).isEmpty());
}
