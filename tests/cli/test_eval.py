import unittest

from lisphost import FOLDER, LispHostTest, native, quoted


class Eval(LispHostTest):
    def test_prints_each_value_readably_on_a_line_of_its_own(self):
        self.assert_gives(self.evaluate("(+ 1 2)", '"a\\tb"', "'(1 2.5 x)"), '3\n"a\\tb"\n(1 2.5 X)\n')

    def test_one_argument_may_hold_several_expressions(self):
        self.assert_gives(self.evaluate("(setq a 4) (* a a)"), "4\n16\n")

    def test_a_value_starts_on_a_fresh_line(self):
        self.assert_gives(self.evaluate('(princ "x")', '(progn (princ "y\n") 1)'), 'x\n"x"\ny\n1\n')

    def test_the_null_symbol_prints_as_nothing(self):
        self.assert_gives(self.evaluate("(princ)", "nil"), "nil\n")

    def test_definitions_last_from_one_expression_to_the_next(self):
        self.assert_gives(self.evaluate("(defun twice (n) (* 2 n))", "(twice 21)"), "TWICE\n42\n")

    def test_an_error_ends_the_run(self):
        outcome = self.evaluate("(+ 1 1)", "(/ 1 0)", '(princ "not reached")')
        self.assert_fails(outcome, 1, "^error: divide by zero\n")
        self.assertEqual(outcome.output, "2\n")

    def test_an_open_parenthesis_is_an_error(self):
        self.assert_fails(self.evaluate("(+ 1 2"), 1, "^error: ")

    def test_a_failure_that_is_a_result_is_no_message(self):
        self.assert_gives(self.evaluate('(acet-file-remove "")'), "0\n")

    def test_modules_know_the_folder_of_the_program(self):
        self.assert_gives(self.evaluate("(acet-filename-acad-root)"), quoted(native(FOLDER) + "\\") + "\n")

    def test_no_expression_is_a_usage_error(self):
        self.assert_fails(self.lisphost("eval"), 2, "(?i)expression|required")

    def test_exit_ends_the_run_in_good_order(self):
        self.assert_gives(self.evaluate('(progn (princ "before") (exit))', '(princ "after")'), "before")

    def test_text_beyond_ascii_goes_in_and_out_as_utf_8(self):
        self.assert_gives(self.evaluate('(strcat "Ä" (chr 8364))', '(strlen "Ä€")'), '"Ä€"\n2\n')

    def test_the_locale_does_not_matter(self):
        self.environment |= {"LC_ALL": "C"}
        self.assert_gives(self.evaluate('(princ "Ä")', "(/ 1.0 4)"), 'Ä\n"Ä"\n0.25\n')

    def test_reading_standard_input_is_never_waited_for(self):
        outcome = self.lisphost("eval", "(+ 1 2)", typed="(* 6 7)\n")
        self.assert_gives(outcome, "3\n")


class ModuleFunctions(LispHostTest):
    def test_the_module_beside_the_program_is_loaded(self):
        self.assert_gives(self.evaluate("(acet-file-cwd)"), quoted(native(self.folder)) + "\n")
        self.assert_gives(self.evaluate('(acet-str-collate "a" "b")'), "-1\n")

    def test_a_message_is_output_and_the_value_follows_it(self):
        self.assert_gives(self.evaluate("(acet-file-attr)"), "\nError: Too few arguments.\nnil\n")

    def test_a_function_of_the_module_is_a_value(self):
        self.assert_gives(self.evaluate("(type acet-file-cwd)", "(if acet-ini-get 1 2)"), "EXRXSUBR\n1\n")

    def test_the_version_names_the_day_of_the_build(self):
        version = r'^"LispExtension Version: [A-Z][a-z]{2} [ 123]\d 20\d\d"\n$'
        self.assertRegex(self.evaluate("(acet-util-ver)").output, version)

    def test_no_module_leaves_them_undefined(self):
        outcome = self.lisphost("--no-module", "eval", "(acet-file-cwd)")
        self.assert_fails(outcome, 1, "^error: no function definition: ACET-FILE-CWD\n")


unittest.main()
