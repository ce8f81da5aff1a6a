#include "tests/host/commands/CommandTest.h"

#include <cmath>

namespace {

using testing::DoubleNear;
using testing::ElementsAre;

class PolylineCommand : public CommandTest
{
protected:
    template <class Value> std::vector<Value> all(int code)
    {
        std::vector<Value> values;
        for (const drawing::Group &group : lastGroups())
            if (group.code == code)
                values.push_back(std::get<Value>(group.value));
        return values;
    }
    std::vector<std::pair<double, double>> places()
    {
        std::vector<std::pair<double, double>> places;
        for (const drawing::Point &point : all<drawing::Point>(10))
            places.push_back({std::round(point.x * 1e9) / 1e9, std::round(point.y * 1e9) / 1e9});
        return places;
    }
    using P = std::pair<double, double>;
};

TEST_F(PolylineCommand, OpenAndClosed)
{
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"10,5\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE"));
    EXPECT_EQ(drawing::integerOf(lastGroups(), 90), 3);
    EXPECT_EQ(drawing::integerOf(lastGroups(), 70), 0);
    EXPECT_THAT(places(), ElementsAre(P{0, 0}, P{10, 0}, P{10, 5}));
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"10,5\" \"_c\")");
    EXPECT_EQ(drawing::integerOf(lastGroups(), 90), 3);
    EXPECT_EQ(drawing::integerOf(lastGroups(), 70), 1);
}

TEST_F(PolylineCommand, WidthsTaper)
{
    evaluate("(command \"_.pline\" \"0,0\" \"_w\" 0 2 \"10,0\" \"20,0\" \"\")");
    EXPECT_THAT(all<double>(40), ElementsAre(0, 2, 0));
    EXPECT_THAT(all<double>(41), ElementsAre(2, 2, 0));
    EXPECT_EQ(evaluate("(getvar \"PLINEWID\")"), "2.0");
    evaluate("(command \"_.pline\" \"0,0\" \"_h\" 3 \"\" \"10,0\" \"\")");
    EXPECT_THAT(all<double>(40), ElementsAre(6, 0));
}

TEST_F(PolylineCommand, AnArcGoesOnSmoothly)
{
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"_a\" \"10,10\" \"_l\" \"0,10\" \"\")");
    EXPECT_THAT(all<double>(42), ElementsAre(0, DoubleNear(1, 1e-12), 0, 0));
}

TEST_F(PolylineCommand, ArcsThroughAPointByAngleCentreAndRadius)
{
    evaluate("(command \"_.pline\" \"1,0\" \"_a\" \"_s\" \"0,1\" \"-1,0\" \"\")");
    EXPECT_THAT(all<double>(42), ElementsAre(DoubleNear(1, 1e-12), 0));
    evaluate("(command \"_.pline\" \"-1,0\" \"_a\" \"_s\" \"0,1\" \"1,0\" \"\")");
    EXPECT_THAT(all<double>(42), ElementsAre(DoubleNear(-1, 1e-12), 0));
    evaluate("(command \"_.pline\" \"1,0\" \"_a\" \"_a\" 90 \"0,1\" \"\")");
    EXPECT_THAT(all<double>(42), ElementsAre(DoubleNear(std::tan(M_PI / 8), 1e-12), 0));
    evaluate("(command \"_.pline\" \"1,0\" \"_a\" \"_ce\" \"0,0\" \"0,1\" \"\")");
    EXPECT_THAT(all<double>(42), ElementsAre(DoubleNear(std::tan(M_PI / 8), 1e-12), 0));
    evaluate("(command \"_.pline\" \"1,0\" \"_a\" \"_d\" 90 \"-1,0\" \"_cl\")");
    EXPECT_THAT(all<double>(42), ElementsAre(DoubleNear(1, 1e-12), DoubleNear(1, 1e-12)));
}

TEST_F(PolylineCommand, UndoLengthAndTheEmptyOne)
{
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"99,99\" \"_u\" \"_l\" 5 \"\")");
    EXPECT_THAT(places(), ElementsAre(P{0, 0}, P{10, 0}, P{15, 0}));
    evaluate("(command \"_.pline\" \"0,0\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE"));
}

