#include "tests/interpreter/core/EvaluateText.h"

#include "host/interpreter/Printer.h"

TEST(Printer, printsWhatCanBeReadAgain)
{
    expectAll({
        {"'(1 2.5 \"a\" b (c . d) nil t)", "(1 2.5 \"a\" B (C . D) nil T)"},
        {"'(quote x)", "(QUOTE X)"},
        {"\"\\002\\177\"", "\"\\002\\177\""},
        {"car", "#<SUBR CAR>"},
        {"(defun f (x) x) f", "#<USUBR F>"},
        {"(lambda (x) x)", "#<USUBR>"},
        {"(vl-catch-all-apply 'car '(1))", "#<%catch-all-apply-error%>"},
    });
}

TEST(Printer, plainStyleShowsStringsAsTheyAre)
{
    lisp::Machine machine;
    CollectingConsole console;
    machine.setConsole(&console);
    EXPECT_EQ(
        evaluateText(machine, "(princ \"a\\\"b\\n\") (prin1 \"a\\\"b\\n\") (print 'x) (princ '(\"in\" list)) nil"),
        "nil");
    EXPECT_EQ(console.text(), "a\"b\n\"a\\\"b\\n\"\nX (in LIST)");
}

TEST(Printer, printsDeepNestingWithoutRecursion)
{
    lisp::Machine machine;
    EXPECT_EQ(evaluateText(machine, "(setq x nil) (repeat 1000000 (setq x (list x))) (setq n (type x))"), "LIST");
    EXPECT_EQ(lisp::printed(machine.intern(u"X")->value).size(), 2u * 1000000 + 3);
}

TEST(Printer, theNullSymbolPrintsAsNothing)
{
    EXPECT_EQ(evaluateText("(princ)"), "");
    EXPECT_EQ(evaluateText("(list (princ))"), "()");
}
