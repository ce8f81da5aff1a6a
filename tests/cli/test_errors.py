import unittest

from lisphost import LispHostTest

NESTED_CALLS = """\
(defun inner (x)
  (setq x (1+ x))
  (/ x 0))

(defun outer (x)
  (+ 1
     (inner x)))

(princ "before")
(outer 5)
"""


class BackTrace(LispHostTest):
    def test_names_function_file_and_line_of_each_frame_innermost_first(self):
        outcome = self.run_program(NESTED_CALLS)
        self.assertEqual((outcome.status, outcome.output.rstrip("\n")), (1, "before"))
        self.assertRegex(outcome.errors, r"^error: divide by zero\n"
                                         r".*INNER.*program\.lsp:3\b.*\n"
                                         r".*OUTER.*program\.lsp:[67]\b.*\n"
                                         r".*program\.lsp:10\b.*\n$")

    def test_goes_through_functions_that_call_functions(self):
        outcome = self.run_program("(defun half (n)\n  (/ n 0))\n(defun all (numbers)\n  (mapcar 'half numbers))\n"
                                   "(all '(1 2))\n")
        self.assertRegex(outcome.errors, r"(?s)HALF.*program\.lsp:2\b.*ALL.*program\.lsp:4\b.*program\.lsp:5\b")

    def test_names_the_file_that_each_frame_comes_from(self):
        self.write("library.lsp", "(defun fail ()\n\n  (car 1))\n")
        outcome = self.run_program('(load "library.lsp")\n(fail)\n')
        self.assertRegex(outcome.errors, r"(?s)FAIL.*library\.lsp:3\b.*program\.lsp:2\b")

    def test_endless_recursion_is_an_error_whose_trace_stays_short(self):
        outcome = self.run_program("(defun down (n)\n  (1+ (down n)))\n(down 1)\n")
        self.assert_fails(outcome, 1, r"^error: .*\n(.*\n)*.*DOWN.*program\.lsp:2\b")
        self.assertLess(len(outcome.errors.splitlines()), 100)

    def test_recursion_10000_deep_works(self):
        outcome = self.run_program("(defun deep (n) (if (zerop n) 0 (1+ (deep (1- n)))))\n(princ (deep 10000))")
        self.assert_gives(outcome, "10000")


class Messages(LispHostTest):
    def test_are_those_that_programs_know(self):
        for expression, message in {
            "(/ 1 0)": "divide by zero",
            "(no-such-function)": "no function definition: NO-SUCH-FUNCTION",
            "(car 1)": "bad argument type: listp 1",
            '(1+ "a")': 'bad argument type: numberp: "a"',
            "(strlen 1)": "bad argument type: stringp 1",
            "((lambda (a) a))": "too few arguments",
            "((lambda (a) a) 1 2)": "too many arguments",
        }.items():
            with self.subTest(expression):
                self.assertEqual(self.evaluate(expression).errors.splitlines()[0], "error: " + message)


class MalformedSource(LispHostTest):
    def test_names_file_line_and_column(self):
        for text in ("(setq a 1)\n  (princ a))\n", "(princ 1)\n(princ\n", '(princ 1)\n  (princ "open)\n'):
            with self.subTest(text):
                self.assert_fails(self.run_program(text), 1, r"^error: (.*\n)*.*program\.lsp:2:\d+")


unittest.main()
