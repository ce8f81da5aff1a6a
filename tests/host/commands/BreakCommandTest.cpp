#include "tests/host/commands/CommandTest.h"

namespace {

using drawing::placeOf;
using drawing::realOf;
using geometry::Vector;
using testing::ElementsAre;

class BreakCommand : public CommandTest
{
protected:
    void expectLine(const Vector &start, const Vector &end)
    {
        EXPECT_LT(geometry::length(placeOf(lastGroups(), 10) - start), 1e-12);
        EXPECT_LT(geometry::length(placeOf(lastGroups(), 11) - end), 1e-12);
    }
};

TEST_F(BreakCommand, APieceGoesOutOfALine)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\") (command \"_.break\" (list (entlast) '(4 0 0)) \"6,0\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE"));
    expectLine({6, 0, 0}, {10, 0, 0});
}

TEST_F(BreakCommand, APlaceBehindTheEndShortensTheLine)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\") (command \"_.break\" (entlast) \"_f\" \"7,0\" \"20,0\")");
    EXPECT_THAT(types(), ElementsAre("LINE"));
    expectLine({0, 0, 0}, {7, 0, 0});
}

TEST_F(BreakCommand, AtTheFirstPointTwiceCutsInTwo)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\") (command \"_.break\" (entlast) \"_f\" \"7,0\" \"@\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE"));
    expectLine({7, 0, 0}, {10, 0, 0});
}

TEST_F(BreakCommand, ACircleBecomesAnArc)
{
    evaluate("(command \"_.circle\" \"0,0\" 5) (command \"_.break\" (entlast) \"_f\" \"5,0\" \"0,5\")");
    EXPECT_THAT(types(), ElementsAre("ARC"));
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 50), 90);
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 51), 0);
}

TEST_F(BreakCommand, APieceGoesOutOfAnArc)
{
    evaluate("(command \"_.arc\" \"5,0\" \"0,5\" \"-5,0\") (command \"_.break\" (entlast) \"_f\" '(5 5) '(-5 5))");
    EXPECT_THAT(types(), ElementsAre("ARC", "ARC"));
    EXPECT_NEAR(realOf(lastGroups(), 50), 135, 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 51), 180, 1e-9);
}

TEST_F(BreakCommand, WhatCannotBeBrokenIsSaid)
{
    evaluate("(command \"_.point\" \"0,0\") (command \"_.break\" (entlast) \"_f\" '(0 0) '(1 1))");
    EXPECT_EQ(takePrinted(), "\nCannot break that object.\n");
}

} // namespace
