// DIMCONTINUE and DIMBASELINE.

#include "tests/host/commands/CommandTest.h"
#include "tests/host/drawing/Audit.h"

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::realOf;
using drawing::textOf;
using geometry::Vector;

class ChainDimensions : public CommandTest
{
protected:
    ChainDimensions() { evaluate("(setvar \"CMDECHO\" 0)"); }

    // From where to where the last dimension measures, and a place on its line.
    void expectLast(const Vector &first, const Vector &second, const Vector &line)
    {
        EXPECT_NEAR(length(placeOf(lastGroups(), 13) - first), 0, 1e-9);
        EXPECT_NEAR(length(placeOf(lastGroups(), 14) - second), 0, 1e-9);
        EXPECT_NEAR(length(placeOf(lastGroups(), 10) - line), 0, 1e-9);
    }
};

TEST_F(ChainDimensions, ContinuedOnesStandInOneLine)
{
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,5\" \"20,20\")"
             "(command \"_.dimcontinue\" \"55,0\" \"90,3\" \"\" \"\")");
    EXPECT_EQ(types().size(), 3u);
    expectLast({55, 0, 0}, {90, 3, 0}, {90, 20, 0});
    EXPECT_NEAR(realOf(lastGroups(), 42), 35, 1e-9);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(ChainDimensions, ThoseFromABaseStandFurtherAndFurtherAway)
{
    evaluate("(setvar \"DIMDLI\" 7.5) (command \"_.dimlinear\" \"0,0\" \"40,0\" \"20,-20\")"
             "(command \"_.dimbaseline\" \"55,0\" \"90,0\" \"\" \"\")");
    expectLast({0, 0, 0}, {90, 0, 0}, {90, -35, 0});
    EXPECT_NEAR(realOf(lastGroups(), 42), 90, 1e-9);
    EXPECT_EQ(types().size(), 3u);
}

TEST_F(ChainDimensions, AnAlignedOneGoesOnInItsDirection)
{
    evaluate("(command \"_.dimaligned\" \"0,0\" \"30,40\" \"-8,6\") (command \"_.dimcontinue\" \"60,80\" \"\" \"\")");
    EXPECT_EQ(integerOf(lastGroups(), 70) & 7, 0);
    EXPECT_NEAR(realOf(lastGroups(), 42), 50, 1e-9);
    expectLast({30, 40, 0}, {60, 80, 0}, {52, 86, 0});
}

TEST_F(ChainDimensions, UndoTakesTheLastOneBackAndNoneThatWasThere)
{
    evaluate(
        "(command \"_.dimlinear\" \"0,0\" \"40,0\" \"20,20\")"
        "(command \"_.dimcontinue\" \"_u\" \"55,0\" \"90,0\" \"_u\" \"70,0\" \"_u\" \"_u\" \"_u\" \"60,0\" \"\" \"\")");
    EXPECT_EQ(types().size(), 2u);
    expectLast({40, 0, 0}, {60, 0, 0}, {60, 20, 0});
}

TEST_F(ChainDimensions, AnotherOneMayBeChosen)
{
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,0\" \"20,20\") (setq a (entlast))"
             "(command \"_.dimlinear\" \"0,100\" \"0,140\" \"-20,120\")"
             "(command \"_.dimcontinue\" \"_s\" (list a '(20 20 0)) \"55,0\" \"\" \"\")");
    expectLast({40, 0, 0}, {55, 0, 0}, {55, 20, 0});
}

TEST_F(ChainDimensions, WithoutALastOneTheyAsk)
{
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,0\" \"20,20\") (setq a (entlast)) (command \"_.circle\" \"0,0\" 5)"
             "(setq c (entlast)) (command \"_.dimlinear\" \"0,0\" \"40,0\" \"20,40\") (entdel (entlast))");
    takePrinted();
    evaluate("(command \"_.dimbaseline\" (list c '(5 0 0)) (list a '(20 20 0)) \"70,0\" \"\" \"\")");
    EXPECT_NE(takePrinted().find("Object selected is not a linear dimension."), std::string::npos);
    expectLast({0, 0, 0}, {70, 0, 0}, {70, 23.75, 0});
}

TEST_F(ChainDimensions, WithinDim1OneWithItsText)
{
    evaluate("(command \"_.dim1\" \"_hor\" \"0,0\" \"40,0\" \"20,20\" \"\")"
             "(command \"_.dim1\" \"_continue\" \"55,0\" \"<> typ\") (setq a (entlast))"
             "(command \"_.dim1\" \"_base\" \"90,0\" \"\")");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (entget a)))"), "\"<> typ\"");
    EXPECT_EQ(textOf(lastGroups(), 1), u"");
    expectLast({40, 0, 0}, {90, 0, 0}, {90, 23.75, 0});
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

} // namespace
