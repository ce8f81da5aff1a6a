#include "tests/host/commands/CommandTest.h"

#include "host/drawing/Blocks.h"
#include "tests/host/drawing/Audit.h"

#include <cmath>

namespace {

using drawing::placeOf;
using drawing::realOf;
using drawing::textOf;
using geometry::Vector;
using testing::ElementsAre;

class DivideCommands : public CommandTest
{
protected:
    // The places of what the command has added to the model, which had one object.
    std::vector<Vector> marks()
    {
        std::vector<Vector> places;
        const drawing::RecordId section = drawing::ensureEntities(database());
        for (auto id = database().firstIn(section); id != drawing::NoRecord; id = database().nextIn(id))
            if (const auto type = database().type(id);
                !database().record(id).isGone() && (type == u"POINT" || type == u"INSERT"))
                places.push_back(placeOf(database().groups(id), 10));
        return places;
    }
    void expectMarks(const std::vector<Vector> &expected)
    {
        const std::vector<Vector> found = marks();
        ASSERT_EQ(found.size(), expected.size());
        for (std::size_t index = 0; index < found.size(); ++index)
            EXPECT_LT(geometry::length(found[index] - expected[index]), 1e-8) << index;
        EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    }
};

TEST_F(DivideCommands, ALineIsDividedBetweenItsEnds)
{
    evaluate("(command \"_.line\" \"0,0\" \"12,0\" \"\") (command \"_.divide\" (entlast) 4)");
    expectMarks({{3, 0, 0}, {6, 0, 0}, {9, 0, 0}});
    EXPECT_EQ(evaluate("(sslength (ssget \"_P\"))"), "3");
    evaluate("(command \"_.u\")");
    EXPECT_THAT(types(), ElementsAre("LINE"));
}

TEST_F(DivideCommands, ACircleIsDividedFromItsStart)
{
    evaluate("(command \"_.circle\" \"5,5\" 2) (command \"_.divide\" (entlast) 4)");
    expectMarks({{7, 5, 0}, {5, 7, 0}, {3, 5, 0}, {5, 3, 0}});
}

TEST_F(DivideCommands, AClosedPolylineIsDividedRoundItsCornersAndArcs)
{
    evaluate("(command \"_.rectang\" \"0,0\" \"8,4\") (command \"_.divide\" (entlast) 3)");
    expectMarks({{0, 0, 0}, {8, 0, 0}, {4, 4, 0}});
    evaluate("(command \"_.erase\" \"_all\" \"\" \"_.pline\" \"0,0\" \"_a\" \"0,2\" \"_l\" \"-4,2\" \"\")"
             "(command \"_.measure\" (entlast) (/ pi 2))");
    ASSERT_EQ(marks().size(), 4u);
    EXPECT_LT(geometry::length(marks()[0] - Vector{1, 1, 0}), 1e-8);
    EXPECT_LT(geometry::length(marks()[2] - Vector{-M_PI / 2, 2, 0}), 1e-8);
}

TEST_F(DivideCommands, OldPolylinesAndThoseInSpaceAreCurvesToo)
{
    evaluate("(setvar \"PLINETYPE\" 0) (command \"_.pline\" \"0,0\" \"4,0\" \"4,4\" \"\") (command \"_.divide\" "
             "(entlast) 2)");
    expectMarks({{4, 0, 0}});
    evaluate("(command \"_.erase\" \"_all\" \"\") (entmake '((0 . \"POLYLINE\") (66 . 1) (70 . 8)))"
             "(foreach p '((0.0 0.0 0.0) (0.0 0.0 6.0) (6.0 0.0 6.0))"
             " (entmake (list '(0 . \"VERTEX\") (cons 10 p) '(70 . 32))))"
             "(entmake '((0 . \"SEQEND\"))) (command \"_.measure\" (entlast) 4)");
    expectMarks({{0, 0, 4}, {2, 0, 6}, {6, 0, 6}});
}

TEST_F(DivideCommands, AnEllipseIsDividedByItsLength)
{
    evaluate("(command \"_.ellipse\" \"_c\" \"0,0\" \"10,0\" 5) (command \"_.divide\" (entlast) 8)");
    const std::vector<Vector> places = marks();
    ASSERT_EQ(places.size(), 8u);
    EXPECT_LT(geometry::length(places[0] - Vector{10, 0, 0}), 1e-8);
    EXPECT_LT(geometry::length(places[2] - Vector{0, 5, 0}), 1e-7);
    EXPECT_NEAR(places[1].x, places[7].x, 1e-8);
    EXPECT_NEAR(places[1].x, 5.94472, 1e-5); // the curve is longer along its flat sides
}

TEST_F(DivideCommands, ASplineIsDividedByItsLength)
{
    drawing::GroupList spline{{0, u"SPLINE"},        {100, u"AcDbEntity"},  {8, u"0"},
                              {100, u"AcDbSpline"},  {70, std::int64_t{0}}, {71, std::int64_t{2}},
                              {72, std::int64_t{7}}, {73, std::int64_t{4}}};
    for (const double knot : {0.0, 0.0, 0.0, 1.0, 2.0, 2.0, 2.0})
        spline.push_back(drawing::realGroup(40, knot));
    for (const Vector &place : {Vector{0, 0, 0}, {1, 4, 0}, {7, 4, 0}, {8, 0, 0}})
        spline.push_back(drawing::pointGroup(10, place));
    add(spline);
    evaluate("(command \"_.divide\" (entlast) 4)");
    const std::vector<Vector> places = marks();
    ASSERT_EQ(places.size(), 3u);
    EXPECT_LT(geometry::length(places[1] - Vector{4, 4, 0}), 1e-8);
    EXPECT_NEAR(places[0].x, 8 - places[2].x, 1e-8);
    EXPECT_NEAR(places[0].y, places[2].y, 1e-8);
}

TEST_F(DivideCommands, MeasuringBeginsAtTheEndThatWasPicked)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\") (command \"_.measure\" (list (entlast) '(9 0)) 4)");
    expectMarks({{6, 0, 0}, {2, 0, 0}});
    evaluate("(command \"_.erase\" \"_all\" \"\" \"_.arc\" \"10,0\" \"_c\" \"0,0\" \"-10,0\")"
             "(command \"_.measure\" (list (entlast) '(-9 3)) (* 5 pi))");
    expectMarks({{0, 10, 0}, {10, 0, 0}});
}

