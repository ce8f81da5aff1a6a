#include "functions/processes.h"

#include "platform/ObservedCalls.h"
#include "tests/functions/processes/ProcessTest.h"

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
    const Operations operations = call(startapp, {text(child), text(report + u" \"a b\" c"_qs)});
    ASSERT_EQ(launches.size(), 1U);
    EXPECT_GT(launches[0].result, 32);
    EXPECT_EQ(operations, (Operations{"getArgs", "retInt " + std::to_string(launches[0].result), "releaseRb 2"}));
    EXPECT_EQ(reportedArguments(), (QStringList{u"a b"_qs, u"c"_qs}));
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
    for (const QString &missing : {u"/nonexistent/program"_qs, report}) {
        const Operations operations = call(startapp, {text(missing)});
        EXPECT_LE(launches.back().result, 32);
        EXPECT_EQ(operations,
                  (Operations{"getArgs", "retInt " + std::to_string(launches.back().result), "releaseRb null"}));
    }
    EXPECT_EQ(launches.back().result, 2);
}

TEST_F(Startapp, AMissingOrWrongProgramEndsWithNoResultOfItsOwn)
{
    EXPECT_EQ(call(startapp, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(startapp, {nil()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_TRUE(launches.empty());
}
