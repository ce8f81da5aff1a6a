#include "functions/processes.h"

#include "tests/functions/processes/FakeProcesses.h"
#include "tests/support/HandlerTest.h"

#include <QCoreApplication>

using Calls = std::vector<std::string>;

namespace {

class SysWait : public HandlerTest
{
protected:
    SysWait()
    {
        FakeProcesses::calls.clear();
        FakeProcesses::answer = TRUE;
        FakeProcesses::exitCode = 7;
    }
};

// The opened handle is not closed, and the exit code is asked of the process id itself.
Calls waiting(const std::string &process, const std::string &milliseconds)
{
    return {"OpenProcess 1048576 0 " + process, "WaitForSingleObject 64 " + milliseconds,
            "GetExitCodeProcess " + process};
}

const char infinite[] = "4294967295";

} // namespace

TEST_F(SysWait, GivesTheExitCodeAskedOfTheProcessIdInThePlaceOfAHandle)
{
    EXPECT_EQ(call(acetSysWait, {shortInteger(1234), shortInteger(500)}),
              (Operations{"getArgs", "retInt 7", "releaseRb 2"}));
    EXPECT_EQ(FakeProcesses::calls, waiting("1234", "500"));
}

TEST_F(SysWait, WithoutATimeOutWaitsWithoutLimit)
{
    EXPECT_EQ(call(acetSysWait, {shortInteger(1234)}), (Operations{"getArgs", "retInt 7", "releaseRb null"}));
    EXPECT_EQ(FakeProcesses::calls, waiting("1234", infinite));
}

TEST_F(SysWait, Minus1WaitsWithoutLimit)
{
    call(acetSysWait, {shortInteger(1234), shortInteger(-1)});
    EXPECT_EQ(FakeProcesses::calls, waiting("1234", infinite));
}

TEST_F(SysWait, ATimeOutThatIsNoIntegerPrintsTheMessageAndThenWaitsWithoutLimit)
{
    EXPECT_EQ(call(acetSysWait, {shortInteger(1234), text(u"x")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2", "retInt 7", "releaseRb null"}));
    EXPECT_EQ(FakeProcesses::calls, waiting("1234", infinite));
}

TEST_F(SysWait, ATimeOutAbove32767IsOfTheWrongTypeAndTheWaitWithoutLimit)
{
    call(acetSysWait, {shortInteger(1234), shortInteger(32767)});
    EXPECT_EQ(FakeProcesses::calls, waiting("1234", "32767"));
    FakeProcesses::calls.clear();
    EXPECT_EQ(call(acetSysWait, {shortInteger(1234), longInteger(32768)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 2", "retInt 7", "releaseRb null"}));
    EXPECT_EQ(FakeProcesses::calls, waiting("1234", infinite));
}

TEST_F(SysWait, AProcessIdAbove32767IsOfTheWrongType)
{
    EXPECT_EQ(call(acetSysWait, {longInteger(32768), shortInteger(1)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(FakeProcesses::calls, Calls{});
}

TEST_F(SysWait, ANegativeProcessIdIsSignExtended)
{
    call(acetSysWait, {shortInteger(-2), shortInteger(0)});
    EXPECT_EQ(FakeProcesses::calls,
              (Calls{"OpenProcess 1048576 0 4294967294", "WaitForSingleObject 64 0", "GetExitCodeProcess -2"}));
}

TEST_F(SysWait, AFailedQueryGives0)
{
    FakeProcesses::answer = FALSE;
    EXPECT_EQ(call(acetSysWait, {shortInteger(1234)}).at(1), "retInt 0");
}

TEST_F(SysWait, AMissingOrWrongProcessEndsWithNoResultOfItsOwn)
{
    EXPECT_EQ(call(acetSysWait, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetSysWait, {text(u"x")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(FakeProcesses::calls, Calls{});
}

class SysProcid : public HandlerTest
{
};

TEST_F(SysProcid, IsTheLow32BitsOfTheHostsProcessIdAndArgumentsAreIgnored)
{
    EXPECT_EQ(call(acetSysProcid, {text(u"any")}),
              Operations{"retInt " + std::to_string(QCoreApplication::applicationPid())});
}
