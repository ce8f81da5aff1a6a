#include "tests/host/commands/CommandTest.h"

namespace {

using drawing::hasGroup;
using drawing::integerOf;
using drawing::realOf;
using drawing::textOf;

class PropertyCommands : public CommandTest
{
protected:
    void SetUp() override { evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\")"); }
    void chprop(const std::string &answers) { evaluate("(command \"_.chprop\" \"_l\" \"\" " + answers + " \"\")"); }
};

TEST_F(PropertyCommands, Color)
{
    chprop("\"_c\" 5");
    EXPECT_EQ(integerOf(lastGroups(), 62), 5);
    chprop("\"_c\" \"_t\" \"1,2,3\"");
    EXPECT_EQ(integerOf(lastGroups(), 420), 0x010203);
    chprop("\"_c\" \"bylayer\"");
    EXPECT_FALSE(hasGroup(lastGroups(), 62));
    EXPECT_FALSE(hasGroup(lastGroups(), 420));
}

TEST_F(PropertyCommands, BesideATrueColorStandsTheNearestNumber)
{
    chprop("\"_c\" 5 \"_c\" \"_t\" \"250,10,5\"");
    EXPECT_EQ(integerOf(lastGroups(), 62), 1);
    EXPECT_EQ(integerOf(lastGroups(), 420), 0xFA0A05);
}

TEST_F(PropertyCommands, BeforeR2004ColorsAreNumbersAlone)
{
    openEmptyDrawing("AC1015");
    evaluate("(setvar \"CECOLOR\" \"RGB:1,250,3\") (command \"_.line\" \"0,0\" \"10,0\" \"\")");
    EXPECT_EQ(integerOf(lastGroups(), 62), 3);
    EXPECT_FALSE(hasGroup(lastGroups(), 420));
    chprop("\"_c\" \"_t\" \"250,10,5\"");
    EXPECT_EQ(integerOf(lastGroups(), 62), 1);
    EXPECT_FALSE(hasGroup(lastGroups(), 420));
    evaluate("(command \"_.-layer\" \"_c\" \"_t\" \"0,1,250\" \"0\" \"\")");
    EXPECT_EQ(evaluate("(list (cdr (assoc 62 (tblsearch \"LAYER\" \"0\"))) (assoc 420 (tblsearch \"LAYER\" \"0\")))"),
              "(5 nil)");
}

TEST_F(PropertyCommands, AWidthIsTheNearestLineweight)
{
    chprop("\"_lw\" 0.26");
    EXPECT_EQ(integerOf(lastGroups(), 370), 25);
    chprop("\"_lw\" 1e300");
    EXPECT_EQ(integerOf(lastGroups(), 370), 211);
    chprop("\"_lw\" \"_byblock\"");
    EXPECT_EQ(integerOf(lastGroups(), 370), -2);
}

TEST_F(PropertyCommands, ElevationMovesWhatLiesAtOneHeight)
{
    const char *const drawn[] = {
        "\"_.circle\" \"0,0,1\" 2",
        "\"_.text\" \"_j\" \"_mc\" \"0,0,1\" 1 0 \"x\"",
        "\"_.point\" \"0,0,1\"",
        "\"_.solid\" \"0,0,1\" \"1,0,1\" \"0,1,1\" \"\" \"\"",
        "\"_.line\" \"0,0,1\" \"10,0,1\" \"\"",
    };
    for (const char *const answers : drawn) {
        evaluate("(command " + std::string(answers) + ")");
        evaluate("(command \"_.change\" \"_l\" \"\" \"_p\" \"_e\" 5 \"\")");
        EXPECT_FALSE(hasGroup(lastGroups(), 38)) << answers;
        EXPECT_EQ(drawing::placeOf(lastGroups(), 10).z, 5) << answers;
        if (hasGroup(lastGroups(), 11)) {
            EXPECT_EQ(drawing::placeOf(lastGroups(), 11).z, 5) << answers;
        }
    }
    EXPECT_EQ(takePrinted(), "");
}

TEST_F(PropertyCommands, ElevationOfPolylinesAndHatches)
{
    evaluate("(command \"_.pline\" \"0,0\" \"9,0\" \"9,9\" \"_c\")");
    chprop("\"_e\" 5");
    EXPECT_EQ(realOf(lastGroups(), 38), 5);
    evaluate("(command \"_.-hatch\" \"_p\" \"_s\" \"_s\" (entlast) \"\" \"\")");
    ASSERT_EQ(textOf(lastGroups(), 0), u"HATCH");
    chprop("\"_e\" 7");
    EXPECT_EQ(drawing::placeOf(lastGroups(), 10).z, 7);
    EXPECT_FALSE(hasGroup(lastGroups(), 38));
    evaluate("(setvar \"PLINETYPE\" 0) (command \"_.pline\" \"0,0\" \"9,0\" \"\")");
    chprop("\"_e\" 4");
    EXPECT_EQ(
        evaluate("(mapcar '(lambda (e) (caddr (cdr (assoc 10 (entget e))))) (list (entlast) (entnext (entlast))))"),
        "(4.0 4.0)");
}

