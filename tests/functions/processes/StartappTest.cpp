#include "functions/processes.h"

#include "tests/functions/processes/ProcessTest.h"
#include "tests/support/Observers.h"

#include <vector>

namespace {

class Startapp : public ProcessTest
{
protected:
    Startapp()
    {
        setShellObserver([this](const ShellLaunch &launch) { launches.push_back(launch); });
    }
    ~Startapp() override { setShellObserver({}); }

    std::vector<ShellLaunch> launches;
};

} // namespace

TEST_F(Startapp, OpensTheProgramWithItsParametersAndGivesTheShellsNumber)
{
    EXPECT_EQ(call(startapp, {text(child), text(report + u" \"a b\" c"_qs)}),
              (Operations{"getArgs", "retInt 42", "releaseRb 2"}));
    EXPECT_EQ(reportedArguments(), (QStringList{u"a b"_qs, u"c"_qs}));
    ASSERT_EQ(launches.size(), 1U);
    EXPECT_EQ(launches[0].verb, u"open"_qs);
    EXPECT_EQ(launches[0].file, child);
}

TEST_F(Startapp, ParametersThatAreNoStringAreEmpty)
{
    EXPECT_EQ(call(startapp, {text(child), shortInteger(1)}).back(), "releaseRb 2");
    EXPECT_EQ(call(startapp, {text(child)}).back(), "releaseRb null");
    ASSERT_EQ(launches.size(), 2U);
    EXPECT_EQ(launches[0].parameters, QString());
    EXPECT_EQ(launches[1].parameters, QString());
}

TEST_F(Startapp, PassesTheShellsErrorNumberThrough)
{
    EXPECT_EQ(call(startapp, {text(u"/nonexistent/program")}), (Operations{"getArgs", "retInt 3", "releaseRb null"}));
    EXPECT_EQ(call(startapp, {text(report)}), (Operations{"getArgs", "retInt 2", "releaseRb null"}));
}

TEST_F(Startapp, AMissingOrWrongProgramEndsWithNoResultOfItsOwn)
{
    EXPECT_EQ(call(startapp, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(startapp, {nil()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_TRUE(launches.empty());
}
