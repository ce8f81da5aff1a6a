#include "functions/system.h"

#include "tests/support/HandlerTest.h"

#include <QElapsedTimer>

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
