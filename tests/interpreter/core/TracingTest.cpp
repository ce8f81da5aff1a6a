#include "tests/interpreter/core/EvaluateText.h"

namespace {

class Tracing : public testing::Test
{
protected:
    // The last value, and behind it what was printed on the way.
    std::string shown(const std::string &source)
    {
        CollectingConsole console;
        m_machine.setConsole(&console);
        const std::string value = evaluateText(m_machine, source);
        m_machine.setConsole(nullptr);
        return value + console.text();
    }

    lisp::Machine m_machine;
};

} // namespace

TEST_F(Tracing, showsEntriesAndResultsOfNestedCalls)
{
    evaluateText(m_machine, "(defun fact (n) (if (< n 2) 1 (* n (fact (1- n)))))");
    EXPECT_EQ(shown("(trace fact)"), "FACT");
    EXPECT_EQ(shown("(fact 3)"), "6\nEntering (FACT 3)"
                                 "\n  Entering (FACT 2)"
                                 "\n    Entering (FACT 1)"
                                 "\n    Result: 1"
                                 "\n  Result: 2"
                                 "\nResult: 6");
    EXPECT_EQ(shown("(untrace fact)"), "FACT");
    EXPECT_EQ(shown("(fact 3)"), "6");
}

TEST_F(Tracing, takesUnquotedNamesAndGivesTheLast)
{
    EXPECT_EQ(shown("(defun f () 1) (defun g () 2) (trace f g)"), "G");
    EXPECT_EQ(shown("(untrace g f)"), "F");
    EXPECT_EQ(shown("(trace)"), "nil");
    EXPECT_EQ(shown("(untrace)"), "nil");
    EXPECT_EQ(shown("(list (trace f) (progn (trace g) 5) (apply 'untrace '(f g)))"), "(F 5 G)");
    EXPECT_EQ(shown("(list (f) (g))"), "(1 2)");
}

TEST_F(Tracing, tracesBuiltInFunctionsAlsoWhereTheCompilerInlinesThem)
{
    EXPECT_EQ(shown("(defun f (l) (car l)) (trace car strcat) (f '(\"a\"))"),
              "\"a\"\nEntering (CAR (\"a\"))\nResult: \"a\"");
    EXPECT_EQ(shown("(mapcar 'strcat '(\"b\"))"), "(\"b\")\nEntering (STRCAT \"b\")\nResult: \"b\"");
    EXPECT_EQ(shown("(untrace car strcat) (f '(1))"), "1");
}

TEST_F(Tracing, isNotSeenByPrograms)
{
    EXPECT_EQ(shown("(defun f () 1) (trace f car) (list (type f) (type car) f car (boundp 'f))"),
              "(USUBR SUBR #<USUBR F> #<SUBR CAR> T)");
    EXPECT_EQ(shown("(trace car) (untrace car) (car '(1))"), "1"); // tracing twice is tracing once
}

TEST_F(Tracing, followsListFunctionsAndLosesWhatIsDefinedAnew)
{
    EXPECT_EQ(shown("(defun-q q (x) (list x)) (trace q) (q 1)"), "(1)\nEntering (Q 1)\nResult: (1)");
    EXPECT_EQ(shown("(defun q (x) x) (q 1)"), "1");
    EXPECT_EQ(shown("(untrace q) (q 1)"), "1");
}

TEST_F(Tracing, goesBackToTheMarginAfterAnError)
{
    EXPECT_EQ(shown("(defun f (x) (car x)) (trace f) (vl-catch-all-apply 'f '(1)) (f '(2))"),
              "2\nEntering (F 1)\nEntering (F (2))\nResult: 2");
    EXPECT_EQ(shown("(f)"), "error: too few arguments\nEntering (F)");
}

TEST_F(Tracing, survivesCollections)
{
    EXPECT_EQ(shown("(setq f (eval '(lambda (x) (strcat x \"z\")))) (trace f) (gc) (repeat 3 (gc)) (f \"a\")"),
              "\"az\"\nEntering (F \"a\")\nResult: \"az\"");
    EXPECT_EQ(shown("(defun g (x) (untrace g) (setq g nil) (gc) (list x x)) (trace g) (g 1)"),
              "(1 1)\nEntering (G 1)\nResult: (1 1)");
}

TEST_F(Tracing, endlessRecursionIsAnError)
{
    EXPECT_EQ(evaluateText(m_machine, "(defun f () (f)) (trace f) (f)"), "error: internal stack limit reached");
}

TEST_F(Tracing, onlyFunctionsCanBeTraced)
{
    EXPECT_EQ(shown("(trace nosuch)"), "error: no function definition: NOSUCH");
    EXPECT_EQ(shown("(setq v 5) (trace v)"), "error: bad function: 5");
    EXPECT_EQ(shown("(trace \"car\")"), "error: bad argument type: symbolp \"car\"");
    EXPECT_EQ(shown("(trace if)"), "error: cannot trace a special form: IF");
    EXPECT_EQ(shown("(if nil 1 2)"), "2");
    EXPECT_EQ(shown("(untrace nosuch v)"), "V");
}
