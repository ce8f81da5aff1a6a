#include "tests/host/commands/CommandTest.h"

#include <cmath>

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::realOf;
using drawing::textOf;
using geometry::Vector;
using testing::ElementsAre;

using DrawCommands = CommandTest;

TEST_F(DrawCommands, LineDrawsSegmentsUntilEnter)
{
    evaluate("(command \"_.line\" \"0,0\" '(10 0) \"@5<90\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE"));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{10, 0, 0}));
    EXPECT_NEAR(placeOf(lastGroups(), 11).x, 10, 1e-12);
    EXPECT_EQ(placeOf(lastGroups(), 11).y, 5);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(DrawCommands, LineUndoTakesASegmentBackAndCloseEnds)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"99,99\" \"_u\" \"10,10\" \"_c\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "LINE"));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{10, 10, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{0, 0, 0}));
}

TEST_F(DrawCommands, LinesOfOneCommandAreOneUndoStep)
{
    evaluate("(command \"_.line\" \"0,0\" \"1,0\" \"1,1\" \"\") (command \"_.u\")");
    EXPECT_THAT(types(), ElementsAre());
}

TEST_F(DrawCommands, EscKeepsWhatLineHasDrawn)
{
    evaluate("(command \"_.line\" \"0,0\" \"1,0\") (command)");
    EXPECT_THAT(types(), ElementsAre("LINE"));
}

TEST_F(DrawCommands, NewEntitiesHaveTheCurrentProperties)
{
    evaluate("(setvar \"CECOLOR\" \"3\") (setvar \"CELTSCALE\" 2.0) (setvar \"THICKNESS\" 4.0)"
             "(command \"_.line\" \"0,0\" \"1,0\" \"\")");
    EXPECT_EQ(textOf(lastGroups(), 8), u"0");
    EXPECT_EQ(integerOf(lastGroups(), 62), 3);
    EXPECT_EQ(realOf(lastGroups(), 48), 2);
    EXPECT_EQ(realOf(lastGroups(), 39), 4);
    EXPECT_FALSE(hasGroup(lastGroups(), 6));
    evaluate("(setvar \"CECOLOR\" \"RGB:1,2,3\") (command \"_.line\" \"0,0\" \"1,0\" \"\")");
    EXPECT_EQ(integerOf(lastGroups(), 420), 0x010203);
}

TEST_F(DrawCommands, WhatCameWithR13IsRefusedInOlderDrawings)
{
    openEmptyDrawing("AC1009");
    const char *const refused[] = {"\"_.ellipse\" \"0,0\" \"9,0\" 2", "\"_.xline\" \"0,0\" \"9,0\" \"\"",
                                   "\"_.-hatch\" \"_p\" \"_s\" \"_s\" (entlast) \"\" \"\""};
    evaluate("(command \"_.pline\" \"0,0\" \"9,0\" \"9,9\" \"_c\")");
    for (const char *const answers : refused) {
        evaluate("(command " + std::string(answers) + ")");
        EXPECT_THAT(takePrinted(), testing::HasSubstr("A drawing before R13 has no ")) << answers;
    }
    evaluate(
        "(command \"_.circle\" \"0,0\" 5 \"_.arc\" \"5,0\" \"0,5\" \"-5,0\" \"_.dimaligned\" \"0,0\" \"9,0\" \"0,5\")");
    EXPECT_THAT(types(), testing::ElementsAre("POLYLINE", "CIRCLE", "ARC", "DIMENSION"));
}

TEST_F(DrawCommands, PointAndSolid)
{
    evaluate("(command \"_.point\" '(1 2 3))");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 2, 3}));
    evaluate("(command \"_.solid\" \"0,0\" \"1,0\" \"0,1\" \"1,1\" \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 13), (Vector{1, 1, 0}));
    EXPECT_THAT(types(), ElementsAre("POINT", "SOLID"));
}

TEST_F(DrawCommands, PlacesOfTwoCoordinatesLieAtTheCurrentElevation)
{
    evaluate("(setvar \"ELEVATION\" 7.0) (command \"_.point\" \"1,2\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 2, 7}));
    evaluate("(command \"_.point\" '(1 2))");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 2, 7}));
    evaluate("(command \"_.point\" \"1,2,3\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 2, 3}));
    evaluate("(command \"_.point\" \"@1,0\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{2, 2, 3}));
}

TEST_F(DrawCommands, CircleByRadiusDiameterAndPoints)
{
    evaluate("(command \"_.circle\" \"1,2\" 3)");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 2, 0}));
    EXPECT_EQ(realOf(lastGroups(), 40), 3);
    evaluate("(command \"_.circle\" \"1,2\" \"_d\" 3)");
    EXPECT_EQ(realOf(lastGroups(), 40), 1.5);
    evaluate("(command \"_.circle\" \"1,2\" '(1 7))");
    EXPECT_EQ(realOf(lastGroups(), 40), 5);
    evaluate("(command \"_.circle\" \"3p\" \"0,0\" \"2,0\" \"0,2\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 1, 0}));
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 40), std::sqrt(2));
    evaluate("(command \"_.circle\" \"2p\" \"0,0\" \"4,0\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{2, 0, 0}));
    EXPECT_EQ(realOf(lastGroups(), 40), 2);
}

