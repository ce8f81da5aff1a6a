#include "functions/help.h"

#include "platform/ObservedCalls.h"
#include "tests/support/HandlerTest.h"

namespace {

class Help : public HandlerTest
{
protected:
    Help()
    {
        setShellObserver([this](const ShellLaunch &launch) { m_launch = launch; });
        host().replies.text = u"/help/ExpressTool.chm";
    }
    ~Help() override { setShellObserver({}); }

    ShellLaunch m_launch{};
};

const std::string search = operation("findFile", "ExpressTool.chm");

} // namespace

TEST_F(Help, WithoutATopicOpensTheHelpFileItselfAndGivesNil)
{
    EXPECT_EQ(call(acetHelp, {}), (Operations{search, "getArgs", "retNil", "releaseRb null"}));
    EXPECT_EQ(m_launch.verb, u"open"_qs);
    EXPECT_EQ(m_launch.file, u"/help/ExpressTool.chm"_qs);
    EXPECT_EQ(m_launch.parameters, QString());
}

TEST_F(Help, WithATopicThatIsNoStringOpensTheHelpFileItselfAndGivesNil)
{
    EXPECT_EQ(call(acetHelp, {shortInteger(5)}), (Operations{search, "getArgs", "retNil", "releaseRb 1"}));
    EXPECT_EQ(m_launch.verb, u"open"_qs);
    EXPECT_EQ(m_launch.file, u"/help/ExpressTool.chm"_qs);
}

TEST_F(Help, OverviewBuildsTheViewersCommandLineInThePlaceOfTheVerbAndGivesNil)
{
    EXPECT_EQ(call(acetHelp, {text(u"overview"), text(u"more")}),
              (Operations{search, "getArgs", "retNil", "releaseRb 1"}));
    EXPECT_EQ(m_launch.verb, u"hh.exe mk:@MSITStore:/help/ExpressTool.chm::/html/overview.html"_qs);
    EXPECT_EQ(m_launch.file, QString());
    EXPECT_EQ(m_launch.parameters, QString());
}

TEST_F(Help, AFileThatTheHostCannotFindIsUsedByItsBareName)
{
    host().setAnswer("findFile", StatusError);
    call(acetHelp, {});
    EXPECT_EQ(m_launch.file, u"ExpressTool.chm"_qs);
    call(acetHelp, {text(u"a%1b")});
    EXPECT_EQ(m_launch.verb, u"hh.exe mk:@MSITStore:ExpressTool.chm::/html/a%1b.html"_qs);
}
