#include "tests/interpreter/core/EvaluateText.h"

namespace {

lisp::LispError errorOf(lisp::Machine &machine, const std::string &source, const std::string &file)
{
    try {
        machine.load(wide(source), wide(file));
    } catch (const lisp::LispError &error) {
        return error;
    }
    ADD_FAILURE() << "no error";
    return lisp::LispError(u"none");
}

} // namespace

TEST(Errors, theBackTraceNamesFunctionFileAndLine)
{
    lisp::Machine machine;
    const lisp::LispError error = errorOf(machine,
                                          "(defun inner (x)\n"
                                          "  (car\n"
                                          "    x))\n"
                                          "(defun outer ()\n"
                                          "  (princ \"\")\n"
                                          "  (mapcar '(lambda (y)\n"
                                          "             (inner y))\n"
                                          "          '(5)))\n"
                                          "\n"
                                          "(outer)\n",
                                          "prog.lsp");
    EXPECT_EQ(narrow(error.message), "bad argument type: listp 5");
    EXPECT_EQ(narrow(lisp::traceText(error.trace)), "  in INNER at prog.lsp:2\n"
                                                    "  at prog.lsp:7\n"
                                                    "  in OUTER at prog.lsp:6\n"
                                                    "  at prog.lsp:10\n");
}

TEST(Errors, malformedSourceNamesFileLineAndColumn)
{
    lisp::Machine machine;
    const lisp::LispError error = errorOf(machine, "(setq a 1)\n  (foo", "bad.lsp");
    EXPECT_EQ(narrow(lisp::traceText(error.trace)), "  at bad.lsp:2:3\n");
}

TEST(Errors, longTracesShowRepeatedFramesOnce)
{
    lisp::Machine machine;
    const lisp::LispError error = errorOf(machine, "(defun f () (f)) (f)", "r.lsp");
    EXPECT_EQ(narrow(lisp::traceText(error.trace)), "  in F at r.lsp:1\n  ... 100 times\n");
}

TEST(Errors, catchAllGivesAnErrorObject)
{
    expectAll({
        {"(vl-catch-all-error-message (vl-catch-all-apply '/ '(50 0)))", "\"divide by zero\""},
        {"(vl-catch-all-error-p (vl-catch-all-apply '/ '(50 0)))", "T"},
        {"(vl-catch-all-apply '/ '(50 5))", "10"},
        {"(vl-catch-all-apply '(lambda () 7))", "7"},
        {"(vl-catch-all-error-message (vl-catch-all-apply 'exit))", "\"quit / exit abort\""},
        {"(vl-catch-all-error-p 5)", "nil"},
        {"(vl-catch-all-error-message 5)", "error: bad argument type: vl-catch-all-apply-error-p 5"},
    });
}

TEST(Errors, anUncaughtErrorCallsTheProgramsHandlerInTheScopeOfTheFailure)
{
    lisp::Machine machine;
    CollectingConsole console;
    machine.setConsole(&console);
    EXPECT_EQ(evaluateText(machine, "(defun f (x / *error*)"
                                    "  (defun *error* (m) (princ (list m x)))"
                                    "  (car x))"
                                    "(setq x 'outside) (f 5)"),
              "error: bad argument type: listp 5");
    EXPECT_EQ(console.text(), "(bad argument type: listp 5 5)");
    EXPECT_EQ(evaluateText(machine, "(list x *error*)"), "(OUTSIDE nil)");
}

TEST(Errors, theHandlerIsCalledOnceAndNotForCaughtErrors)
{
    lisp::Machine machine;
    CollectingConsole console;
    machine.setConsole(&console);
    evaluateText(machine, "(defun *error* (m) (princ m) (princ \"|\"))");
    evaluateText(machine, "(vl-catch-all-apply 'car '(1))");
    EXPECT_EQ(console.text(), "");
    evaluateText(machine, "(mapcar '(lambda (x) (apply 'car (list x))) '(1))");
    EXPECT_EQ(console.text(), "bad argument type: listp 1|");
    evaluateText(machine, "(exit)");
    EXPECT_EQ(console.text(), "bad argument type: listp 1|quit / exit abort|");
}