TEST_F(PolylineCommand, PlinetypeZeroMakesAnOldPolyline)
{
    evaluate("(setvar \"PLINETYPE\" 0) (command \"_.pline\" \"0,0\" \"10,0\" \"\")");
    EXPECT_THAT(types(), ElementsAre("POLYLINE"));
    const auto vertex = database().record(last()).next;
    EXPECT_EQ(database().type(vertex), u"VERTEX");
    EXPECT_TRUE(database().isPart(vertex));
    EXPECT_EQ(database().type(database().record(database().record(vertex).next).next), u"SEQEND");
}

TEST_F(PolylineCommand, RectanglesSharpRoundedAndChamfered)
{
    evaluate("(command \"_.rectang\" \"0,0\" \"10,5\")");
    EXPECT_EQ(drawing::integerOf(lastGroups(), 70), 1);
    EXPECT_THAT(places(), ElementsAre(P{0, 0}, P{10, 0}, P{10, 5}, P{0, 5}));
    evaluate("(command \"_.rectangle\" \"_c\" 1 2 \"0,0\" \"10,5\")");
    EXPECT_THAT(places(), ElementsAre(P{0, 1}, P{2, 0}, P{9, 0}, P{10, 2}, P{10, 4}, P{8, 5}, P{1, 5}, P{0, 3}));
    evaluate("(command \"_.rectang\" \"_f\" 1 \"10,5\" \"0,0\")");
    EXPECT_THAT(all<double>(42)[0], DoubleNear(std::tan(M_PI / 8), 1e-12));
    EXPECT_EQ(drawing::integerOf(lastGroups(), 90), 8);
    evaluate("(command \"_.rectang\" \"0,0\" \"_d\" 4 3 \"-1,-1\")");
    EXPECT_THAT(places(), ElementsAre(P{0, 0}, P{-4, 0}, P{-4, -3}, P{0, -3}));
}

TEST_F(PolylineCommand, ARectangleMayBeTurned)
{
    evaluate("(command \"_.rectang\" '(0 0) \"_r\" 45 '(0 10))");
    EXPECT_THAT(places(), ElementsAre(P{0, 0}, P{5, 5}, P{0, 10}, P{-5, 5}));
    evaluate("(command \"_.rectang\" '(1 1) \"_r\" \"_p\" '(0 0) '(0 9) \"_d\" 4 3 '(0 9))"); // its length goes up
    EXPECT_THAT(places(), ElementsAre(P{1, 1}, P{1, 5}, P{-2, 5}, P{-2, 1}));
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(PolylineCommand, ARectangleByItsAreaAndASide)
{
    evaluate("(command \"_.rectang\" '(1 2) \"_a\" 50 \"_l\" 10)");
    EXPECT_THAT(places(), ElementsAre(P{1, 2}, P{11, 2}, P{11, 7}, P{1, 7}));
    evaluate("(command \"_.rectang\" '(1 2) \"_a\" 50 \"_w\" 10)");
    EXPECT_THAT(places(), ElementsAre(P{1, 2}, P{6, 2}, P{6, 12}, P{1, 12}));
    for (const std::string corners : {"_f\" 1", "_c\" 1 2"}) { // what they take off is no part of it
        evaluate("(command \"_.rectang\" \"" + corners + " '(1 2) \"_a\" 50 \"\" 10)");
        evaluate("(command \"_.area\" \"_o\" (entlast))");
        EXPECT_EQ(evaluate("(equal (getvar \"AREA\") 50 1e-9)"), "T") << corners;
    }
    evaluate("(command \"_.rectang\" \"_f\" 9 '(1 2) \"_a\" 50 \"\" 10)"); // no room for them
    EXPECT_THAT(places(), ElementsAre(P{1, 2}, P{11, 2}, P{11, 7}, P{1, 7}));
}

TEST_F(PolylineCommand, ARectangleWithoutAreaIsNotDrawn)
{
    evaluate("(command \"_.rectang\" \"0,0\" \"10,0\")");
    EXPECT_EQ(takePrinted(), "\nThe corners must differ in both directions.\n");
    EXPECT_THAT(types(), ElementsAre());
}

} // namespace
