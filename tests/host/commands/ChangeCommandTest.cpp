#include "host/drawing/geometry/Extents.h"
#include "tests/host/commands/CommandTest.h"
#include "tests/host/drawing/Audit.h"

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::realOf;
using drawing::textOf;
using geometry::Vector;

class ChangeCommand : public CommandTest
{
protected:
    // Ends with all questions answered.
    void change(const std::string &answers)
    {
        evaluate("(command \"_.change\" (entlast) \"\" " + answers + ")");
        EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    }
};

TEST_F(ChangeCommand, PropertiesAsChprop)
{
    evaluate("(command \"_.line\" '(0 0) '(10 0) \"\")");
    change("\"_p\" \"_c\" 3 \"\"");
    EXPECT_EQ(integerOf(lastGroups(), 62), 3);
}

TEST_F(ChangeCommand, TheNearerEndOfALineGoesToThePoint)
{
    evaluate("(command \"_.line\" '(0 0) '(10 0) \"\")");
    change("'(9 5)");
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{9, 5, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 0, 0}));
    change("\"\"");
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{9, 5, 0}));
}

TEST_F(ChangeCommand, ACircleGoesThroughThePointOrGetsARadius)
{
    evaluate("(command \"_.circle\" '(1 1) 1)");
    change("'(4 5)");
    EXPECT_EQ(realOf(lastGroups(), 40), 5);
    change("\"\" 7");
    EXPECT_EQ(realOf(lastGroups(), 40), 7);
    change("\"\" \"\"");
    EXPECT_EQ(realOf(lastGroups(), 40), 7);
    evaluate("(command \"_.ucs\" \"_x\" 90 \"_.circle\" '(10 0) 1 \"_.ucs\" \"_w\")"); // upright
    change("'(10 0 3)");
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 40), 3);
}

TEST_F(ChangeCommand, ATextIsAskedAboutAllThatItIs)
{
    evaluate("(command \"_.-style\" \"Notes\" \"romans.shx\" 0 1 0 \"_n\" \"_n\" \"_n\")"
             "(command \"_.text\" \"_s\" \"Standard\" '(1 2) 2.5 0 \"old\")");
    change("\"\" '(5 6) \"notes\" 4 30 \"two words\"");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{5, 6, 0}));
    EXPECT_EQ(textOf(lastGroups(), 7), u"Notes");
    EXPECT_EQ(realOf(lastGroups(), 40), 4);
    EXPECT_NEAR(realOf(lastGroups(), 50), 30, 1e-9);
    EXPECT_EQ(textOf(lastGroups(), 1), u"two words");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(ChangeCommand, EnterLeavesEachAsItIs)
{
    evaluate("(command \"_.text\" '(1 2) 2.5 45 \"old\")");
    const drawing::GroupList before = lastGroups();
    change("\"\" \"\" \"\" \"\" \"\" \"\"");
    EXPECT_EQ(lastGroups(), before);
    change("\"\" \"\" \"\" \"\" \"\" \"new\""); // as programs change a text alone
    EXPECT_EQ(textOf(lastGroups(), 1), u"new");
    EXPECT_EQ(realOf(lastGroups(), 50), 45);
}

TEST_F(ChangeCommand, ThePromptsTellWhatIsThere)
{
    evaluate("(command \"_.text\" '(1 2) 2.5 45 \"old\") (setvar \"CMDECHO\" 1)");
    takePrinted();
    evaluate("(command \"_.change\" (entlast) \"\" '(3 4) \"\" \"\" \"\" \"\")");
    const std::string printed = takePrinted();
    for (const char *prompt : {"Enter new text style <Standard>: ", "Specify new height <2.5000>: ",
                               "Specify new rotation angle <45>: ", "Enter new text <old>: "})
        EXPECT_THAT(printed, testing::HasSubstr(prompt));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{3, 4, 0}));
}

TEST_F(ChangeCommand, EveryTextIsAskedAbout)
{
    evaluate(
        "(command \"_.text\" '(0 0) 1 0 \"a\" \"_.text\" '(0 9) 1 0 \"b\")"
        "(command \"_.change\" (entnext) (entlast) \"\" \"\" \"\" \"\" \"\" \"\" \"c\" \"\" \"\" \"\" \"\" \"d\")");
    EXPECT_EQ(evaluate("(mapcar '(lambda (e) (cdr (assoc 1 (entget e)))) (list (entnext) (entlast)))"),
              "(\"c\" \"d\")");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(ChangeCommand, TheHeightOfAStyleIsNotAskedFor)
{
    evaluate("(command \"_.-style\" \"High\" \"romans.shx\" 9 1 0 \"_n\" \"_n\" \"_n\" \"_.text\" \"_s\" \"Standard\""
             " '(0 0) 1 0 \"a\")");
    change("\"\" \"\" \"high\" 90 \"b\"");
    EXPECT_EQ(realOf(lastGroups(), 40), 9);
    EXPECT_NEAR(realOf(lastGroups(), 50), 90, 1e-9);
    EXPECT_EQ(textOf(lastGroups(), 1), u"b");
}

TEST_F(ChangeCommand, ACentredTextMovesWithItsAlignmentPoint)
{
    evaluate("(command \"_.text\" \"_c\" '(10 0) 2 0 \"HH\")");
    const Vector left = placeOf(lastGroups(), 10);
    ASSERT_LT(left.x, 9);
    change("'(10 7) \"\" \"\" \"\" \"HHHH\"");
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{10, 7, 0}));
    EXPECT_NEAR(10 - placeOf(lastGroups(), 10).x, 2 * (10 - left.x), 1e-9); // twice as long
    EXPECT_NEAR(placeOf(lastGroups(), 10).y, 7, 1e-9);
}