TEST(Errors, anErrorInTheHandlerIsReportedAndEndsThere)
{
    lisp::Machine machine;
    const lisp::LispError error = errorOf(machine, "(defun *error* (m) (/ 1 0)) (car 1)", "");
    EXPECT_EQ(narrow(error.message), "bad argument type: listp 1");
    EXPECT_EQ(narrow(error.handlerFailure), "divide by zero");
}

TEST(Errors, leavingIsAnErrorOfItsOwnKind)
{
    lisp::Machine machine;
    EXPECT_EQ(errorOf(machine, "(quit)", "").kind, lisp::LispError::Kind::Exit);
    EXPECT_EQ(errorOf(machine, "(car 1)", "").kind, lisp::LispError::Kind::Failure);
}

TEST(Errors, theHandlerStillRunsWhenTheStacksAreFull)
{
    for (const char *endless : {"(defun f () (1+ (f)))", "(defun f () (apply 'f nil))", "(defun f () (eval '(f)))"}) {
        lisp::Machine machine;
        CollectingConsole console;
        machine.setConsole(&console);
        evaluateText(machine, "(defun *error* (m) (mapcar 'princ (list \"<\" m \">\")))");
        evaluateText(machine, endless);
        EXPECT_EQ(evaluateText(machine, "(f)"), "error: internal stack limit reached") << endless;
        EXPECT_EQ(evaluateText(machine, "(f)"), "error: internal stack limit reached") << endless;
        EXPECT_EQ(console.text(), "<internal stack limit reached><internal stack limit reached>") << endless;
    }
}

TEST(Errors, aHandlerThatRecursesWithoutEndFailsToo)
{
    lisp::Machine machine;
    const lisp::LispError error = errorOf(machine, "(defun *error* (m) (*error* m)) (defun f () (f)) (f)", "");
    EXPECT_EQ(narrow(error.message), "internal stack limit reached");
    EXPECT_EQ(narrow(error.handlerFailure), "internal stack limit reached");
}

TEST(Errors, theHandlerStillRunsWhenMemoryIsUsedUp)
{
    lisp::Machine machine;
    CollectingConsole console;
    machine.setConsole(&console);
    machine.heap().setLimit(32 * 1024 * 1024);
    const lisp::LispError error =
        errorOf(machine,
                "(defun *error* (m) (princ (strcat \"<\" m (itoa (length (list m))) \">\")))\n"
                "(defun fill (/ l)\n"
                "  (while T (setq l (cons 1 l))))\n"
                "(fill)",
                "fill.lsp");
    EXPECT_EQ(narrow(error.message), "out of memory");
    EXPECT_EQ(narrow(lisp::traceText(error.trace)), "  in FILL at fill.lsp:3\n  at fill.lsp:4\n");
    EXPECT_EQ(narrow(error.handlerFailure), "");
    EXPECT_EQ(console.text(), "<out of memory1>");
}

TEST(Errors, aFormThatCannotBeCompiledNamesFileAndLineAndCallsTheHandler)
{
    lisp::Machine machine;
    CollectingConsole console;
    machine.setConsole(&console);
    std::string deep;
    for (int i = 0; i < 2'000'000; ++i)
        deep += "(list ";
    const lisp::LispError error =
        errorOf(machine, "(defun *error* (m) (princ m))\n\n" + deep + std::string(2'000'000, ')'), "deep.lsp");
    EXPECT_EQ(narrow(error.message), "internal stack limit reached");
    EXPECT_EQ(narrow(lisp::traceText(error.trace)), "  at deep.lsp:3\n");
    EXPECT_EQ(console.text(), "internal stack limit reached");
}
