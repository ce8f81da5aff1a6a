#include "functions/hostqueries.h"

#include "tests/support/HandlerTest.h"

namespace {

class GetpointEsc : public HandlerTest
{
protected:
    Operations callWithStatus(int status)
    {
        host().setAnswer("userInput getPoint", status);
        return call(wexoGetpointEsc, {text(u"Where? "), nil()});
    }
};

const std::string reset = operation("userInput initGet 0", "");
const std::string request = operation("userInput getPoint", "Where? ");

} // namespace

TEST_F(GetpointEsc, PickingAPointGives0)
{
    EXPECT_EQ(callWithStatus(StatusNormal), (Operations{"getArgs", reset, request, "retInt 0", "releaseRb 1"}));
}

TEST_F(GetpointEsc, OtherInputGives1)
{
    EXPECT_EQ(callWithStatus(StatusKeyword), (Operations{"getArgs", reset, request, "retInt 1", "releaseRb 1"}));
}

TEST_F(GetpointEsc, PressingEscAtThePromptGives2)
{
    EXPECT_EQ(callWithStatus(StatusCancelled), (Operations{"getArgs", reset, request, "retInt 2", "releaseRb 1"}));
}

TEST_F(GetpointEsc, AnyOtherStatusSetsNoResult)
{
    for (const int status : {StatusNoInput, StatusError})
        EXPECT_EQ(callWithStatus(status), (Operations{"getArgs", reset, request, "releaseRb 1"}));
}

TEST_F(GetpointEsc, WithoutAPromptReturnsAtOnceWithNoResult)
{
    EXPECT_EQ(call(wexoGetpointEsc, {}), (Operations{"getArgs"}));
    EXPECT_EQ(call(wexoGetpointEsc, {shortInteger(1)}), (Operations{"getArgs"}));
}
