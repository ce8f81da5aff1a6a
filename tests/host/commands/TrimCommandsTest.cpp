#include "tests/host/commands/CommandTest.h"

#include "tests/host/drawing/Audit.h"

namespace {

using drawing::placeOf;
using drawing::realOf;
using geometry::Vector;
using testing::ElementsAre;

class TrimCommands : public CommandTest
{
protected:
    // Each is selected by the name that it gets here.
    void draw(const std::string &name, const std::string &command)
    {
        evaluate("(command " + command + ") (setq " + name + " (entlast))");
    }
    void expectLine(const Vector &start, const Vector &end)
    {
        EXPECT_LT(length(placeOf(lastGroups(), 10) - start), 1e-9) << placeOf(lastGroups(), 10).x;
        EXPECT_LT(length(placeOf(lastGroups(), 11) - end), 1e-9) << placeOf(lastGroups(), 11).x;
    }
    std::string list(const std::string &name, int code)
    {
        return evaluate("(cdr (assoc " + std::to_string(code) + " (entget " + name + ")))");
    }
};

TEST_F(TrimCommands, TrimTakesTheEndBehindTheEdge)
{
    draw("e", "\"_.line\" \"5,-5\" \"5,5\" \"\"");
    draw("a", "\"_.line\" \"0,0\" \"10,0\" \"\"");
    evaluate("(command \"_.trim\" e \"\" (list a '(8 0 0)) \"\")");
    expectLine({0, 0, 0}, {5, 0, 0});
}

TEST_F(TrimCommands, TrimTakesThePieceBetweenTwoEdges)
{
    draw("e", "\"_.line\" \"5,-5\" \"5,5\" \"\"");
    draw("f", "\"_.line\" \"7,-5\" \"7,5\" \"\"");
    draw("a", "\"_.line\" \"0,0\" \"10,0\" \"\"");
    evaluate("(command \"_.trim\" e f \"\" (list a '(6 0 0)) \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "LINE", "LINE"));
    expectLine({7, 0, 0}, {10, 0, 0});
    EXPECT_EQ(list("a", 11), "(5.0 0.0 0.0)");
}

TEST_F(TrimCommands, TrimMakesAnArcOfACircle)
{
    draw("e", "\"_.line\" \"-9,0\" \"9,0\" \"\"");
    draw("a", "\"_.circle\" \"0,0\" 5");
    evaluate("(command \"_.trim\" e \"\" (list a '(0 5 0)) \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "ARC"));
    EXPECT_NEAR(realOf(lastGroups(), 50), 180, 1e-9);
    EXPECT_NEAR(std::fmod(realOf(lastGroups(), 51) + 1e-6, 360), 0, 1e-3);
    EXPECT_EQ(evaluate("(eq a (entlast))"), "T");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(TrimCommands, TrimLeavesAPolylineOfVerticesOne)
{
    draw("e", "\"_.line\" \"5,-5\" \"5,5\" \"\"");
    evaluate("(setvar \"PLINETYPE\" 0)");
    draw("b", "\"_.pline\" \"0,2\" \"10,2\" \"10,10\" \"\"");
    evaluate("(command \"_.trim\" e \"\" (list b '(1 2 0)) \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "POLYLINE"));
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget (entnext b))))"), "(5.0 2.0 0.0)");
}

TEST_F(TrimCommands, TrimOpensAClosedPolyline)
{
    draw("e", "\"_.line\" \"5,-5\" \"5,15\" \"\"");
    draw("a", "\"_.rectang\" \"0,0\" \"10,10\"");
    evaluate("(command \"_.trim\" e \"\" (list a '(10 4 0)) \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LWPOLYLINE"));
    EXPECT_EQ(list("a", 70), "0");
    EXPECT_EQ(list("a", 90), "4");
    EXPECT_EQ(list("a", 10), "(5.0 10.0)");
}

TEST_F(TrimCommands, TrimKeepsWidthsAndBulges)
{
    draw("e", "\"_.line\" \"5,-9\" \"5,9\" \"\"");
    draw("a", "\"_.pline\" \"0,0\" \"_w\" 0 2 \"_a\" \"10,0\" \"\"");
    const double bulge = realOf(lastGroups(), 42);
    evaluate("(command \"_.trim\" e \"\" (list a '(0.5 -1 0)) \"\")");
    EXPECT_NEAR(realOf(lastGroups(), 40), 1, 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 42), std::tan(std::atan(bulge) / 2), 1e-9);
}

TEST_F(TrimCommands, TrimTellsWhatItCannotDo)
{
    draw("e", "\"_.line\" \"50,-5\" \"50,5\" \"\"");
    draw("a", "\"_.line\" \"0,0\" \"10,0\" \"\"");
    takePrinted();
    evaluate("(command \"_.trim\" e \"\" (list a '(6 0 0)) a \"\")");
    EXPECT_EQ(takePrinted(), "\nObject does not intersect an edge.\n\nInvalid selection\n");
    draw("t", "\"_.point\" \"1,1\"");
    evaluate("(command \"_.trim\" e \"\" (list t '(1 1 0)) \"\")");
    EXPECT_EQ(takePrinted(), "\nCannot TRIM this object.\n");
}

