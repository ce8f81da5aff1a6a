#include "tests/interpreter/core/EvaluateText.h"

TEST(SpecialForms, setq)
{
    expectAll({
        {"(setq a 1 b 2)", "2"},
        {"(setq)", "nil"},
        {"(setq a)", "error: too few arguments"},
        {"(list (setq a 1 b (1+ a)) a b)", "(2 1 2)"},
    });
}

TEST(SpecialForms, conditions)
{
    expectAll({
        {"(if nil 1)", "nil"},
        {"(if 0 1 2)", "1"},
        {"(if (= 1 2) 1 2)", "2"},
        {"(progn (if T (setq a 5)) a)", "5"},
        {"(cond)", "nil"},
        {"(cond (nil 1) (5))", "5"},
        {"(cond ((setq x nil)) ((= 1 1) 2 3) (T 4))", "3"},
        {"(progn (cond (5) (6)) 7)", "7"},
        {"(and)", "T"},
        {"(or)", "nil"},
        {"(and 1 2)", "T"},
        {"(and 1 nil (car 5))", "nil"},
        {"(or nil 5)", "T"},
        {"(or nil nil)", "nil"},
        {"(if (or (= 1 2) (and (= 1 1) (< 1 2))) 'y 'n)", "Y"},
        {"(if (and (or nil nil) T) 'y 'n)", "N"},
        {"(if (not (and T T)) 'y 'n)", "N"},
        {"(setq a nil b 2) (if (and (not a) (or a b)) 'y 'n)", "Y"},
        {"(apply 'and (list 1 nil))", "nil"},
        {"(apply 'or (list nil 1))", "T"},
        {"(if 1)", "error: too few arguments"},
        {"(if 1 2 3 4)", "error: too many arguments"},
        {"(if nil (if) 'fine)", "FINE"},
    });
}

TEST(SpecialForms, loops)
{
    expectAll({
        {"(setq i 0) (while (< i 3) (setq i (1+ i)) (* i 10))", "30"},
        {"(while nil 1)", "nil"},
        {"(setq i 0) (while (< (setq i (1+ i)) 5)) i", "5"},
        {"(repeat 3 1 2)", "2"},
        {"(repeat 0 1)", "nil"},
        {"(repeat -5 1)", "nil"},
        {"(setq n 0) (repeat 4 (setq n (+ n 2))) n", "8"},
        {"(repeat \"x\" 1)", "error: bad argument type: fixnump: \"x\""},
        {"(foreach x '(1 2 3) (* x x))", "9"},
        {"(foreach x '(1 2))", "nil"},
        {"(foreach x nil 1)", "nil"},
        {"(setq x 'kept) (foreach x '(1 2) x) x", "KEPT"},
        {"(setq s nil) (foreach x '(1 2 3) (foreach y '(a b) (setq s (cons (cons x y) s)))) (length s)", "6"},
        {"(foreach x 5 x)", "error: bad argument type: listp 5"},
        {"(foreach x '(1 . 2) x)", "error: bad argument type: listp 2"},
        {"(list (repeat 2 'a) (foreach x '(1) x) (progn))", "(A 1 nil)"},
    });
}

TEST(SpecialForms, functions)
{
    expectAll({
        {"(defun f (x) x)", "F"},
        {"(defun f nil 5) (f)", "5"},
        {"(defun f (/ a) (setq a 1)) (f)", "1"},
        {"(defun f ())(f)", "nil"},
        {"(defun-q q (x) (list x x)) (list (q 1) q)", "((1 1) ((X) (LIST X X)))"},
        {"(apply (function (lambda (x) (* x 2))) '(4))", "8"},
        {"(apply (function +) '(1 2))", "3"},
        {"(mapcar '(lambda (x) (setq y x)) '(1 2)) y", "2"},
        {"(defun (x) 1)", "error: bad argument type: symbolp in defun"},
        {"(defun f (1) 1) (f)", "error: bad formal argument list"},
        {"(quote a)", "A"},
        {"(quote)", "error: too few arguments"},
        {"(list . 5)", "error: malformed list in a call"},
    });
}

TEST(SpecialForms, compiledOperandsAreReadInOrder)
{
    expectAll({
        {"(setq x 1) (list (+ x (setq x 5)) x)", "(6 5)"},
        {"(setq x 1) (list (+ (setq x 5) x) x)", "(10 5)"},
        {"(setq x 10) (< x (setq x 5))", "nil"},
        {"(setq x 3) (- 10 x)", "7"},
        {"(setq x 3 y 4) (list (+ x y) (- x y) (* x y) (+ x 1.5) (- 1.5 0.5))", "(7 -1 12 4.5 1.0)"},
        {"(+ 2147483646 3)", "-2147483647"},
        {"(- -2147483647 2)", "2147483647"},
        {"(* 65536 65536)", "0"},
        {"(1+ 2147483647)", "-2147483648"},
        {"(+ 1 \"a\")", "error: bad argument type: numberp: \"a\""},
        {"(if (< 1 'a) 1)", "error: bad argument type: numberp: A"},
    });
}

TEST(SpecialForms, argumentListsAreListsOfSymbols)
{
    expectAll({
        {"(defun f (1) 1)", "error: bad formal argument list"},
        {"(defun f x 1)", "error: bad formal argument list"},
        {"(defun f (a . b) 1)", "error: bad formal argument list"},
        {"(defun f (a nil) 1)", "error: bad formal argument list"},
        {"((lambda (\"a\") 1) 2)", "error: bad formal argument list"},
        {"(mapcar '(lambda 5 1) '(2))", "error: bad formal argument list"},
        {"(defun-q f (1) 1) (f 2)", "error: bad formal argument list"},
        {"(if nil (defun f (1) 1) 'fine)", "FINE"},
        {"'(lambda 5 6)", "(LAMBDA 5 6)"},
    });
}

TEST(SpecialForms, defunQKeepsAListThatProgramsCanChange)
{
    expectAll({
        {"(defun-q f (x) (* x 2)) (defun-q-list-ref 'f)", "((X) (* X 2))"},
        {"(defun-q f (x) (* x 2)) (defun-q-list-set 'f (append (defun-q-list-ref 'f) '((list x)))) (f 3)", "(3)"},
        {"(defun-q-list-set 'g '((x) x))", "G"},
        {"(defun f () 1) (defun-q-list-ref 'f)", "nil"},
        {"(defun-q-list-ref \"f\")", "error: bad argument type: symbolp \"f\""},
        {"(defun-q-list-set 'g 5)", "error: bad argument type: consp 5"},
    });
}