TEST_F(DivideCommands, BlocksMayTurnWithTheCurve)
{
    evaluate("(command \"_.circle\" \"0,0\" 1 \"_.-block\" \"Mark\" \"0,0\" \"_l\" \"\""
             " \"_.line\" \"0,0\" \"8,8\" \"\") (command \"_.divide\" (entlast) \"_b\" \"mark\" \"_y\" 2)");
    expectMarks({{4, 4, 0}});
    EXPECT_EQ(textOf(lastGroups(), 2), u"Mark");
    EXPECT_NEAR(realOf(lastGroups(), 50), 45, 1e-9);
    evaluate("(command \"_.erase\" (ssget \"_P\") \"\") (command \"_.measure\" (entlast) \"_b\" \"Mark\" \"_n\" 8)");
    EXPECT_EQ(realOf(lastGroups(), 50), 0);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(DivideCommands, MarksLieInThePlaneOfTheUserCoordinates)
{
    evaluate("(command \"_.circle\" \"0,0\" 1 \"_.-block\" \"Mark\" \"0,0\" \"_l\" \"\" \"_.ucs\" \"_x\" 90"
             " \"_.line\" \"0,0\" \"0,8\" \"\") (command \"_.divide\" (entlast) \"_b\" \"Mark\" \"_y\" 2)");
    EXPECT_NEAR(realOf(lastGroups(), 50), 90, 1e-9); // in object coordinates
    EXPECT_LT(geometry::length(placeOf(lastGroups(), 210) - Vector{0, -1, 0}), 1e-12);
}

TEST_F(DivideCommands, WhatIsNoCurveAndBlocksThatAreNotThereAreSaid)
{
    evaluate("(command \"_.point\" \"0,0\") (command \"_.divide\" (entlast))");
    EXPECT_EQ(takePrinted(), "\nCannot divide or measure that object.\n");
    evaluate("(command \"_.line\" \"0,0\" \"8,8\" \"\") (command \"_.divide\" (entlast) \"_b\" \"Nothing\")");
    EXPECT_EQ(takePrinted(), "\nCannot find block \"Nothing\".\n");
    evaluate("(command \"_.measure\" (entlast) 1e-9)");
    EXPECT_EQ(takePrinted(), "\nThe segments are too short.\n");
    EXPECT_THAT(types(), ElementsAre("POINT", "LINE"));
}

} // namespace
