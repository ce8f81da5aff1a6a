#include "host/drawing/Dictionaries.h"
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

TEST_F(BreakCommand, APieceGoesOutOfAPolyline)
{
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"10,10\" \"20,10\" \"\") (setq a (entlast))"
             "(command \"_.break\" a \"_f\" \"4,0\" \"10,6\")");
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE", "LWPOLYLINE"));
    EXPECT_EQ(evaluate("(cdr (assoc 10 (reverse (entget a))))"), "(4.0 0.0)");
    EXPECT_EQ(evaluate("(cdr (assoc 90 (entget (entlast))))"), "3");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget (entlast))))"), "(10.0 6.0)");
}

TEST_F(BreakCommand, AClosedPolylineIsOpenedFromTheFirstPlaceToTheSecond)
{
    evaluate("(command \"_.rectang\" \"0,0\" \"10,10\") (command \"_.break\" (entlast) \"_f\" \"2,0\" \"6,0\")");
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE"));
    EXPECT_EQ(evaluate("(cdr (assoc 90 (entget (entlast))))"), "6");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget (entlast))))"), "(6.0 0.0)");
}

TEST_F(BreakCommand, ASplineStaysWhereItWas)
{
    evaluate("(entmake '((0 . \"SPLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbSpline\") (70 . 8) (71 . 3) (72 . 8)"
             "(73 . 4) (74 . 0) (40 . 0.0) (40 . 0.0) (40 . 0.0) (40 . 0.0) (40 . 1.0) (40 . 1.0) (40 . 1.0)"
             "(40 . 1.0) (10 0 0 0) (10 0 10 0) (10 10 10 0) (10 10 0 0)))"
             "(setq a (entlast)) (command \"_.break\" a \"_f\" \"5,7.5\" \"@\")");
    EXPECT_THAT(types(), ElementsAre("SPLINE", "SPLINE"));
    EXPECT_EQ(evaluate("(cdr (assoc 10 (reverse (entget a))))"), "(5.0 7.5 0.0)");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget (entlast))))"), "(5.0 7.5 0.0)");
}

TEST_F(BreakCommand, OfAnEllipseAnArcIsLeft)
{
    evaluate(
        "(command \"_.ellipse\" \"_c\" \"0,0\" \"10,0\" 5) (command \"_.break\" (entlast) \"_f\" \"10,0\" \"0,5\")");
    EXPECT_NEAR(realOf(lastGroups(), 41), std::numbers::pi / 2, 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 42), 2 * std::numbers::pi, 1e-9);
}

TEST_F(BreakCommand, WhatCannotBeBrokenIsSaid)
{
    evaluate("(command \"_.point\" \"0,0\") (command \"_.break\" (entlast) \"_f\" '(0 0) '(1 1))");
    EXPECT_EQ(takePrinted(), "\nCannot break that object.\n");
}

// What programs have attached to the object.
class BreakingMarkedObjects : public CommandTest
{
protected:
    void mark()
    {
        evaluate("(regapp \"MINE\") (setq e (entlast))"
                 "(entmod (append (entget e) '((-3 (\"MINE\" (1000 . \"mark\"))))))");
        drawing::ensureExtensionDictionary(database(), last());
        evaluate("(setq d (cdr (assoc 360 (entget e))))");
    }
    std::string marks() // of the entities, with who has the dictionary
    {
        return evaluate("(mapcar '(lambda (n) (list (cadr (cadr (assoc -3 (entget n '(\"MINE\")))))"
                        " (if (assoc 360 (entget n)) (eq d (cdr (assoc 360 (entget n)))))))"
                        " (vl-remove-if 'listp (mapcar 'cadr (ssnamex (ssget \"_X\")))))");
    }
};

TEST_F(BreakingMarkedObjects, APolylineKeepsItsDataAndDictionaryAndItsOtherPieceHasTheData)
{
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"20,0\" \"\")");
    mark();
    evaluate("(command \"_.break\" e \"_f\" \"4,0\" \"6,0\")");
    EXPECT_EQ(marks(), "(((1000 . \"mark\") nil) ((1000 . \"mark\") T))");
}

TEST_F(BreakingMarkedObjects, ALineDoesNotShareItsDictionary)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\")");
    mark();
    evaluate("(command \"_.break\" e \"_f\" \"4,0\" \"6,0\")");
    EXPECT_EQ(marks(), "(((1000 . \"mark\") nil) ((1000 . \"mark\") T))");
}

TEST_F(BreakingMarkedObjects, ACircleHandsThemToTheArcThatItBecomes)
{
    evaluate("(command \"_.circle\" \"0,0\" 5)");
    mark();
    evaluate("(command \"_.break\" e \"_f\" \"5,0\" \"0,5\")");
    EXPECT_THAT(types(), ElementsAre("ARC"));
    EXPECT_EQ(marks(), "(((1000 . \"mark\") T))");
    EXPECT_EQ(evaluate("(eq (entlast) (cdr (assoc 330 (entget d))))"), "T");
}

} // namespace
