#include "tests/functions/ini/IniTest.h"

namespace {

class IniSetArguments : public IniTest
{
protected:
    Operations callWith(const Arguments &arguments)
    {
        Arguments all = {text(m_file)};
        all.insert(all.end(), arguments.begin(), arguments.end());
        return call(acetIniSet, all);
    }

    const QString m_file = newFile("top=1\n\n[Main]\nsize=10\n\n[Other]\na=1\n");
};

} // namespace

TEST_F(IniSetArguments, WithOnlyAFileNamePrintsTheMessageAndThenRemovesEveryKeyYieldingTInTheEnd)
{
    EXPECT_EQ(callWith({}), (Operations{"getArgs", tooFewArguments, "retNil", "retT", "releaseRb null"}));
    EXPECT_EQ(content(m_file), "");
}

TEST_F(IniSetArguments, WithASectionOfTheWrongTypeDoesTheSameAndReadsNoFurther)
{
    EXPECT_EQ(callWith({nil(), text(u"size"), text(u"20")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2", "retT", "releaseRb null"}));
    EXPECT_EQ(content(m_file), "");
}

TEST_F(IniSetArguments, WithOnlyTheNameOfAFileThatCannotBeWrittenYieldsNilTwice)
{
    EXPECT_EQ(call(acetIniSet, {text(path(u"."_qs))}),
              (Operations{"getArgs", tooFewArguments, "retNil", "retNil", "releaseRb null"}));
}

TEST_F(IniSetArguments, AnEmptySectionStandsForTheTopLevel)
{
    EXPECT_EQ(callWith({text(u""), text(u"top"), text(u"2")}), (Operations{"getArgs", "retT", "releaseRb 4"}));
    EXPECT_EQ(call(acetIniGet, {text(m_file), text(u"Main"), text(u"size")}), stringValue("10"));
    EXPECT_TRUE(content(m_file).contains("top=2\n"));
}

TEST_F(IniSetArguments, AnEmptySectionWithoutAKeyRemovesEveryKeyWithoutAWord)
{
    EXPECT_EQ(callWith({text(u"")}), (Operations{"getArgs", "retT", "releaseRb null"}));
    EXPECT_EQ(content(m_file), "");
}

TEST_F(IniSetArguments, TheNodeWhereTheReadingStoppedIsReleased)
{
    EXPECT_EQ(callWith({text(u"None"), nil(), text(u"x")}).back(), "releaseRb 3");
    EXPECT_EQ(callWith({text(u"None"), text(u"x"), real(1), text(u"y")}).back(), "releaseRb 4");
    EXPECT_EQ(callWith({text(u"None"), text(u"x"), text(u""), text(u"surplus")}).back(), "releaseRb 4");
    EXPECT_EQ(callWith({text(u"None"), text(u"x")}).back(), "releaseRb null");
}

TEST_F(IniSetArguments, NilAsTheKeyRemovesTheSectionWhateverTheValue)
{
    EXPECT_EQ(callWith({text(u"Main"), nil(), text(u"20")}), (Operations{"getArgs", "retT", "releaseRb 3"}));
    EXPECT_FALSE(content(m_file).contains("Main"));
}

TEST_F(IniSetArguments, WithoutAFileIsRefused)
{
    EXPECT_EQ(call(acetIniSet, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetIniSet, {shortInteger(1), text(u"Main")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
