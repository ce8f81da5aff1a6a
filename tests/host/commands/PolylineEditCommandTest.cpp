#include "tests/host/commands/CommandTest.h"

#include "tests/host/drawing/Audit.h"

#include <cmath>

namespace {

using drawing::integerOf;
using testing::DoubleNear;
using testing::ElementsAre;

class PolylineEditCommand : public CommandTest
{
protected:
    std::vector<double> all(int code)
    {
        std::vector<double> values;
        for (const drawing::Group &group : lastGroups())
            if (group.code == code)
                values.push_back(std::get<double>(group.value));
        return values;
    }
    double area()
    {
        return std::stod(evaluate("(command \"_.area\" \"_o\" (entlast)) (rtos (getvar \"AREA\") 2 9)").substr(1));
    }
};

TEST_F(PolylineEditCommand, LinesAndArcsJoinToAClosedPolyline)
{
    evaluate(
        "(command \"_.line\" \"0,0\" \"10,0\" \"\" \"_.line\" \"0,10\" \"10,10\" \"\" \"_.line\" \"0,10\" \"0,0\" \"\" "
        "\"_.arc\" \"10,0\" \"15,5\" \"10,10\")"
        "(command \"_.pedit\" (entlast) \"_y\" \"_j\" \"_all\" \"\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE"));
    EXPECT_EQ(integerOf(lastGroups(), 90), 4);
    EXPECT_EQ(integerOf(lastGroups(), 70), 1);
    EXPECT_NEAR(area(), 100 + 12.5 * M_PI, 1e-8);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(PolylineEditCommand, WithPeditacceptItDoesNotAskFirst)
{
    evaluate("(setvar \"PEDITACCEPT\" 1) (command \"_.line\" \"0,0\" \"10,0\" \"\") (command \"_.pedit\" (entlast) "
             "\"_w\" 2 \"\")");
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE"));
    EXPECT_THAT(all(40), ElementsAre(2, 2));
}

TEST_F(PolylineEditCommand, CloseOpenReverseAndLinetypeGeneration)
{
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"_a\" \"10,10\" \"\") (command \"_.pedit\" (entlast) \"_c\" "
             "\"_l\" \"_on\" \"\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 129);
    evaluate("(command \"_.pedit\" (entlast) \"_o\" \"_r\" \"\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 128);
    EXPECT_THAT(all(42), ElementsAre(DoubleNear(-1, 1e-12), 0, 0));
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE"));
}

TEST_F(PolylineEditCommand, WhatIsNoPolylineIsSaid)
{
    evaluate("(command \"_.circle\" \"0,0\" 5) (command \"_.pedit\" (entlast))");
    EXPECT_EQ(takePrinted(), "\nObject selected cannot be edited as a polyline.\n");
    EXPECT_THAT(types(), ElementsAre("CIRCLE"));
}

} // namespace
