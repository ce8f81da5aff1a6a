#include "tests/host/commands/CommandTest.h"

#include "tests/host/drawing/Audit.h"

#include <algorithm>
#include <cmath>

namespace {

using drawing::placeOf;
using drawing::realOf;
using geometry::Vector;

class StretchCommand : public CommandTest
{
protected:
    // Of all groups with the code.
    std::vector<Vector> places(int code)
    {
        std::vector<Vector> found;
        for (const drawing::Group &group : lastGroups())
            if (group.code == code)
                found.push_back(geometry::vectorOf(std::get<drawing::Point>(group.value)));
        return found;
    }
    // Two to the right, what lies in the window.
    void stretch(const std::string &corners)
    {
        evaluate("(command \"_.stretch\" \"_c\" " + corners + " \"\" \"0,0\" \"2,0\")");
        EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    }
};

TEST_F(StretchCommand, MovesTheEndOfALineThatLiesInTheWindow)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\")");
    const std::string handle = evaluate("(cdr (assoc 5 (entget (entlast))))");
    stretch("\"8,-1\" \"12,1\"");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 0, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{12, 0, 0}));
    stretch("\"4,-1\" \"6,1\""); // its middle
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{12, 0, 0}));
    stretch("\"-4,-1\" \"60,1\"");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{2, 0, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{14, 0, 0}));
    EXPECT_EQ(evaluate("(cdr (assoc 5 (entget (entlast))))"), handle);
}

TEST_F(StretchCommand, MovesCornersOfPolylines)
{
    evaluate("(command \"_.rectang\" \"0,0\" \"10,5\")");
    stretch("\"8,-1\" \"12,7\"");
    EXPECT_EQ(places(10), (std::vector<Vector>{{0, 0, 0}, {12, 0, 0}, {12, 5, 0}, {0, 5, 0}}));
    evaluate("(command \"_.erase\" \"_all\" \"\""
             " \"_.pline\" \"-10,0\" \"0,0\" \"_a\" \"0,10\" \"_l\" \"20,10\" \"\")");
    stretch("\"18,9\" \"22,11\"");
    EXPECT_EQ(places(10), (std::vector<Vector>{{-10, 0, 0}, {0, 0, 0}, {0, 10, 0}, {22, 10, 0}}));
    const drawing::GroupList groups = lastGroups();
    EXPECT_TRUE(std::ranges::any_of(groups, [](const drawing::Group &group) {
        return group.code == 42 && std::abs(std::get<double>(group.value) - 1) < 1e-9;
    }));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(StretchCommand, MovesVerticesOfOldPolylinesAndOfThoseInSpace)
{
    openEmptyDrawing("AC1009");
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"10,5\" \"\")");
    stretch("\"8,-1\" \"12,1\"");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget (entnext (entnext (entlast))))))"), "(12.0 0.0 0.0)");
    evaluate("(command \"_.erase\" \"_all\" \"\") (entmake '((0 . \"POLYLINE\") (66 . 1) (70 . 8)))"
             "(foreach p '((0.0 0.0 0.0) (5.0 0.0 6.0)) (entmake (list '(0 . \"VERTEX\") (cons 10 p) '(70 . 32))))"
             "(entmake '((0 . \"SEQEND\")))");
    stretch("\"4,-1\" \"6,1\"");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget (entnext (entnext (entlast))))))"), "(7.0 0.0 6.0)");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget (entnext (entlast)))))"), "(0.0 0.0 0.0)");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(StretchCommand, AnArcKeepsItsHeight)
{
    evaluate("(command \"_.arc\" \"6,0\" \"_c\" \"3,0\" \"0,0\")"); // a half circle
    stretch("\"5,-1\" \"7,1\"");
    EXPECT_NEAR(realOf(lastGroups(), 40), (16 + 9) / 6.0, 1e-12);
    EXPECT_LT(geometry::length(placeOf(lastGroups(), 10) - Vector{4, 3 - 25 / 6.0, 0}), 1e-12);
    const double end = geometry::radians(realOf(lastGroups(), 51));
    EXPECT_NEAR(placeOf(lastGroups(), 10).x + realOf(lastGroups(), 40) * std::cos(end), 0, 1e-12);
}

TEST_F(StretchCommand, MovesControlPointsOfASpline)
{
    drawing::GroupList spline{{0, u"SPLINE"},        {100, u"AcDbEntity"},  {8, u"0"},
                              {100, u"AcDbSpline"},  {70, std::int64_t{8}}, {71, std::int64_t{1}},
                              {72, std::int64_t{4}}, {73, std::int64_t{2}}, {74, std::int64_t{2}}};
    for (const double knot : {0.0, 0.0, 1.0, 1.0})
        spline.push_back(drawing::realGroup(40, knot));
    for (const int code : {10, 11})
        for (const Vector &place : {Vector{0, 0, 0}, {8, 0, 0}})
            spline.push_back(drawing::pointGroup(code, place));
    add(spline);
    stretch("\"7,-1\" \"9,1\"");
    EXPECT_EQ(places(10), (std::vector<Vector>{{0, 0, 0}, {10, 0, 0}}));
    EXPECT_TRUE(places(11).empty());
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(StretchCommand, ObjectsThatStandAtAPlaceGoAlongWithIt)
{
    evaluate("(command \"_.circle\" \"0,0\" 5)");
    stretch("\"4,-1\" \"6,1\"");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 0, 0}));
    stretch("\"-1,-1\" \"6,1\"");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{2, 0, 0}));
}

TEST_F(StretchCommand, WhatWasSelectedOtherwiseMovesAsAWhole)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\") (command \"_.stretch\" (entlast) \"\" \"_d\" \"0,3\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 3, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{10, 3, 0}));
}

TEST_F(StretchCommand, TakesAPolygonInTheUserCoordinates)
{
    evaluate("(command \"_.ucs\" \"_o\" \"100,0\" \"_.line\" \"0,0\" \"10,0\" \"\""
             " \"_.stretch\" \"_cp\" \"8,-1\" \"12,-1\" \"10,4\" \"\" \"\" \"0,0\" \"0,7\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{100, 0, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{110, 7, 0}));
}

TEST_F(StretchCommand, DimensionsAreNotStretchedWhichIsSaid)
{
    evaluate("(command \"_.dimlinear\" '(0 0) '(10 0) '(0 3))");
    stretch("\"8,-1\" \"12,5\"");
    EXPECT_EQ(takePrinted(), "\n1 object(s) could not be changed.\n");
    EXPECT_EQ(placeOf(lastGroups(), 14), (Vector{10, 0, 0}));
    stretch("\"-8,-9\" \"20,9\"");
    EXPECT_EQ(takePrinted(), "");
    EXPECT_EQ(placeOf(lastGroups(), 14), (Vector{12, 0, 0}));
}

} // namespace
