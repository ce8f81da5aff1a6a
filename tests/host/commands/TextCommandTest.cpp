#include "tests/host/commands/CommandTest.h"

#include "host/drawing/geometry/Extents.h"
#include "tests/host/drawing/Audit.h"

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

// The width of a text of height 1, to compare with.
constexpr const char *Width = "(defun width (text) (caadr (textbox (list (cons 1 text) '(40 . 1.0)))))"
                              "(defun near (a b) (equal a b 0.03))"; // the box ends with the ink of the last letter

TEST_F(TextCommand, AnAlignedTextIsAsHighAsItsPointsAreApart)
{
    evaluate(std::string(Width) + "(command \"_.text\" \"_a\" \"0,0\" \"0,100\" \"HHHHHHHHHHHHHHHHHHHH\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 0, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{0, 100, 0}));
    EXPECT_EQ(realOf(lastGroups(), 50), 90);
    EXPECT_EQ(evaluate("(near 1 (/ (* (cdr (assoc 40 (entget (entlast)))) (width \"HHHHHHHHHHHHHHHHHHHH\")) 100))"),
              "T");
    EXPECT_EQ(realOf(lastGroups(), 41, 1), 1);
}

TEST_F(TextCommand, AFittedTextIsAsWideAsItsPointsAreApartAndKeepsItsHeight)
{
    evaluate(std::string(Width) + "(command \"_.text\" \"_f\" \"0,0\" \"-100,0\" 2 \"HHHHHHHHHHHHHHHHHHHH\")");
    EXPECT_EQ(realOf(lastGroups(), 40), 2);
    EXPECT_EQ(realOf(lastGroups(), 50), 180);
    EXPECT_EQ(evaluate("(near 1 (/ (* 2 (cdr (assoc 41 (entget (entlast)))) (width \"HHHHHHHHHHHHHHHHHHHH\")) 100))"),
              "T");
}

TEST_F(TextCommand, BothAreSeenFromPointToPoint)
{
    for (const char *option : {"_a", "_f"}) {
        evaluate(std::string("(command \"_.text\" \"") + option + "\" \"0,0\" \"100,0\" " +
                 (*(option + 1) == 'f' ? "2 " : "") + "\"HHHHHHHHHHHHHHHHHHHH\")");
        const auto box = geometry::extentsOf(m_document.drawing(), last());
        ASSERT_TRUE(box);
        EXPECT_NEAR(box->minimum.x, 0, 2);
        EXPECT_NEAR(box->maximum.x, 100, 2);
        EXPECT_NEAR(box->maximum.y, realOf(lastGroups(), 40), 0.01);
        EXPECT_EQ(drawing::auditOf(database()), "");
    }
}

TEST_F(TextCommand, AJustifiedTextTellsWhereItsBaseLineBegins)
{
    evaluate("(command \"_.text\" \"_tr\" \"50,20\" 2 90 \"HHHH\")");
    const Vector right = placeOf(lastGroups(), 10);
    evaluate("(command \"_.text\" '(0 0) 2 90 \"HHHH\")");
    const auto plain = geometry::extentsOf(m_document.drawing(), last());
    EXPECT_NEAR(right.x, 50 + 2, 1e-9); // a height below the top, which is to the right of a turned text
    EXPECT_NEAR(right.y, 20 - plain->maximum.y, 0.5);
    EXPECT_LT(right.y, 20 - plain->maximum.y + 1e-9); // the letters end a bit before the text
}

TEST_F(TextCommand, EnterGoesOnBelowTheLastText)
{
    evaluate("(command \"_.text\" \"\" \"1,2\" 3 90 \"one\")");
    EXPECT_EQ(takePrinted(), "\nNo text to continue.\n");
    evaluate("(setvar \"TEXTSIZE\" 8.0) (command \"_.line\" \"0,0\" \"1,1\" \"\" \"_.text\" \"\" \"two\")");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(textOf(lastGroups(), 1), u"two");
    EXPECT_EQ(textOf(lastGroups(), 7), u"Standard");
    EXPECT_EQ(realOf(lastGroups(), 40), 3);
    EXPECT_EQ(realOf(lastGroups(), 50), 90);
    EXPECT_LT(geometry::length(placeOf(lastGroups(), 10) - Vector{6, 2, 0}), 1e-9);
    EXPECT_EQ(drawing::auditOf(database()), "");
    evaluate("(command \"_.erase\" \"_l\" \"\" \"_.text\" \"\")");
    EXPECT_EQ(takePrinted(), "\nNo text to continue.\n");
}

TEST_F(TextCommand, ALineBelowIsAlignedAsTheOneAbove)
{
    evaluate("(command \"_.text\" \"_j\" \"_mc\" \"10,20\" 3 0 \"wide\" \"_.text\" \"\" \"i\")");
    EXPECT_EQ(integerOf(lastGroups(), 72), 1);
    EXPECT_EQ(integerOf(lastGroups(), 73), 2);
    EXPECT_LT(geometry::length(placeOf(lastGroups(), 11) - Vector{10, 15, 0}), 1e-9);
    EXPECT_GT(placeOf(lastGroups(), 10).x, 9);
    EXPECT_EQ(drawing::auditOf(database()), "");
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
