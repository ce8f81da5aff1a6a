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
    EXPECT_FALSE(hasGroup(lastGroups(), 62));
    EXPECT_EQ(integerOf(lastGroups(), 420), 0x010203);
    chprop("\"_c\" \"bylayer\"");
    EXPECT_FALSE(hasGroup(lastGroups(), 420));
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
