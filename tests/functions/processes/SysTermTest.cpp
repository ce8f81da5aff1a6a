#include "functions/processes.h"

#include "tests/functions/processes/FakeProcesses.h"
#include "tests/support/HandlerTest.h"

using Calls = std::vector<std::string>;

namespace {

class SysTerm : public HandlerTest
{
protected:
    SysTerm() { FakeProcesses::calls.clear(); }
    ~SysTerm() override { FakeProcesses::answer = TRUE; }
};

} // namespace

TEST_F(SysTerm, EndsTheProcessOfAHandleWithExitCode0AndGivesT)
{
    FakeProcesses::answer = 1;
    EXPECT_EQ(call(acetSysTerm, {shortInteger(68)}), (Operations{"getArgs", "retT", "releaseRb 1"}));
    EXPECT_EQ(FakeProcesses::calls, Calls{"TerminateProcess 68 0"}); // and opens nothing: it is a handle already
}

TEST_F(SysTerm, TheHandleIsSignExtended)
{
    call(acetSysTerm, {shortInteger(-1)});
    EXPECT_EQ(FakeProcesses::calls, Calls{"TerminateProcess -1 0"});
}

TEST_F(SysTerm, AnythingButExactly1GivesNil)
{
    for (const BOOL answer : {0, 2, -1}) {
        FakeProcesses::answer = answer;
        EXPECT_EQ(call(acetSysTerm, {shortInteger(68)}), (Operations{"getArgs", "retNil", "releaseRb 1"}));
    }
}

TEST_F(SysTerm, AMissingOrWrongHandleEndsWithNoResultOfItsOwn)
{
    EXPECT_EQ(call(acetSysTerm, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetSysTerm, {text(u"x")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(FakeProcesses::calls, Calls{});
}
