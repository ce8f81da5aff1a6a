#include "functions/catch.h"

#include "tests/support/HandlerTest.h"

namespace {

const Operations yes = {"getArgs", "retT", "releaseRb null"};
const Operations no = {"getArgs", "retNil", "releaseRb null"};

class VlCatchAll : public HandlerTest
{
protected:
    // Evaluates something that ends with this status.
    void applyEndingWith(int status)
    {
        host().setAnswer("evaluate", status);
        call(vlCatchAllApply, {text(u"(f)")});
    }
};

} // namespace

// The first test, so that no other has evaluated anything in this process.
TEST_F(VlCatchAll, ErrorPBeforeAnyApplyYieldsNil)
{
    EXPECT_EQ(call(vlCatchAllErrorP, {}), no);
}

TEST_F(VlCatchAll, ApplySetsNoResultAndLeavesTheValueAlone)
{
    EXPECT_EQ(call(vlCatchAllApply, {text(u"(princ \"ä%s\")")}),
              (Operations{"getArgs", operation("evaluate", "(princ \"ä%s\")"), "releaseRb 1"}));
}

TEST_F(VlCatchAll, ApplyIgnoresFurtherArguments)
{
    EXPECT_EQ(call(vlCatchAllApply, {text(u"(f)"), shortInteger(1), nil()}),
              (Operations{"getArgs", operation("evaluate", "(f)"), "releaseRb 1"}));
}

TEST_F(VlCatchAll, AnEvaluationThatFailsSetsTheFlag)
{
    applyEndingWith(StatusError);
    EXPECT_EQ(call(vlCatchAllErrorP, {}), yes);
    EXPECT_EQ(call(vlCatchAllErrorP, {}), yes) << "asking must not reset it";
}

TEST_F(VlCatchAll, AFollowingFailedArgumentCheckLeavesTheFlagSet)
{
    applyEndingWith(StatusError);
    EXPECT_EQ(call(vlCatchAllApply, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(vlCatchAllApply, {shortInteger(5), nil()}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(call(vlCatchAllErrorP, {}), yes);
}

TEST_F(VlCatchAll, AnyStatusOtherThanMinus5001ClearsTheFlag)
{
    for (const int status : {5100, 5000, -5002, -5005, 0, 5001}) {
        applyEndingWith(StatusError);
        applyEndingWith(status);
        EXPECT_EQ(call(vlCatchAllErrorP, {}), no) << status;
    }
}

TEST_F(VlCatchAll, TheFlagIsSharedByAllDocuments)
{
    applyEndingWith(StatusError);
    RecordingHost other;
    other.setArguments({});
    vlCatchAllErrorP();
    EXPECT_EQ(other.operations(), yes);
}

TEST_F(VlCatchAll, ErrorPIgnoresItsArgumentsAndReleasesThemAll)
{
    applyEndingWith(StatusNormal);
    EXPECT_EQ(call(vlCatchAllErrorP, {real(1), text(u"x")}), (Operations{"getArgs", "retNil", "releaseRb 1"}));
}
