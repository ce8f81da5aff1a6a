#include "tests/host/commands/CommandTest.h"

namespace {

class Coordinates : public CommandTest
{
};

TEST_F(Coordinates, transGoesBetweenTheWorldAndTheUser)
{
    evaluate("(command \"_.ucs\" \"_o\" \"10,20\" \"_.ucs\" \"_z\" 90)");
    EXPECT_EQ(evaluate("(mapcar '(lambda (n) (rtos n 2 4)) (trans '(1 2 3) 1 0))"),
              "(\"8.0000\" \"21.0000\" \"3.0000\")");
    EXPECT_EQ(evaluate("(mapcar '(lambda (n) (rtos n 2 4)) (trans '(8 21 3) 0 1))"),
              "(\"1.0000\" \"2.0000\" \"3.0000\")");
    EXPECT_EQ(evaluate("(mapcar '(lambda (n) (rtos n 2 4)) (trans '(1 2 3) 1 0 t))"),
              "(\"-2.0000\" \"1.0000\" \"3.0000\")");
    EXPECT_EQ(evaluate("(trans '(1 2 3) 0 0)"), "(1.0 2.0 3.0)");
}

TEST_F(Coordinates, transOfTwoCoordinatesLiesAtTheElevation)
{
    evaluate("(setvar \"ELEVATION\" 4)");
    EXPECT_EQ(evaluate("(trans '(1 2) 1 0)"), "(1.0 2.0 4.0)");
    EXPECT_EQ(evaluate("(trans '(1 2) 0 1)"), "(1.0 2.0 0.0)");
}

TEST_F(Coordinates, transKnowsTheSystemOfAnEntity)
{
    EXPECT_EQ(evaluate("(trans '(1 2 3) '(0 0 -1) 0)"), "(-1.0 2.0 -3.0)");
    evaluate("(entmake '((0 . \"CIRCLE\") (10 1 2 3) (40 . 1) (210 0 0 -1)))");
    EXPECT_EQ(evaluate("(trans '(1 2 3) (entlast) 0)"), "(-1.0 2.0 -3.0)");
    evaluate("(entmake '((0 . \"LINE\") (10 1 2 3) (11 4 5 6) (210 0 0 -1)))");
    EXPECT_EQ(evaluate("(trans '(1 2 3) (entlast) 0)"), "(1.0 2.0 3.0)");
}

TEST_F(Coordinates, transSeesFromAbove)
{
    EXPECT_EQ(evaluate("(trans '(1 2 3) 0 2)"), "(1.0 2.0 3.0)");
    EXPECT_EQ(evaluate("(trans '(1 2 3) 0 3)"), "error: bad argument value: coordinate system 3");
    EXPECT_EQ(evaluate("(trans '(1 2 3) 0 \"x\")"), "error: bad argument type: lentityp \"x\"");
    EXPECT_EQ(evaluate("(trans 5 0 1)"), "error: bad argument type: point: 5");
}

TEST_F(Coordinates, textboxMeasuresATextFromItsInsertionPoint)
{
    evaluate("(setq b (textbox '((0 . \"TEXT\") (1 . \"HHH\") (10 50 60 0) (40 . 2.0) (50 . 1.0))))");
    EXPECT_EQ(evaluate("(rtos (cadadr b) 2 3)"), "\"2.000\"");
    EXPECT_EQ(evaluate("(and (< -0.1 (caar b) 1) (< 2 (caadr b) 10))"), "T");
    EXPECT_EQ(evaluate("(< (caadr b) (caadr (textbox '((1 . \"HHHHHH\") (40 . 2.0)))))"), "T");
    EXPECT_EQ(evaluate("(equal (* 2 (caadr b)) (caadr (textbox '((1 . \"HHH\") (40 . 2.0) (41 . 2.0)))) 1e-9)"), "T");
    EXPECT_EQ(evaluate("(< (cadar (textbox '((1 . \"gp\") (40 . 2.0)))) 0)"), "T");
    EXPECT_EQ(evaluate("(textbox '((0 . \"LINE\") (1 . \"x\")))"), "nil");
    EXPECT_EQ(evaluate("(textbox '((0 . \"TEXT\")))"), "nil");
}

class NestedPicks : public CommandTest
{
protected:
    NestedPicks()
    {
        evaluate("(command \"_.line\" \"0,0\" \"4,0\" \"\") (command \"_.-block\" \"inner\" \"0,0\" (entlast) \"\")"
                 "(command \"_.-insert\" \"inner\" \"0,0\" 1 1 90) (setq i (entlast))"
                 "(command \"_.-block\" \"outer\" \"0,0\" i \"\")"
                 "(command \"_.-insert\" \"outer\" \"10,20\" 2 2 0) (setq o (entlast))");
    }
};

TEST_F(NestedPicks, GiveTheEntityInTheBlocksAndTheMatrixToTheWorld)
{
    evaluate("(setq p (nentselp '(10 25)) m (caddr p))");
    EXPECT_EQ(evaluate("(cdr (assoc 0 (entget (car p))))"), "\"LINE\"");
    EXPECT_EQ(evaluate("(cadr p)"), "(10.0 25.0 0.0)");
    EXPECT_EQ(
        evaluate("(mapcar '(lambda (r) (mapcar '(lambda (n) (rtos n 2 1)) r)) m)"),
        "((\"0.0\" \"-2.0\" \"0.0\" \"10.0\") (\"2.0\" \"0.0\" \"0.0\" \"20.0\") (\"0.0\" \"0.0\" \"2.0\" \"0.0\") "
        "(\"0.0\" \"0.0\" \"0.0\" \"1.0\"))");
    EXPECT_EQ(evaluate("(length (cadddr p))"), "2");
    EXPECT_EQ(evaluate("(eq (cadr (cadddr p)) o)"), "T");
}

TEST_F(NestedPicks, HaveRowsOfTheirOwnWhereAPersonPicks)
{
    m_services.answers = AnswersFile::fromText(u"10,25\n", QString());
    EXPECT_EQ(
        evaluate("(mapcar '(lambda (r) (mapcar '(lambda (n) (rtos n 2 1)) r)) (caddr (nentsel)))"),
        "((\"0.0\" \"2.0\" \"0.0\") (\"-2.0\" \"0.0\" \"0.0\") (\"0.0\" \"0.0\" \"2.0\") (\"10.0\" \"20.0\" \"0.0\"))");
}

TEST_F(NestedPicks, OutsideOfBlocksAreAsOthers)
{
    evaluate("(command \"_.line\" \"100,0\" \"104,0\" \"\")");
    EXPECT_EQ(evaluate("(equal (nentselp '(101 0)) (list (entlast) '(101.0 0.0 0.0)))"), "T");
    EXPECT_EQ(evaluate("(nentselp '(150 50))"), "nil");
}

TEST_F(NestedPicks, OfOldPolylinesGiveTheVertex)
{
    evaluate("(setvar \"PLINETYPE\" 0) (command \"_.pline\" \"200,0\" \"210,0\" \"210,10\" \"\")");
    EXPECT_EQ(evaluate("(setq p (nentselp '(210 5))) (cdr (assoc 10 (entget (car p))))"), "(210.0 0.0 0.0)");
    EXPECT_EQ(evaluate("(length p)"), "2");
}

} // namespace
