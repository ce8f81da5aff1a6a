#include "functions/drawing.h"

#include "tests/support/HandlerTest.h"

namespace {

class EntGeomextents : public HandlerTest
{
protected:
    EntGeomextents()
    {
        host().replies.point = {1, 2, 3};
        host().replies.otherPoint = {4, 5, 6};
    }
};

const std::string noBox = operation("prompt", "\nError: Could not get the boundingBox of the entity.");

} // namespace

TEST_F(EntGeomextents, TheResultAlwaysHasExactlyTwo3dPointsMinimumFirst)
{
    EXPECT_EQ(call(acetEntGeomextents, {entity(7, 8)}),
              (Operations{"getArgs", "getEntityExtents 7:8", "buildList 5009 (1 2 3) 5009 (4 5 6)",
                          "retList 5009 (1 2 3) 5009 (4 5 6)",
                          "releaseRb 1"})); // and not the list, which the interpreter reclaims
}

TEST_F(EntGeomextents, SurplusArgumentsAreIgnored)
{
    EXPECT_EQ(call(acetEntGeomextents, {entity(7, 8), text(u"more")}).back(), "releaseRb 1");
}

TEST_F(EntGeomextents, ExtentsThatAreNotAvailableAreAMessageAndNil)
{
    for (const int status : {-5001, 5000, -5002, 0}) {
        host().setAnswer("getEntityExtents", status);
        EXPECT_EQ(call(acetEntGeomextents, {entity(7, 8)}),
                  (Operations{"getArgs", "getEntityExtents 7:8", noBox, "retNil", "releaseRb 1"}));
    }
}

TEST_F(EntGeomextents, AMissingEntityNameIsRefused)
{
    EXPECT_EQ(call(acetEntGeomextents, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
}

TEST_F(EntGeomextents, WhatIsNoEntityNameIsRefusedAndReleased)
{
    for (const Argument &argument : {text(u"a"), selectionSet(7, 8), nil()})
        EXPECT_EQ(call(acetEntGeomextents, {argument}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
