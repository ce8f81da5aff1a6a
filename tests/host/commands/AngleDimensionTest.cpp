// DIMANGULAR and DIMORDINATE, and both within DIM and DIM1.

#include "host/drawing/Blocks.h"
#include "host/drawing/edit/Transform.h"
#include "tests/host/commands/CommandTest.h"
#include "tests/host/drawing/Audit.h"

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::realOf;
using drawing::textOf;
using geometry::Vector;

class AngleDimensions : public CommandTest
{
protected:
    AngleDimensions()
    {
        evaluate("(setvar \"CMDECHO\" 0)"
                 "(command \"_.line\" \"0,0\" \"60,0\" \"\") (setq a (entlast) at (list a '(50 0 0)))"
                 "(command \"_.line\" \"0,0\" \"40,40\" \"\") (setq b (entlast) bt (list b '(30 30 0)))");
    }

    // Of the last dimension's picture.
    std::vector<drawing::GroupList> parts(const std::u16string &type)
    {
        const drawing::RecordId picture = drawing::pictureOf(m_document.drawing(), lastGroups());
        std::vector<drawing::GroupList> result;
        for (const drawing::RecordId part : drawing::entitiesIn(database(), picture))
            if (database().type(part) == type)
                result.push_back(database().groups(part));
        return result;
    }
    std::u16string shown() { return textOf(parts(u"TEXT").at(0), 1); }

    // How far the arcs of the picture go, in degrees.
    double drawnTurn()
    {
        double turn = 0;
        for (const drawing::GroupList &arc : parts(u"ARC"))
            turn += geometry::counterclockwise(geometry::radians(realOf(arc, 50)), geometry::radians(realOf(arc, 51)));
        return turn * 360 / geometry::FullTurn;
    }
};