TEST_F(ChangeCommand, AFittedTextStaysBetweenItsPoints)
{
    evaluate("(command \"_.text\" \"_f\" '(0 0) '(100 0) 2 \"HH\")");
    const double width = realOf(lastGroups(), 41);
    ASSERT_GT(width, 1);
    change("\"\" \"\" \"\" \"\" \"\" \"HHHH\"");
    EXPECT_NEAR(realOf(lastGroups(), 41), width / 2, 1e-9);
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{100, 0, 0}));
}

TEST_F(ChangeCommand, ADefinitionHasTagPromptAndDefault)
{
    evaluate("(entmake '((0 . \"ATTDEF\") (10 0.0 0.0 0.0) (40 . 1.0) (1 . \"none\") (3 . \"Which\") (2 . \"OLD\") (70 "
             ". 0)))");
    change("\"\" '(3 4) \"\" 2 90 \"NEW\" \"What number\" \"A 1\"");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{3, 4, 0}));
    EXPECT_EQ(textOf(lastGroups(), 2), u"NEW");
    EXPECT_EQ(textOf(lastGroups(), 3), u"What number");
    EXPECT_EQ(textOf(lastGroups(), 1), u"A 1");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(ChangeCommand, AnInsertMovesAndTurns)
{
    evaluate("(command \"_.line\" '(0 0) '(1 0) \"\" \"_.-block\" \"b\" '(0 0) \"_l\" \"\" \"_.-insert\" \"b\" '(5 5) "
             "2 2 30)");
    change("'(9 9) 90");
    EXPECT_LT(geometry::length(placeOf(lastGroups(), 10) - Vector{9, 9, 0}), 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 50), 90, 1e-9);
    change("\"\" '(1 1) \"\"");
    EXPECT_LT(geometry::length(placeOf(lastGroups(), 10) - Vector{1, 1, 0}), 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 50), 90, 1e-9);
    EXPECT_EQ(realOf(lastGroups(), 41), 2);
}

TEST_F(ChangeCommand, AStyleThatIsNotThereIsAskedForAgain)
{
    evaluate("(command \"_.text\" '(0 0) 1 0 \"a\" \"_.text\" '(0 9) 1 0 \"b\")"
             "(command \"_.change\" (entnext) (entlast) \"\" \"\" \"\" \"nostyle\" \"\" 2 45 \"line\")");
    EXPECT_EQ(takePrinted(), "\nCannot find text style \"nostyle\".\n");
    EXPECT_EQ(evaluate("(getvar \"CMDNAMES\")"), "\"CHANGE\""); // which asks about the second one
    evaluate("(command \"\" \"\" \"\" \"\" \"circle\")");
    EXPECT_EQ(evaluate("(mapcar '(lambda (e) (cdr (assoc 1 (entget e)))) (list (entnext) (entlast)))"),
              "(\"line\" \"circle\")");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(ChangeCommand, ACircleAboutThePointIsLeftAsItIs)
{
    evaluate("(command \"_.circle\" '(0 0) 2 \"_.line\" '(1 0) '(9 0) \"\")"
             "(command \"_.change\" (entnext) (entlast) \"\" '(0 0))");
    EXPECT_EQ(takePrinted(), "\nValue must be positive and nonzero.\n");
    EXPECT_EQ(evaluate("(cdr (assoc 40 (entget (entnext))))"), "2.0");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 0, 0}));
}

TEST_F(ChangeCommand, WhatProgramsChangeBetweenTheAnswersStays)
{
    evaluate("(defun recolour (e) (entmod (append (entget e) '((62 . 3)))))"
             "(command \"_.text\" '(0 0) 1 0 \"old\")"
             "(command \"_.change\" (entlast) \"\" '(1 1) \"\" \"\") (recolour (entlast))"
             "(command \"\" \"new\")");
    EXPECT_EQ(integerOf(lastGroups(), 62), 3);
    EXPECT_EQ(textOf(lastGroups(), 1), u"new");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 1, 0}));
    evaluate("(command \"_.circle\" '(0 0) 2) (command \"_.change\" (entlast) \"\" \"\")"
             "(recolour (entlast)) (command 5)");
    EXPECT_EQ(integerOf(lastGroups(), 62), 3);
    EXPECT_EQ(realOf(lastGroups(), 40), 5);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(ChangeCommand, AnInsertGoesToThePlaceFromWhereItThenIs)
{
    evaluate("(command \"_.line\" '(0 0) '(1 0) \"\" \"_.-block\" \"b\" '(0 0) \"_l\" \"\" \"_.-insert\" \"b\" '(5 5) "
             "1 1 0) (command \"_.change\" (entlast) \"\" '(9 9))"
             "(entmod (subst '(10 2.0 2.0 0.0) (assoc 10 (entget (entlast))) (entget (entlast)))) (command \"\")");
    EXPECT_LT(geometry::length(placeOf(lastGroups(), 10) - Vector{9, 9, 0}), 1e-9);
}

TEST_F(ChangeCommand, WhatIsErasedBetweenTheAnswersIsLeftOut)
{
    evaluate("(command \"_.text\" '(0 0) 1 0 \"a\" \"_.text\" '(0 9) 1 0 \"b\" \"_.text\" '(0 18) 1 0 \"c\")"
             "(setq a (entnext) b (entnext a) c (entlast))"
             "(command \"_.change\" a b c \"\" \"\" \"\" \"\" \"\" \"\") (entdel a) (entdel b)"
             "(command \"gone\" \"\" \"\" \"\" \"\" \"new\")");
    EXPECT_EQ(takePrinted(), "");
    EXPECT_EQ(types(), std::vector<std::string>{"TEXT"});
    EXPECT_EQ(textOf(lastGroups(), 1), u"new");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

} // namespace