TEST_F(PropertyCommands, WhatHasSeveralHeightsHasNoElevation)
{
    evaluate("(command \"_.line\" \"0,0,1\" \"10,0,2\" \"\")");
    const drawing::GroupList before = lastGroups();
    chprop("\"_e\" 5");
    EXPECT_EQ(lastGroups(), before);
    EXPECT_EQ(takePrinted(), "\n1 objects have no single elevation.\n");
}

TEST_F(PropertyCommands, ThicknessIsForTypesThatHaveOne)
{
    evaluate("(command \"_.arc\" \"5,0\" \"0,5\" \"-5,0\")");
    chprop("\"_t\" 3");
    EXPECT_THAT(evaluate("(member '(39 . 3.0) (entget (entlast)))"), testing::HasSubstr("AcDbArc"));
    EXPECT_EQ(realOf(lastGroups(), 39), 3);
    evaluate("(command \"_.ellipse\" \"0,0\" \"9,0\" 2)");
    const drawing::GroupList before = lastGroups();
    chprop("\"_t\" 3");
    EXPECT_EQ(lastGroups(), before);
}

TEST_F(PropertyCommands, LayerMustBeThere)
{
    evaluate("(command \"_.-layer\" \"_n\" \"Walls\" \"\")");
    chprop("\"_la\" \"WALLS\"");
    EXPECT_EQ(textOf(lastGroups(), 8), u"Walls");
    chprop("\"_la\" \"Doors\" \"_c\" 1");
    EXPECT_EQ(takePrinted(), "\nCannot find layer \"Doors\".\n");
    EXPECT_EQ(integerOf(lastGroups(), 62), 1);
}

TEST_F(PropertyCommands, LinetypeScaleWeightThicknessAndTransparency)
{
    chprop("\"_lt\" \"hidden\" \"_s\" 0.5 \"_lw\" 0.3 \"_t\" 7 \"_tr\" 50");
    EXPECT_EQ(textOf(lastGroups(), 6), u"hidden");
    EXPECT_EQ(realOf(lastGroups(), 48), 0.5);
    EXPECT_EQ(integerOf(lastGroups(), 370), 30);
    EXPECT_EQ(realOf(lastGroups(), 39), 7);
    EXPECT_EQ(integerOf(lastGroups(), 440), 0x02000000 | 128);
    chprop("\"_lt\" \"bylayer\"");
    EXPECT_FALSE(hasGroup(lastGroups(), 6));
}

TEST_F(PropertyCommands, LinetypesAreLoadedAndSet)
{
    evaluate("(command \"_.linetype\" \"_l\" \"center*\" \"no-such-file.lin\" \"\")");
    for (const char16_t *name : {u"CENTER", u"CENTER2", u"CENTERX2"})
        EXPECT_NE(m_document.drawing().tables().find(drawing::known::Linetype, name), drawing::NoRecord);
    evaluate("(command \"-linetype\" \"_s\" \"center\" \"\")");
    EXPECT_EQ(evaluate("(getvar \"CELTYPE\")"), "\"CENTER\"");
    evaluate("(command \"_.linetype\" \"_s\" \"wavy\" \"_s\" \"bylayer\" \"\")");
    EXPECT_EQ(takePrinted(), "\nLinetype \"wavy\" not found.\n");
    EXPECT_EQ(evaluate("(getvar \"CELTYPE\")"), "\"ByLayer\"");
}

TEST_F(PropertyCommands, ByLayerAndByBlockAreOptions)
{
    evaluate("(command \"_.-linetype\" \"_s\" \"_byblock\" \"\")");
    EXPECT_EQ(evaluate("(getvar \"CELTYPE\")"), "\"ByBlock\"");
    evaluate("(command \"_.-linetype\" \"_s\" \"_bylayer\" \"\")");
    EXPECT_EQ(evaluate("(getvar \"CELTYPE\")"), "\"ByLayer\"");
    chprop("\"_lt\" \"hidden\" \"_lt\" \"_bylayer\"");
    EXPECT_FALSE(hasGroup(lastGroups(), 6));
    EXPECT_EQ(takePrinted(), "");
}

} // namespace
