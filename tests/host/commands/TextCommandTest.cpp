#include "tests/host/commands/CommandTest.h"

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::realOf;
using drawing::textOf;
using geometry::Vector;
using testing::ElementsAre;

using TextCommand = CommandTest;

TEST_F(TextCommand, AsksForPointHeightRotationAndText)
{
    evaluate("(command \"_.text\" \"1,2\" 3.5 90 \"Some text\")");
    EXPECT_THAT(types(), ElementsAre("TEXT"));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 2, 0}));
    EXPECT_EQ(realOf(lastGroups(), 40), 3.5);
    EXPECT_EQ(realOf(lastGroups(), 50), 90);
    EXPECT_EQ(textOf(lastGroups(), 1), u"Some text");
    EXPECT_EQ(textOf(lastGroups(), 7), u"Standard");
    EXPECT_EQ(evaluate("(getvar \"TEXTSIZE\")"), "3.5");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(TextCommand, HeightAndRotationHaveDefaults)
{
    evaluate("(command \"_.text\" \"1,2\" \"\" \"\" \"a\")");
    EXPECT_EQ(realOf(lastGroups(), 40), 2.5);
    EXPECT_EQ(realOf(lastGroups(), 50), 0);
}

TEST_F(TextCommand, JustifiedTextsHaveAnAlignmentPoint)
{
    evaluate("(command \"_.text\" \"_j\" \"_mc\" \"1,2\" 1 0 \"a\")");
    EXPECT_EQ(integerOf(lastGroups(), 72), 1);
    EXPECT_EQ(integerOf(lastGroups(), 73), 2);
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{1, 2, 0}));
    evaluate("(command \"_.text\" \"_r\" \"1,2\" 1 0 \"a\")");
    EXPECT_EQ(integerOf(lastGroups(), 72), 2);
}

TEST_F(TextCommand, FitAndAlignTakeTwoPoints)
{
    evaluate("(command \"_.text\" \"_f\" \"0,0\" \"0,10\" 2 \"a\")");
    EXPECT_EQ(integerOf(lastGroups(), 72), 5);
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{0, 10, 0}));
    EXPECT_EQ(realOf(lastGroups(), 50), 90);
    evaluate("(command \"_.text\" \"_a\" \"0,0\" \"10,0\" \"a\")");
    EXPECT_EQ(integerOf(lastGroups(), 72), 3);
}

TEST_F(TextCommand, AStyleThatIsNotThereIsSaid)
{
    evaluate("(command \"_.text\" \"_s\" \"Fancy\")");
    EXPECT_EQ(takePrinted(), "\nCannot find text style \"Fancy\".\n");
}

TEST_F(TextCommand, NoTextMakesNoEntity)
{
    evaluate("(command \"_.text\" \"1,2\" \"\" \"\" \"\")");
    EXPECT_THAT(types(), ElementsAre());
}

} // namespace
