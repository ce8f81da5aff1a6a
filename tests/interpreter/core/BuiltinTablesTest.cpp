// The families that stand in the core: lists, numbers, comparison, geometry, functions, sequences, symbols.

#include "tests/interpreter/core/EvaluateText.h"

TEST(Builtins, lists)
{
    expectAll({
        {"(cons 1 (cons 2 3))", "(1 2 . 3)"},
        {"(list (car nil) (cdr nil) (car '(1)) (cdr '(1 . 2)))", "(nil nil 1 2)"},
        {"(car 5)", "error: bad argument type: listp 5"},
        {"(list (cadr '(1 2)) (caddr '(1 2 3)) (cddr '(1 2 3)) (caar '((1))) (cdar '((1 2))) (cadddr '(1 2 3 4)))",
         "(2 3 (3) 1 (2) 4)"},
        {"(list (cadar '((1 2))) (caadr '(1 (2))) (cdadr '(1 (2 3))) (cdddr '(1 2 3 4)))", "(2 2 (3) (4))"},
        {"(cadr '(1 . 2))", "error: bad argument type: listp 2"},
        {"(append '(1) nil '(2 3) '((4)))", "(1 2 3 (4))"},
        {"(append '(1) 2)", "error: bad argument type: listp 2"},
        {"(append)", "nil"},
        {"(assoc 2.0 '((1 . a) (2 . b)))", "(2 . B)"},
        {"(assoc \"b\" '((\"a\" 1) (\"b\" 2)))", "(\"b\" 2)"},
        {"(assoc 'x nil)", "nil"},
        {"(member '(1) '(0 (1) 2))", "((1) 2)"},
        {"(length '(1 2 3))", "3"},
        {"(length '(1 . 2))", "error: bad argument type: proper list (1 . 2)"},
        {"(vl-list-length '(1 . 2))", "nil"},
        {"(list (nth 0 '(a b)) (nth 2 '(a b)))", "(A nil)"},
        {"(nth -1 '(a))", "error: bad argument type: fixnump: -1"},
        {"(list (last '(1 2 3)) (last nil))", "(3 nil)"},
        {"(reverse '(1 2 3))", "(3 2 1)"},
        {"(subst 'new 'old '(a old (old) old))", "(A NEW (OLD) NEW)"},
        {"(vl-remove 1 '(1 2 1.0 3))", "(2 3)"},
        {"(vl-position 'b '(a b c))", "1"},
        {"(vl-list* 1 2 '(3))", "(1 2 3)"},
        {"(vl-list* 'a 'b)", "(A . B)"},
        {"(list (listp nil) (listp '(1)) (listp 1) (vl-consp nil) (atom nil) (atom '(1)) (null nil) (not 1))",
         "(T T nil nil T nil T nil)"},
    });
}

TEST(Builtins, numbers)
{
    expectAll({
        {"(list (+) (-) (*) (/) (max) (min) (rem))", "(0 0 0 0 0 0 0)"},
        {"(list (- 5) (/ 4) (/ 12 5) (/ 100 20.0 2))", "(-5 4 2 2.5)"},
        {"(+ 1 2 3.5)", "6.5"},
        {"(- 10 1 2)", "7"},
        {"(/ 1 0)", "error: divide by zero"},
        {"(/ 1.0 0)", "error: divide by zero"},
        {"(/ (- -2147483647 1) -1)", "-2147483648"},
        {"(list (rem 26 7 2) (rem 12.0 16) (rem -7 3) (rem (- -2147483647 1) -1))", "(1 12.0 -1 0)"},
        {"(rem 5 0)", "error: divide by zero"},
        {"(list (max 2.1 4 8) (min 3 1 2) (max 3))", "(8.0 1 3)"},
        {"(list (abs -5) (abs -2.5) (fix 3.9) (fix -3.9) (fix 5000000000.7) (float 3))", "(5 2.5 3 -3 5.0e+09 3.0)"},
        {"(list (gcd 81 57) (gcd 12 20) (sqrt 4) (expt 2 4) (expt 3.0 2.0) (expt 2 -1))", "(3 4 2.0 16 9.0 0.5)"},
        {"(list (sin 0) (cos 0) (atan 1 1) (atan 0.5) (exp 0) (log 1))", "(0.0 1.0 0.785398 0.463648 1.0 0.0)"},
        {"(sqrt -1)", "error: function undefined for argument"},
        {"(list (zerop 0.0) (zerop 1) (minusp -1) (minusp 0.5) (numberp 1) (numberp \"1\"))", "(T nil T nil T nil)"},
        {"(list (logand 7 15 3) (logior 1 2 4) (~ 3) (lsh 2 1) (lsh 2 -1) (lsh 40 2) (lsh 1 40))",
         "(3 7 -4 4 1 160 0)"},
        {"(list (boole 1 12 5) (boole 6 6 5) (boole 7 6 5) (boole 8 6 5))", "(4 3 7 -8)"},
        {"(list (1+ 5) (1- 5) (1+ 0.5))", "(6 4 1.5)"},
        {"(+ 1 2 \"x\")", "error: bad argument type: numberp: \"x\""},
        {"pi", "3.14159"},
    });
}