TEST_F(AngleDimensions, BetweenTwoLines)
{
    evaluate("(command \"_.dimangular\" at bt \"45,20\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 2 | 32);
    EXPECT_NEAR(realOf(lastGroups(), 42), geometry::FullTurn / 8, 1e-12);
    EXPECT_EQ(placeOf(lastGroups(), 13), (Vector{0, 0, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 14), (Vector{60, 0, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{40, 40, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 16), (Vector{45, 20, 0}));
    EXPECT_EQ(shown(), u"45%%d");
    evaluate("(command \"_.dimangular\" at bt \"5,25\")");
    EXPECT_EQ(shown(), u"135%%d");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(AngleDimensions, ParallelLinesHaveNoAngle)
{
    evaluate("(command \"_.line\" \"0,9\" \"60,9\" \"\") (setq c (entlast))");
    const std::size_t before = types().size();
    takePrinted();
    evaluate("(command \"_.dimangular\" at (list c '(9 9 0)) \"5,25\")");
    EXPECT_NE(takePrinted().find("Lines are parallel."), std::string::npos);
    EXPECT_EQ(types().size(), before);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(AngleDimensions, OfAnArcAndOfACircleFromWhereItWasPicked)
{
    evaluate("(command \"_.arc\" \"180,0\" \"200,20\" \"180,40\")"
             "(command \"_.dimangular\" (list (entlast) '(200 20 0)) \"210,25\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 5 | 32);
    EXPECT_EQ(shown(), u"180%%d");
    evaluate("(command \"_.circle\" \"120,20\" 15)"
             "(command \"_.dimangular\" (list (entlast) '(135 20 0)) \"120,40\" \"140,45\")");
    EXPECT_EQ(placeOf(lastGroups(), 15), (Vector{120, 20, 0}));
    EXPECT_EQ(shown(), u"90%%d");
}

TEST_F(AngleDimensions, AboutAVertexInsideOrOutside)
{
    evaluate("(command \"_.dimangular\" \"\" \"180,80\" \"200,80\" \"180,110\" \"190,90\")");
    EXPECT_EQ(shown(), u"90%%d");
    evaluate("(command \"_.dimangular\" \"\" \"180,80\" \"200,80\" \"180,110\" \"170,70\")");
    EXPECT_EQ(shown(), u"270%%d");
}

TEST_F(AngleDimensions, TextAndItsAngleAreOptions)
{
    evaluate("(command \"_.dimangular\" at bt \"_t\" \"about <>\" \"_a\" 30 \"45,20\")");
    EXPECT_EQ(shown(), u"about 45%%d");
    EXPECT_EQ(textOf(lastGroups(), 1), u"about <>");
    EXPECT_NEAR(realOf(lastGroups(), 53), 360 + 30 - (22.5 + 90), 1e-9);
}

TEST_F(AngleDimensions, VariablesSayHowItIsWritten)
{
    evaluate("(command \"_.line\" \"0,0\" \"40,30\" \"\") (setq ct (list (entlast) '(20 15 0)))"
             "(setvar \"DIMADEC\" 3) (command \"_.dimangular\" at ct \"45,20\")");
    EXPECT_EQ(shown(), u"36.870%%d");
    evaluate("(setvar \"DIMAZIN\" 2) (command \"_.dimangular\" at ct \"45,20\")");
    EXPECT_EQ(shown(), u"36.87%%d");
    evaluate("(setvar \"DIMADEC\" -1) (setvar \"DIMDEC\" 1) (command \"_.dimangular\" at ct \"45,20\")");
    EXPECT_EQ(shown(), u"36.9%%d");
}

TEST_F(AngleDimensions, TheArcIsDrawnBetweenTheArrows)
{
    const double arrow = 2.5 / std::hypot(45, 20) * 360 / geometry::FullTurn;
    evaluate("(command \"_.dimangular\" at bt \"45,20\")");
    EXPECT_NEAR(drawnTurn(), 45 - 2 * arrow, 1e-9);
    EXPECT_EQ(parts(u"ARC").size(), 1u);
    evaluate("(setvar \"DIMTAD\" 0) (command \"_.dimangular\" at bt \"45,20\")");
    EXPECT_EQ(parts(u"ARC").size(), 2u); // the text stands between them
    EXPECT_LT(drawnTurn(), 45 - 2 * arrow - 5);
    evaluate("(setvar \"DIMTSZ\" 2.0) (setvar \"DIMTAD\" 1) (command \"_.dimangular\" at bt \"45,20\")");
    EXPECT_NEAR(drawnTurn(), 45, 1e-9);
    EXPECT_EQ(parts(u"SOLID").size(), 0u);
}

TEST_F(AngleDimensions, WhereThereIsNoRoomTheArrowsStandOutside)
{
    const double arrow = 2.5 / 10 * 360 / geometry::FullTurn;
    evaluate("(command \"_.dimangular\" \"\" \"0,0\" \"5,0\" \"5,1\" \"10<5\")");
    EXPECT_EQ(parts(u"ARC").size(), 3u);
    EXPECT_NEAR(drawnTurn(), std::atan2(1, 5) * 360 / geometry::FullTurn + 2 * arrow, 1e-9);
    evaluate("(setvar \"DIMTSZ\" 2.0) (setvar \"DIMTAD\" 0)"
             "(command \"_.dimangular\" \"\" \"0,0\" \"5,0\" \"5,1\" \"10<5\")");
    EXPECT_EQ(parts(u"ARC").size(), 1u); // strokes need no room
}

// Its lines are measured as seen in the user's plane, wherever that lies.
TEST_F(AngleDimensions, InATurnedPlane)
{
    evaluate("(command \"_.ucs\" \"_x\" 90) (command \"_.dimangular\" \"\" \"0,0\" \"20,0\" \"0,30\" \"10,10\")");
    EXPECT_EQ(shown(), u"90%%d");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(AngleDimensions, OrdinatesGoByTheSideOfTheText)
{
    evaluate("(command \"_.dimordinate\" \"40,30\" \"42,70\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 6 | 32 | 64);
    EXPECT_EQ(shown(), u"40.00");
    evaluate("(command \"_.dimordinate\" \"40,-30\" \"70,-28\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 6 | 32);
    EXPECT_EQ(shown(), u"30.00");
    evaluate("(command \"_.dimordinate\" \"40,30\" \"_x\" \"_t\" \"<>!\" \"70,32\")");
    EXPECT_EQ(shown(), u"40.00!");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(AngleDimensions, OrdinatesAreMeasuredFromTheOriginOfTheUser)
{
    evaluate("(command \"_.ucs\" \"_o\" \"10,5\") (command \"_.dimordinate\" \"40,30\" \"40,70\")");
    EXPECT_EQ(shown(), u"40.00");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{10, 5, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 13), (Vector{50, 35, 0}));
}

TEST_F(AngleDimensions, WithinDimTheTextComesAtTheEnd)
{
    evaluate("(command \"_.dim\" \"_an\" at bt \"45,20\" \"about <>\" \"\" \"_or\" \"40,30\" \"40,70\" \"\" \"_e\")");
    EXPECT_EQ(shown(), u"40.00");
    EXPECT_EQ(types().size(), 4u);
    evaluate("(command \"_.dim1\" \"_ang\" at bt \"20,10\" \"\" \"30,50\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 2 | 32 | 128);
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{30, 50, 0}));
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

} // namespace
