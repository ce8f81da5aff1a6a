#include "tests/interpreter/core/EvaluateText.h"

#include "host/interpreter/Builtins.h"

#include <array>

TEST(Machine, bindsArgumentsAndLocalsDynamically)
{
    expectAll({
        {"(setq x 1) (defun show () x) (defun f (x) (show)) (list (f 2) x)", "(2 1)"},
        {"(setq y 5) (defun f (/ y) (setq y 7) y) (list (f) y)", "(7 5)"},
        {"(defun f (/ a) a) (setq a 3) (f)", "nil"},
        {"(defun f (a / a) a) (setq a 9) (list (f 1) a)", "(nil 9)"},
        {"(defun f (a a) a) (setq a 9) (list (f 1 2) a)", "(2 9)"},
        {"(defun f (a / helper) (defun helper () (1+ a)) (helper)) (list (f 1) helper)", "(2 nil)"},
        {"(setq f '(lambda (x) (* x x))) (f 5)", "25"},
        {"((lambda (x y) (- x y)) 10 4)", "6"},
    });
}

TEST(Machine, restoresBindingsAfterAnError)
{
    expectAll({
        {"(setq x 1) (defun f (x / y) (foreach x '(7 8) (car 5))) (vl-catch-all-apply 'f '(2)) (list x y)", "(1 nil)"},
        {"(setq i 9) (vl-catch-all-apply '(lambda () (foreach i '(1 2) (/ 1 0)))) i", "9"},
    });
}

TEST(Machine, checksTheNumberOfArguments)
{
    expectAll({
        {"(defun f (a) a) (f)", "error: too few arguments"},
        {"(defun f (a) a) (f 1 2)", "error: too many arguments"},
        {"(cons 1)", "error: too few arguments"},
        {"(strange-name 1)", "error: no function definition: STRANGE-NAME"},
        {"(setq n 5) (n)", "error: bad function: 5"},
        {"(1 2)", "error: bad function: 1"},
        {"(\"a\")", "error: bad function: \"a\""},
    });
}

TEST(Machine, recursesDeeply)
{
    expectAll({
        {"(defun f (n) (if (= n 0) 0 (1+ (f (1- n))))) (f 10000)", "10000"},
        {"(defun f (n) (if (= n 0) 0 (1+ (f (1- n))))) (f 500000)", "500000"},
        {"(defun f () (f)) (f)", "error: internal stack limit reached"},
        {"(defun f (x) (1+ (f (1+ x)))) (f 0)", "error: internal stack limit reached"},
        {"(defun f (x) (mapcar 'f (list x))) (f 0)", "error: internal stack limit reached"},
        {"(defun f (x) (apply 'f (list x))) (f 0)", "error: internal stack limit reached"},
        {"(defun f () (eval '(f))) (f)", "error: internal stack limit reached"},
        {"(defun f () (f)) (vl-catch-all-apply 'f) (+ 1 2)", "3"},
    });
}

TEST(Machine, endsDeepDataWithAnErrorInsteadOfACrash)
{
    expectAll({
        {"(setq a nil b nil) (repeat 5000000 (setq a (list a) b (list b))) (equal a b)",
         "error: internal stack limit reached"},
        {"(setq a '(1)) (repeat 5000000 (setq a (list 'list a))) (eval a)", "error: internal stack limit reached"},
    });
}

TEST(Machine, inlinedFunctionsCanBeRedefined)
{
    expectAll({
        {"(defun f (a b) (+ a b)) (defun + (a b) (list a b)) (f 1 2)", "(1 2)"},
        {"(defun f (a) (if (< a 5) 'less 'more)) (defun < (a b) nil) (f 1)", "MORE"},
        {"(defun f (l) (car l)) (defun g (car) (f car)) (vl-catch-all-error-p (vl-catch-all-apply 'g '((1))))", "T"},
        {"(defun f (x) (not x)) (setq not '(lambda (x) 7)) (f nil)", "7"},
        {"(defun f (x) (1+ x)) (defun 1+ (x) \"up\") (f 1)", "\"up\""},
        {"(defun f (a b) (cons a b)) (defun cons (a b) \"c\") (f 1 2)", "\"c\""},
        {"(defun f (a b) (if (eq a b) 1 2)) (defun eq (a b) T) (f 1 'x)", "1"},
    });
}

TEST(Machine, interruptStopsALoop)
{
    lisp::Machine machine;
    machine.interrupt();
    EXPECT_EQ(evaluateText(machine, "(while T nil)"), "error: Function cancelled");
    EXPECT_EQ(evaluateText(machine, "(+ 1 2)"), "3");
}

TEST(Machine, aSecondInterruptStopsAProgramThatCatchesTheFirst)
{
    lisp::Machine machine;
    EXPECT_EQ(machine.interrupt(), 1);
    EXPECT_EQ(evaluateText(machine, "(vl-catch-all-error-message (vl-catch-all-apply '(lambda () (while T))))"),
              "\"Function cancelled\"");
    EXPECT_EQ(machine.interrupt(), 2);
    EXPECT_EQ(evaluateText(machine, "(while T (vl-catch-all-apply '(lambda () (while T))))"),
              "error: Function cancelled");
    EXPECT_EQ(evaluateText(machine, "(defun *error* (m) (while T)) (while T)"), "error: Function cancelled");
    machine.clearInterrupts();
    EXPECT_EQ(evaluateText(machine, "(setq i 0) (while (< i 100000) (setq i (1+ i)))"), "100000");
}

TEST(Machine, stepLimitStopsLoopsAndRecursion)
{
    lisp::Machine machine;
    machine.setStepLimit(100000);
    EXPECT_EQ(evaluateText(machine, "(while T nil)"), "error: step limit reached");
    EXPECT_EQ(evaluateText(machine, "(while T (vl-catch-all-apply '(lambda () (while T nil))))"),
              "error: step limit reached");
    machine.setStepLimit(0);
    EXPECT_EQ(evaluateText(machine, "(setq i 0) (while (< i 300000) (setq i (1+ i)))"), "300000");
}

TEST(Machine, callAppliesAnyFunctionValue)
{
    lisp::Machine machine;
    evaluateText(machine, "(defun twice (x) (* 2 x)) (defun-q kept (x) (+ x 1))");
    const std::array arguments = {lisp::Value::integer(21)};
    EXPECT_EQ(machine.call(lisp::Value::symbol(machine.intern(u"twice")), arguments).asInteger(), 42);
    EXPECT_EQ(machine.call(lisp::Value::symbol(machine.intern(u"kept")), arguments).asInteger(), 22);
    EXPECT_EQ(machine.call(machine.intern(u"1+")->value, arguments).asInteger(), 22);
}

TEST(Machine, signaturesGiveTheNumberOfArguments)
{
    const auto range = [](const char *signature) {
        const lisp::ArgumentRange found = lisp::argumentRange(signature);
        return std::pair<std::uint32_t, std::uint32_t>(found.minimum, found.maximum);
    };
    const auto unlimited = std::numeric_limits<std::uint32_t>::max();
    EXPECT_EQ(range("(f)"), std::pair(0u, 0u));
    EXPECT_EQ(range("(f A B)"), std::pair(2u, 2u));
    EXPECT_EQ(range("(f A [B [C]])"), std::pair(1u, 3u));
    EXPECT_EQ(range("(f [A ...])"), std::pair(0u, unlimited));
    EXPECT_EQ(range("(f A B1 [B2 ...])"), std::pair(2u, unlimited));
}