TEST_F(DrawCommands, ARadiusThatIsNoneIsAskedForAgain)
{
    evaluate("(command \"_.circle\" \"1,2\" 0 -1)");
    EXPECT_EQ(takePrinted(), "\nValue must be positive and nonzero.\n\nValue must be positive and nonzero.\n");
    EXPECT_THAT(types(), ElementsAre());
    EXPECT_EQ(evaluate("(getvar \"LASTPROMPT\")"), "\"Specify radius of circle or [Diameter]: \"");
    evaluate("(command \"1,2\" 3)"); // the centre itself is no place for the radius
    EXPECT_EQ(takePrinted(), "\nValue must be positive and nonzero.\n");
    EXPECT_EQ(realOf(lastGroups(), 40), 3);
    evaluate("(command \"_.circle\" \"1,2\" \"_d\" -4 4)");
    EXPECT_EQ(realOf(lastGroups(), 40), 2);
}

TEST_F(DrawCommands, EnterForTheRadiusTakesTheLastOneIfThereIsOne)
{
    evaluate("(command \"_.circle\" \"1,2\" \"\" 3)");
    EXPECT_EQ(takePrinted(), "\nRequires an answer.\n");
    evaluate("(command \"_.circle\" \"5,2\" \"\")");
    EXPECT_EQ(realOf(lastGroups(), 40), 3);
    EXPECT_THAT(types(), ElementsAre("CIRCLE", "CIRCLE"));
}

TEST_F(DrawCommands, EnterAtTheFirstPointOfALineGoesOnFromTheLastOne)
{
    evaluate("(command \"_.line\" \"0,0\" \"4,0\" \"4,3\" \"9,9\" \"_u\" \"\" \"_.point\" \"50,50\")");
    evaluate("(command \"_.line\" \"\" \"@1,1\" \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{4, 3, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{5, 4, 0}));
    evaluate("(command \"_.ucs\" \"_m\" \"5,4\" \"_.line\" \"\" \"1,0\" \"\")"); // the end stays where it is
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{5, 4, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{6, 4, 0}));
}

TEST_F(DrawCommands, ThereMustBeALineOrArcToGoOnFrom)
{
    evaluate("(command \"_.line\" \"\" \"0,0\" \"1,0\" \"\")");
    EXPECT_EQ(takePrinted(), "\nNo line or arc to continue.\n");
    EXPECT_THAT(types(), ElementsAre("LINE"));
}

TEST_F(DrawCommands, BehindAnArcALineGoesOnInItsDirection)
{
    evaluate("(command \"_.arc\" \"0,0\" \"_e\" \"2,2\" \"_d\" 90)"); // clockwise, to the right at its end
    EXPECT_EQ(evaluate("(getvar \"LASTPOINT\")"), "(2.0 2.0 0.0)");
    evaluate("(command \"_.line\" \"\" 5 \"@0,1\" \"\")");
    EXPECT_THAT(types(), ElementsAre("ARC", "LINE", "LINE"));
    EXPECT_NEAR(placeOf(lastGroups(), 10).x, 7, 1e-9);
    EXPECT_NEAR(placeOf(lastGroups(), 10).y, 2, 1e-9);
    EXPECT_NEAR(placeOf(lastGroups(), 11).y, 3, 1e-9);
}