TEST_F(TrimCommands, ExtendGoesToTheNextEdge)
{
    draw("e", "\"_.line\" \"20,-5\" \"20,5\" \"\"");
    draw("f", "\"_.line\" \"15,-5\" \"15,5\" \"\"");
    draw("a", "\"_.line\" \"0,0\" \"10,0\" \"\"");
    evaluate("(command \"_.extend\" e f \"\" (list a '(8 0 0)) \"\")");
    expectLine({0, 0, 0}, {15, 0, 0});
    evaluate("(command \"_.extend\" e f \"\" (list a '(1 0 0)) \"\")");
    expectLine({0, 0, 0}, {15, 0, 0});
}

TEST_F(TrimCommands, ExtendBendsAnArcFurther)
{
    draw("e", "\"_.line\" \"-9,0\" \"0,0\" \"\"");
    draw("a", "\"_.arc\" \"_c\" \"0,0\" \"5,0\" \"0,5\"");
    evaluate("(command \"_.extend\" e \"\" (list a '(0.1 5 0)) \"\")");
    EXPECT_NEAR(realOf(lastGroups(), 51), 180, 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 50), 0, 1e-9);
}

TEST_F(TrimCommands, ExtendMovesTheEndOfAPolyline)
{
    draw("e", "\"_.line\" \"-5,20\" \"15,20\" \"\"");
    draw("a", "\"_.pline\" \"0,0\" \"10,0\" \"10,10\" \"\"");
    evaluate("(command \"_.extend\" e \"\" (list a '(10 9 0)) \"\")");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (reverse (entget a))))"), "(10.0 20.0)");
}

TEST_F(TrimCommands, FilletWithoutARadiusMakesACorner)
{
    draw("a", "\"_.line\" \"0,0\" \"8,0\" \"\"");
    draw("b", "\"_.line\" \"10,2\" \"10,9\" \"\"");
    evaluate("(setvar \"FILLETRAD\" 0) (command \"_.fillet\" (list a '(2 0 0)) (list b '(10 8 0)))");
    EXPECT_EQ(list("a", 11), "(10.0 0.0 0.0)");
    EXPECT_EQ(list("b", 10), "(10.0 0.0 0.0)");
}

TEST_F(TrimCommands, FilletRoundsTheCornerOnThePickedSides)
{
    draw("a", "\"_.line\" \"0,0\" \"20,0\" \"\"");
    draw("b", "\"_.line\" \"10,-9\" \"10,9\" \"\"");
    evaluate("(command \"_.fillet\" \"_r\" 2 (list a '(2 0 0)) (list b '(10 8 0)))");
    EXPECT_EQ(list("a", 11), "(8.0 0.0 0.0)");
    EXPECT_EQ(list("b", 10), "(10.0 2.0 0.0)");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{8, 2, 0}));
    EXPECT_NEAR(realOf(lastGroups(), 50), 270, 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 51), 0, 1e-9);
    evaluate("(command \"_.u\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE"));
    EXPECT_EQ(list("a", 11), "(20.0 0.0 0.0)");
}

TEST_F(TrimCommands, FilletTouchesALineAndACircle)
{
    draw("a", "\"_.line\" \"-20,0\" \"20,0\" \"\"");
    draw("b", "\"_.circle\" \"0,8\" 5");
    evaluate("(setvar \"FILLETRAD\" 2) (command \"_.fillet\" (list a '(10 0 0)) (list b '(4 5 0)))");
    EXPECT_THAT(types(), ElementsAre("LINE", "CIRCLE", "ARC"));
    const Vector centre = placeOf(lastGroups(), 10);
    EXPECT_NEAR(centre.y, 2, 1e-9);
    EXPECT_NEAR(length(centre - Vector{0, 8, 0}), 7, 1e-9);
}

TEST_F(TrimCommands, FilletRoundsAPolylineEverywhere)
{
    draw("a", "\"_.rectang\" \"0,0\" \"10,10\"");
    evaluate("(setvar \"FILLETRAD\" 2) (command \"_.fillet\" \"_p\" a)");
    EXPECT_EQ(list("a", 90), "8");
    EXPECT_NEAR(realOf(lastGroups(), 42), std::tan(std::numbers::pi / 8), 1e-9);
}

TEST_F(TrimCommands, FilletRefusesWhatHasNoArc)
{
    draw("a", "\"_.line\" \"0,0\" \"20,0\" \"\"");
    draw("b", "\"_.line\" \"0,5\" \"20,5\" \"\"");
    takePrinted();
    evaluate("(setvar \"FILLETRAD\" 0) (command \"_.fillet\" (list a '(2 0 0)) (list b '(10 5 0)))");
    EXPECT_EQ(takePrinted(), "\nLines are parallel.\n");
    evaluate("(command \"_.fillet\" (list a '(2 0 0)) (list a '(10 0 0)))");
    EXPECT_EQ(takePrinted(), "\nThe same object cannot be filleted with itself.\n");
}

} // namespace