TEST(Builtins, comparison)
{
    expectAll({
        {"(list (= 4 4.0) (= 20 388) (= 499 499 500) (= \"me\" \"me\") (= \"me\" \"you\"))", "(T nil nil T nil)"},
        {"(list (/= 10 20 10 20) (/= 5 5) (/= \"a\" \"b\"))", "(T nil T)"},
        {"(list (< 1 2 3) (< 1 3 2) (< \"a\" \"b\") (<= 1 1 2) (> 3 2 1) (>= 3 3 1) (< 5))", "(T nil T T T T T)"},
        {"(< 1 'a)", "error: bad argument type: numberp: A"},
        {"(list (= 'a 'a) (= nil nil) (= 'a 1))", "(T T nil)"},
        {"(setq f1 '(a b) f2 '(a b) f3 f2) (list (eq f1 f3) (eq f3 f2) (equal f1 f3))", "(nil T T)"},
        {"(list (eq \"a\" \"a\") (eq 1 1) (eq 'x 'x))", "(T T T)"},
        {"(equal 1.123456 1.123457 0.000001)", "T"},
        {"(list (equal 1.1 1.2) (equal 1.1 1.15 0.1) (equal '(1 (2.0)) '(1 (2))) (equal '(1 2) '(1 2 3)))",
         "(nil T T nil)"},
        {"(equal '(1.0 (2.0 . 3.0)) '(1.01 (2.01 . 3.01)) 0.1)", "T"},
    });
}

TEST(Builtins, geometry)
{
    expectAll({
        {"(angle '(1 1) '(1 4))", "1.5708"},
        {"(angle '(5.0 1.33) '(2.4 1.33))", "3.14159"},
        {"(angle '(0 0) '(0 -1))", "4.71239"},
        {"(distance '(1.0 2.5 3.0) '(7.7 2.5 3.0))", "6.7"},
        {"(distance '(1.0 2.0 0.5) '(3.0 4.0))", "2.82843"},
        {"(polar '(1 1 3.5) 0.785398 1.414214)", "(2.0 2.0 3.5)"},
        {"(inters '(1.0 1.0) '(9.0 9.0) '(4.0 1.0) '(4.0 2.0))", "nil"},
        {"(inters '(1.0 1.0) '(9.0 9.0) '(4.0 1.0) '(4.0 2.0) nil)", "(4.0 4.0)"},
        {"(inters '(0 0 0) '(2 2 0) '(0 2 0) '(2 0 0))", "(1.0 1.0 0.0)"},
        {"(inters '(0 0) '(1 1) '(1 0) '(2 1) nil)", "nil"},
        {"(distance '(1) '(1 2))", "error: bad argument type: point: (1)"},
    });
}

TEST(Builtins, functionsAndSequences)
{
    expectAll({
        {"(apply '+ '(1 2 3))", "6"},
        {"(apply 'strange nil)", "error: no function definition: STRANGE"},
        {"(eval '(+ 1 2))", "3"},
        {"(setq a 'b b 7) (eval a)", "7"},
        {"(mapcar '+ '(1 2 3) '(10 20))", "(11 22)"},
        {"(mapcar 'list nil)", "nil"},
        {"(vl-every '= '(1 2) '(1 2))", "T"},
        {"(vl-every 'numberp '(1 a))", "nil"},
        {"(vl-some '(lambda (x) (if (> x 2) x)) '(1 3 5))", "3"},
        {"(vl-remove-if 'numberp '(1 a 2 b))", "(A B)"},
        {"(vl-remove-if-not 'numberp '(1 a 2 b))", "(1 2)"},
        {"(vl-member-if 'numberp '(a 1 b))", "(1 B)"},
        {"(vl-member-if-not 'numberp '(1 a 2))", "(A 2)"},
        {"(vl-sort '(3 2 1 3) '<)", "(1 2 3)"},
        {"(vl-sort '(\"b\" \"a\" \"b\") '<)", "(\"a\" \"b\" \"b\")"},
        {"(vl-sort '((1 3) (2 2) (3 2)) '(lambda (a b) (< (cadr a) (cadr b))))", "((2 2) (3 2) (1 3))"},
        {"(length (vl-sort '(3 1 2) '(lambda (a b) T)))", "3"},
        {"(vl-sort-i '(3 2 1 3) '<)", "(2 1 3 0)"},
        {"(read \"(a b) c\")", "(A B)"},
        {"(read)", "nil"},
        {"(read \"\")", "nil"},
        {"(read \"(a\")", "error: malformed list on input"},
    });
}

TEST(Builtins, aSortFunctionThatIsNoOrderStillGivesAPermutation)
{
    EXPECT_EQ(
        evaluateText("(setq l nil i 0) (repeat 1000 (setq i (1+ i) l (cons (list i) l)))"
                     "(apply '+ (mapcar 'car (vl-sort l '(lambda (a b) (= 0 (rem (+ (* 7 (car a)) (car b)) 3))))))"),
        "500500");
}

TEST(Builtins, symbols)
{
    expectAll({
        {"(mapcar 'type (list 1 1.0 \"a\" 'a '(1) nil car))", "(INT REAL STR SYM LIST nil SUBR)"},
        {"(defun f () 1) (type f)", "USUBR"},
        {"(set 'x 5) x", "5"},
        {"(set (quote y) 'z) (set y 3) z", "3"},
        {"(set 5 1)", "error: bad argument type: symbolp 5"},
        {"(setq b 1) (list (boundp 'b) (boundp 'unknown-thing) (boundp 'car))", "(T nil T)"},
        {"(vl-symbol-name 'abc)", "\"ABC\""},
        {"(setq v 4) (vl-symbol-value 'v)", "4"},
        {"(list (vl-symbolp 'a) (vl-symbolp \"a\"))", "(T nil)"},
        {"(atoms-family 1 '(\"car\" \"no-such-thing\"))", "(\"CAR\" nil)"},
        {"(if (member 'CAR (atoms-family 0)) 1)", "1"},
    });
}
