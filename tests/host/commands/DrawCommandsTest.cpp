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

TEST_F(Arcs, FromStartCentreAndChord)
{
    draw("\"1,0\" \"_c\" \"0,0\" \"_l\" " + std::to_string(std::sqrt(2)));
    EXPECT_NEAR(realOf(lastGroups(), 51), 90, 1e-4);
}

} // namespace
