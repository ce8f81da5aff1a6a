#include "functions/system.h"

#include "tests/support/HandlerTest.h"

#include <QElapsedTimer>

#include <cerrno>

class SysSleep : public HandlerTest
{
};

TEST_F(SysSleep, PausesAndGivesNil)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(call(acetSysSleep, {shortInteger(60)}), (Operations{"getArgs", "releaseRb 1", "retNil"}));
    EXPECT_GE(timer.elapsed(), 59);
}

TEST_F(SysSleep, OfATextPrintsTheMessageAndStillGivesNil)
{
    EXPECT_EQ(call(acetSysSleep, {text(u"x")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1", "retNil"}));
    EXPECT_EQ(call(acetSysSleep, {}), (Operations{"getArgs", tooFewArguments, "retNil", "retNil"}));
}

class SysLasterr : public HandlerTest
{
};

TEST_F(SysLasterr, IsTheRuntimeLibrarysErrno)
{
    for (const int error : {0, ENOENT, EACCES}) {
        errno = error;
        EXPECT_EQ(call(acetSysLasterr, {}), Operations{"retInt " + std::to_string(error)});
    }
}