TEST_F(DrawCommands, APolylinesEndIsGoneOnFromToo)
{
    evaluate("(command \"_.pline\" \"0,0\" \"5,0\" \"\" \"_.line\" \"\" \"5,5\" \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{5, 0, 0}));
    evaluate("(command \"_.pline\" \"0,0\" \"5,0\" \"_a\" \"5,4\" \"\" \"_.line\" \"\" 3 \"\")"); // to the left
    EXPECT_NEAR(placeOf(lastGroups(), 11).x, 2, 1e-9);
    EXPECT_NEAR(placeOf(lastGroups(), 11).y, 4, 1e-9);
    evaluate("(command \"_.pline\" \"1,1\" \"5,0\" \"7,7\" \"_c\" \"_.line\" \"\" \"5,5\" \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 1, 0}));
}

class CirclesTouchingTwo : public CommandTest
{
protected:
    // The objects as entsel gives them, then the radius.
    void draw(const std::string &first, const std::string &second, const std::string &radius)
    {
        evaluate("(command \"_.circle\" \"_ttr\" " + first + " " + second + " " + radius + ")");
    }
    void expectCircle(const Vector &centre, double radius)
    {
        ASSERT_EQ(types().back(), "CIRCLE");
        const Vector found = placeOf(lastGroups(), 10);
        EXPECT_NEAR(found.x, centre.x, 1e-9);
        EXPECT_NEAR(found.y, centre.y, 1e-9);
        EXPECT_NEAR(realOf(lastGroups(), 40), radius, 1e-9);
    }
};

TEST_F(CirclesTouchingTwo, LinesWhereTheyWerePicked)
{
    evaluate("(command \"_.line\" \"-10,0\" \"10,0\" \"\") (setq level (entlast))"
             "(command \"_.line\" \"0,-10\" \"0,10\" \"\") (setq upright (entlast))");
    draw("(list level '(3 0))", "(list upright '(0 3))", "2");
    expectCircle({2, 2, 0}, 2);
    draw("(list level '(-3 0))", "(list upright '(0 3))", "1");
    expectCircle({-1, 1, 0}, 1);
    draw("(list level '(30 0))", "(list upright '(0 -3))", "\"\""); // the last radius
    expectCircle({1, -1, 0}, 1);
    EXPECT_EQ(evaluate("(getvar \"CIRCLERAD\")"), "1.0");
}

TEST_F(CirclesTouchingTwo, CirclesAndArcs)
{
    evaluate("(command \"_.circle\" \"0,0\" 2) (setq left (entlast))"
             "(command \"_.arc\" \"_c\" \"6,0\" \"6,-2\" \"6,2\") (setq right (entlast))");
    draw("(list left '(1.2 1.6))", "(list right '(6 2))", "3"); // above the two; the arc counts all around
    expectCircle({3, 4, 0}, 3);
    draw("(list left '(-1.5 -1.3))", "(list right '(7.5 -1.3))", "6"); // it has both inside
    expectCircle({3, std::sqrt(7), 0}, 6);
}

TEST_F(CirclesTouchingTwo, WhatCannotBeTouchedIsAskedForAgain)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\") (setq level (entlast))"
             "(command \"_.line\" \"0,6\" \"10,6\" \"\") (setq upper (entlast))"
             "(command \"_.point\" \"50,50\")");
    takePrinted();
    draw("(list (entlast) '(50 50)) (list level '(5 0))", "(list upper '(5 6))", "0 2");
    EXPECT_EQ(takePrinted(), "\nRequires a line, circle, or arc.\n\nValue must be positive and nonzero.\n"
                             "\nCircle does not exist.\n");
    EXPECT_EQ(types().back(), "POINT");
}

TEST_F(CirclesTouchingTwo, InThePlaneOfTheUsersCoordinateSystem)
{
    evaluate("(command \"_.ucs\" \"_o\" '(100 0 0) \"_.ucs\" \"_x\" 90)"
             "(command \"_.line\" \"0,0,7\" \"10,0,7\" \"\") (setq level (entlast))"
             "(command \"_.line\" \"0,0,7\" \"0,10,7\" \"\") (setq upright (entlast))");
    draw("(list level '(3 0 7))", "(list upright '(0 3 7))", "2");
    ASSERT_EQ(types().back(), "CIRCLE");
    const Vector extrusion = drawing::extrusionOf(lastGroups());
    EXPECT_LT(geometry::length(extrusion - Vector{0, -1, 0}), 1e-12);
    const Vector centre = geometry::Matrix::ofExtrusion(extrusion).place(placeOf(lastGroups(), 10));
    EXPECT_LT(geometry::length(centre - Vector{102, -7, 2}), 1e-9);
}

TEST_F(CirclesTouchingTwo, ACircleOfThePlaneAndALineInIt)
{
    evaluate("(command \"_.ucs\" \"_y\" 90 \"_.circle\" \"0,0\" 2) (setq round (entlast))"
             "(command \"_.line\" \"-9,4\" \"9,4\" \"\") (setq level (entlast))");
    draw("(list round '(0 2))", "(list level '(0 4))", "1");
    const Vector extrusion = drawing::extrusionOf(lastGroups());
    EXPECT_LT(geometry::length(extrusion - Vector{1, 0, 0}), 1e-12);
    const Vector centre = geometry::Matrix::ofExtrusion(extrusion).place(placeOf(lastGroups(), 10));
    EXPECT_LT(geometry::length(centre - Vector{0, 3, 0}), 1e-9);
}

