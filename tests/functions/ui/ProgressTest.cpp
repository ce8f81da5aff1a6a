#include "functions/ui.h"
#include "tests/support/HandlerTest.h"

namespace {

class Progress : public HandlerTest
{
};

} // namespace

TEST_F(Progress, CopyingAnd100ReturnsTAndStartsTheHostMeterWithTheLabelCopyingOnly)
{
    EXPECT_EQ(call(acetUiProgress, {text(u"Copying"), shortInteger(100)}),
              (Operations{"getArgs", operation("progressStart", "Copying"), "retT", "releaseRb 2"}));
    EXPECT_EQ(call(acetUiProgress, {text(u"Copying")}),
              (Operations{"getArgs", operation("progressStart", "Copying"), "retT", "releaseRb null"}));
}

TEST_F(Progress, FiftyReturns50WhenTheHostAcceptsThePositionAndNilWhenItDoesNot)
{
    EXPECT_EQ(call(acetUiProgress, {shortInteger(50)}),
              (Operations{"getArgs", "progressSet 50", "retInt 50", "releaseRb 1"}));
    host().setAnswer("progressSet", 0);
    EXPECT_EQ(call(acetUiProgress, {shortInteger(50)}),
              (Operations{"getArgs", "progressSet 50", "retNil", "releaseRb 1"}));
}

TEST_F(Progress, ReadsThePositionWithItsSign)
{
    EXPECT_EQ(call(acetUiProgress, {shortInteger(-1)}),
              (Operations{"getArgs", "progressSet -1", "retInt -1", "releaseRb 1"}));
}

TEST_F(Progress, AnyStatusButZeroIsAnAcceptedPosition)
{
    host().setAnswer("progressSet", -5001);
    EXPECT_EQ(call(acetUiProgress, {shortInteger(7)}),
              (Operations{"getArgs", "progressSet 7", "retInt 7", "releaseRb 1"}));
}

TEST_F(Progress, WithoutArgumentsReturnsNilAndEndsTheMeter)
{
    EXPECT_EQ(call(acetUiProgress, {}), (Operations{"getArgs", "progressEnd", "retNil"}));
}

TEST_F(Progress, TwoAndAHalfSetsNoResultAndTheMeterIsNotTouched)
{
    EXPECT_EQ(call(acetUiProgress, {real(2.5)}), (Operations{"getArgs", "releaseRb 1"}));
}

TEST_F(Progress, AnyOtherTypeSetsNoResultAndTheMeterIsNotTouched)
{
    EXPECT_EQ(call(acetUiProgress, {longInteger(100000)}), (Operations{"getArgs", "releaseRb 1"}));
    EXPECT_EQ(call(acetUiProgress, {nil(), text(u"x")}), (Operations{"getArgs", "releaseRb 1"}));
}
