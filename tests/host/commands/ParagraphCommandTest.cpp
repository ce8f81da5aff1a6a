#include "tests/host/commands/CommandTest.h"

namespace {

class ParagraphCommand : public CommandTest
{
protected:
    std::string group(int code) { return evaluate("(cdr (assoc " + std::to_string(code) + " (entget (entlast))))"); }
};

TEST_F(ParagraphCommand, WritesLinesIntoABox)
{
    evaluate("(command \"_.-mtext\" '(10 20) \"_h\" 3 '(60 0) \"first\" \"second line\" \"\")");
    EXPECT_EQ(group(1), "\"first\\\\Psecond line\"");
    EXPECT_EQ(group(10), "(10.0 20.0 0.0)");
    EXPECT_EQ(group(40), "3.0");
    EXPECT_EQ(group(41), "50.0");
    EXPECT_EQ(group(71), "1");
    EXPECT_EQ(evaluate("(list (getvar \"CMDACTIVE\") (getvar \"TEXTSIZE\"))"), "(0 3.0)");
}

TEST_F(ParagraphCommand, ADrawingBeforeR13HasNone)
{
    openEmptyDrawing("AC1009");
    evaluate("(command \"_.-mtext\" '(10 20) \"_h\" 3 '(60 0) \"first\" \"\")");
    EXPECT_TRUE(types().empty());
    EXPECT_EQ(takePrinted(), "\nA drawing before R13 has no MTEXT objects.\n");
}

TEST_F(ParagraphCommand, TheJustificationSaysWhichPlaceOfTheBoxHoldsTheText)
{
    evaluate("(command \"_.-mtext\" '(0 0) \"_j\" \"_mc\" '(60 40) \"x\" \"\")");
    EXPECT_EQ(group(71), "5");
    EXPECT_EQ(group(10), "(30.0 20.0 0.0)");
    evaluate("(command \"_.-mtext\" '(0 0) \"_j\" \"_br\" '(60 40) \"x\" \"\")");
    EXPECT_EQ(group(71), "9");
    EXPECT_EQ(group(10), "(60.0 0.0 0.0)");
}

TEST_F(ParagraphCommand, TakesItsOptions)
{
    evaluate("(command \"_.-style\" \"Thin\") (while (> (getvar \"CMDACTIVE\") 0) (command \"\"))");
    evaluate("(command \"_.mtext\" '(1 2) \"_s\" \"thin\" \"_r\" 90 \"_l\" \"_e\" \"1.5x\" \"_w\" 0 \"x\" \"\")");
    EXPECT_EQ(group(7), "\"Thin\"");
    EXPECT_EQ(group(41), "0.0");
    EXPECT_EQ(group(73), "2");
    EXPECT_EQ(group(44), "1.5");
    EXPECT_EQ(evaluate("(equal (cdr (assoc 11 (entget (entlast)))) '(0 1 0) 1e-9)"), "T");
    EXPECT_EQ(group(10), "(1.0 2.0 0.0)");
}

TEST_F(ParagraphCommand, LongTextsComeInPieces)
{
    evaluate("(setq long \"0123456789\") (repeat 6 (setq long (strcat long long)))"); // 640 characters
    evaluate("(command \"_.-mtext\" '(0 0) \"_w\" 10 long \"\")");
    EXPECT_EQ(evaluate("(mapcar '(lambda (g) (strlen (cdr g))) (vl-remove-if-not '(lambda (g) (member (car g) '(1 3)))"
                       " (entget (entlast))))"),
              "(250 250 140)");
}

TEST_F(ParagraphCommand, WithoutALineThereIsNoText)
{
    evaluate("(command \"_.-mtext\" '(0 0) '(5 5) \"\")");
    EXPECT_TRUE(types().empty());
}

TEST_F(ParagraphCommand, WrongOptionsAreComplainedAbout)
{
    evaluate("(command \"_.-mtext\" '(0 0) \"_s\" \"none\")");
    EXPECT_EQ(takePrinted(), "\nText style \"none\" not found.\n");
    evaluate("(command \"_.-mtext\" '(0 0) \"_l\" \"\" \"9x\")");
    EXPECT_EQ(takePrinted(), "\nLine spacing must be between 0.25x and 4x.\n");
    evaluate("(command \"_.-mtext\" '(0 0) \"_h\" 0) (command)");
    EXPECT_EQ(takePrinted(), "\nValue must be positive and nonzero.\n");
}

} // namespace
