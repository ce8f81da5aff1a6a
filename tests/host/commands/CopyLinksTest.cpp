// Handles in extended data of what is copied together.

#include "tests/host/commands/CommandTest.h"

#include "host/drawing/Blocks.h"
#include "tests/host/drawing/Audit.h"

namespace {

// A line and a circle that lead to each other, and to a point that is not copied.
class CopyLinks : public CommandTest
{
protected:
    void SetUp() override
    {
        evaluate("(regapp \"TEST\") (command \"_.point\" '(9 9)) (setq stays (entlast))"
                 "(command \"_.line\" '(0 0) '(1 0) \"\") (setq a (entlast))"
                 "(command \"_.circle\" '(0 0) 1) (setq b (entlast))"
                 "(defun handle (e) (cdr (assoc 5 (entget e))))"
                 "(defun lead (from to) (entmod (append (entget from) (list (list -3 (list \"TEST\""
                 " (cons 1005 (handle to)) (cons 1005 (handle stays)) (cons 1000 (handle to))))))))"
                 "(defun led (e) (mapcar 'cdr (cdr (cadr (assoc -3 (entget e '(\"TEST\")))))))"
                 "(defun leads (from to text) (equal (led from) (list (handle to) (handle stays) text)))"
                 "(defun nth-last (n / e s) (setq s (ssget \"_X\")) (ssname s n))" // the newest is 0
                 "(lead a b) (lead b a) (setq ha (handle a) hb (handle b))");
    }
    // Whether the two newest entities lead to each other.
    std::string newestLeadToEachOther()
    {
        return evaluate("(setq circle (nth-last 0) line (nth-last 1))"
                        "(if (= \"LINE\" (cdr (assoc 0 (entget circle)))) (setq line circle circle (nth-last 1)))"
                        "(list (leads line circle hb) (leads circle line ha))");
    }
};

TEST_F(CopyLinks, CopiesLeadToEachOther)
{
    evaluate("(command \"_.copy\" a b \"\" '(0 0) '(5 0) \"\")");
    EXPECT_EQ(newestLeadToEachOther(), "(T T)");
    EXPECT_EQ(evaluate("(list (leads a b hb) (leads b a ha))"), "(T T)");
}

TEST_F(CopyLinks, ACopyWithoutTheOtherLeadsToTheOriginal)
{
    evaluate("(command \"_.copy\" a \"\" '(0 0) '(5 0) \"\")");
    EXPECT_EQ(evaluate("(leads (entlast) b hb)"), "T");
}

TEST_F(CopyLinks, EachItemOfAnArrayLeadsToItself)
{
    evaluate("(command \"_.array\" a b \"\" \"_r\" 1 3 10)");
    EXPECT_EQ(newestLeadToEachOther(), "(T T)");
    EXPECT_EQ(
        evaluate(
            "(list (leads (nth-last 2) (nth-last 3) (if (= \"LINE\" (cdr (assoc 0 (entget (nth-last 2))))) hb ha)))"),
        "(T)");
}

TEST_F(CopyLinks, WhatGoesIntoABlockAndComesOutOfItLeadsToItself)
{
    evaluate("(command \"_.-block\" \"Both\" '(0 0) a b \"\" \"_.-insert\" \"Both\" '(5 5) 2 1 30)");
    EXPECT_EQ(evaluate("(setq a1 (tblobjname \"BLOCK\" \"Both\") a1 (entnext a1) b1 (entnext a1))"
                       "(list (leads a1 b1 hb) (leads b1 a1 ha))"),
              "(T T)");
    evaluate("(command \"_.explode\" (entlast))"); // the circle becomes an ellipse
    EXPECT_EQ(newestLeadToEachOther(), "(T T)");
    evaluate("(command \"_.-insert\" \"*Both\" '(5 5) 1 0)");
    EXPECT_EQ(newestLeadToEachOther(), "(T T)");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

} // namespace