TEST_F(CirclesTouchingTwo, WhatIsNotParallelToThePlaneIsAskedForAgain)
{
    evaluate("(command \"_.circle\" \"0,0\" 2) (setq round (entlast))"
             "(command \"_.line\" \"-9,4,0\" \"9,4,5\" \"\") (setq rising (entlast))"
             "(command \"_.line\" \"-9,4\" \"9,4\" \"\") (setq level (entlast)) (command \"_.ucs\" \"_x\" 90)");
    draw("round level", "level", "1"); // the circle is seen from its side; the lines lie along x
    EXPECT_EQ(takePrinted(), "\nThe object is not parallel to the plane of the UCS.\n\nCircle does not exist.\n");
    evaluate("(command \"_.ucs\" \"_w\")");
    draw("rising round", "level", "1");
    EXPECT_EQ(takePrinted(), "\nThe object is not parallel to the plane of the UCS.\n");
    expectCircle({0, 3, 0}, 1);
}

class Arcs : public CommandTest
{
protected:
    void draw(const std::string &answers) { evaluate("(command \"_.arc\" " + answers + ")"); }
    void expectArc(const Vector &centre, double radius, double start, double end)
    {
        ASSERT_EQ(types().size(), 1u);
        const Vector found = placeOf(lastGroups(), 10);
        EXPECT_NEAR(found.x, centre.x, 1e-9);
        EXPECT_NEAR(found.y, centre.y, 1e-9);
        EXPECT_NEAR(realOf(lastGroups(), 40), radius, 1e-9);
        EXPECT_NEAR(realOf(lastGroups(), 50), start, 1e-9);
        EXPECT_NEAR(realOf(lastGroups(), 51), end, 1e-9);
    }
};

TEST_F(Arcs, ThroughThreePoints)
{
    draw("\"1,0\" \"0,1\" \"-1,0\"");
    expectArc({0, 0, 0}, 1, 0, 180);
}

TEST_F(Arcs, ThroughThreePointsClockwise)
{
    draw("\"-1,0\" \"0,1\" \"1,0\"");
    expectArc({0, 0, 0}, 1, 0, 180);
}

TEST_F(Arcs, FromCentreStartAndEnd)
{
    draw("\"_c\" \"5,5\" \"7,5\" \"5,9\"");
    expectArc({5, 5, 0}, 2, 0, 90);
}

TEST_F(Arcs, FromStartCentreAndAngle)
{
    draw("\"7,5\" \"_c\" \"5,5\" \"_a\" 270");
    expectArc({5, 5, 0}, 2, 0, 270);
}

TEST_F(Arcs, ANegativeAngleGoesClockwise)
{
    draw("\"7,5\" \"_c\" \"5,5\" \"_a\" -90");
    expectArc({5, 5, 0}, 2, 270, 0);
}

TEST_F(Arcs, FromStartEndAndAngle)
{
    draw("\"1,0\" \"_e\" \"0,1\" \"_a\" 90");
    expectArc({0, 0, 0}, 1, 0, 90);
}

TEST_F(Arcs, FromStartEndAndRadius)
{
    draw("\"1,0\" \"_e\" \"0,1\" \"_r\" 1");
    expectArc({0, 0, 0}, 1, 0, 90);
}

TEST_F(Arcs, FromStartEndAndALargeArcsRadius)
{
    draw("\"1,0\" \"_e\" \"0,1\" \"_r\" -1");
    expectArc({1, 1, 0}, 1, 270, 180);
}

TEST_F(Arcs, FromStartEndAndDirection)
{
    draw("\"1,0\" \"_e\" \"0,1\" \"_d\" 90");
    expectArc({0, 0, 0}, 1, 0, 90);
}

TEST_F(Arcs, EnterAtTheStartGoesOnFromTheLastLine)
{
    evaluate("(command \"_.line\" \"-5,0\" \"0,0\" \"\" \"_.arc\" \"\" \"0,4\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 2, 0}));
    EXPECT_EQ(realOf(lastGroups(), 40), 2);
    EXPECT_NEAR(realOf(lastGroups(), 50), 270, 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 51), 90, 1e-9);
    evaluate("(command \"_.arc\" \"\" \"0,10\")"); // to the left, so clockwise
    EXPECT_NEAR(placeOf(lastGroups(), 10).y, 7, 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 50), 90, 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 51), 270, 1e-9);
    takePrinted();
    evaluate("(command \"_.arc\" \"\" \"5,10\")"); // straight ahead: to the right
    EXPECT_EQ(takePrinted(), "\nThe arc does not exist.\n");
}

TEST_F(Arcs, ThereMustBeALineOrArcToGoOnFrom)
{
    draw("\"\" \"1,0\" \"0,1\" \"-1,0\"");
    EXPECT_EQ(takePrinted(), "\nNo line or arc to continue.\n");
    expectArc({0, 0, 0}, 1, 0, 180);
}

TEST_F(Arcs, FromStartCentreAndChord)
{
    draw("\"1,0\" \"_c\" \"0,0\" \"_l\" " + std::to_string(std::sqrt(2)));
    EXPECT_NEAR(realOf(lastGroups(), 51), 90, 1e-4);
}

} // namespace
