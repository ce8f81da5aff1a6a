#include "tests/functions/ini/IniTest.h"

namespace {

class IniGetFailures : public IniTest
{
protected:
    // All four arguments, of which only the file matters.
    Operations callOn(const QString &file)
    {
        return call(acetIniGet, {text(file), text(u"Paths"), text(u"a"), text(u"none")});
    }
};

} // namespace

TEST_F(IniGetFailures, AFileThatDoesNotExistYieldsNilEvenWhenADefaultIsGiven)
{
    EXPECT_EQ(callOn(path(u"missing.ini"_qs)), noValue);
    EXPECT_EQ(call(acetIniGet, {text(path(u"missing.ini"_qs))}), noValue);
    EXPECT_FALSE(QFile::exists(path(u"missing.ini"_qs)));
}

TEST_F(IniGetFailures, AKeyOfASectionThatIsNotInTheFileYieldsNilEvenWhenADefaultIsGiven)
{
    EXPECT_EQ(callOn(newFile("[Other]\na=1\n")), noValue);
}

TEST_F(IniGetFailures, ASectionThatStandsAsPathsIsNotFoundAsPathsInSmallLetters)
{
    const Argument file = text(newFile("[Paths]\na=1\n"));
    EXPECT_EQ(call(acetIniGet, {file, text(u"paths"), text(u"a"), text(u"none")}), noValue);
    EXPECT_EQ(call(acetIniGet, {file, text(u"Paths"), text(u"a"), text(u"none")}), stringValue("1"));
}

TEST_F(IniGetFailures, ADirectoryHasNoSections)
{
    EXPECT_EQ(callOn(path(u"."_qs)), noValue);
    EXPECT_EQ(call(acetIniGet, {text(path(u"."_qs))}),
              (Operations{"getArgs", "newRb 5016", "retList 5016", "releaseRb list"}));
}

TEST_F(IniGetFailures, AFileNameOfFourThousandCharactersYieldsNil)
{
    EXPECT_EQ(callOn(QString(4096, u'x')), noValue);
}

TEST_F(IniGetFailures, WithoutAFileIsRefused)
{
    EXPECT_EQ(call(acetIniGet, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetIniGet, {nil(), text(u"Paths")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
