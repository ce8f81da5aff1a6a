#include "functions/hostqueries.h"

#include "tests/support/HandlerTest.h"

using Tablet = HandlerTest;

TEST_F(Tablet, Code0SwitchesTheTabletModeOffAndGivesNil)
{
    EXPECT_EQ(call(tablet, {shortInteger(0)}), (Operations{"getArgs", "setTabletMode 0", "retNil", "releaseRb null"}));
}

TEST_F(Tablet, Code1SkipsTheThreePointsChangesNothingAndGivesNil)
{
    EXPECT_EQ(call(tablet, {shortInteger(1), point2d(0, 0), point3d(1, 0, 0), point2d(0, 1)}),
              (Operations{"getArgs", "retNil", "releaseRb null"}));
}

TEST_F(Tablet, ReleasesWhatComesAfterThreePointsAtMost)
{
    const Argument point = point2d(0, 0);
    EXPECT_EQ(call(tablet, {shortInteger(0), point, point, point, point}).back(), "releaseRb 5");
    EXPECT_EQ(call(tablet, {shortInteger(0), point, text(u"a"), point}).back(), "releaseRb 3");
}

TEST_F(Tablet, WhatIsNoShortIntegerGivesNoResultAndPrintsNothing)
{
    for (const Arguments &arguments : {Arguments{text(u"x")}, Arguments{}, Arguments{longInteger(0)}, Arguments{nil()}})
        EXPECT_EQ(call(tablet, arguments), (Operations{"getArgs"}));
}
