import pathlib
import re
import unittest

from lisphost import LispHostTest

PAGES = pathlib.Path(__file__).parents[2] / "docs" / "functions"


class Options(LispHostTest):
    def test_help_tells_the_commands(self):
        outcome = self.lisphost("--help")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        for command in ("run", "eval", "test", "repl", "gui", "doc", "--module", "--no-module", "--profile", "--version"):
            self.assertIn(command, outcome.output)

    def test_version(self):
        outcome = self.lisphost("--version")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        self.assertRegex(outcome.output, r"^lisphost \d+\.\d+\.\d+\n$")

    def test_what_is_not_understood_is_a_usage_error(self):
        for arguments in (["--no-such-option"], ["no-such-command"], ["eval", "--no-such-option", "1"]):
            with self.subTest(arguments):
                self.assert_fails(self.lisphost(*arguments), 2, ".")

    def test_two_answers_to_one_question_are_a_usage_error(self):
        self.assert_fails(self.lisphost("--no-module", "--module", "a.tx", "eval", "1"), 2, "module")

    def test_no_command_and_no_terminal_is_a_usage_error(self):
        self.assert_fails(self.lisphost(), 2, "(?i)command")


class Modules(LispHostTest):
    def test_a_missing_module_cannot_be_read(self):
        self.assert_fails(self.lisphost("--module", "missing.tx", "eval", "1"), 3, r"missing\.tx")

    def test_a_file_that_is_no_module_cannot_be_read(self):
        self.write("text.tx", "this is not a library")
        self.assert_fails(self.lisphost("--module", "./text.tx", "eval", "1"), 3, r"text\.tx")


class AnswersAndTranscript(LispHostTest):
    def test_answers_that_cannot_be_read_are_a_file_error(self):
        self.assert_fails(self.lisphost("--answers", "missing.txt", "eval", "1"), 3, r"missing\.txt")

    def test_an_answer_that_is_not_understood_is_a_file_error_with_its_line(self):
        self.write("answers.txt", "; one\n@pres Yes\n")
        self.assert_fails(self.lisphost("--answers", "answers.txt", "eval", "1"), 3, r"answers\.txt:2: .*@pres")

    def test_a_transcript_that_cannot_be_written_is_a_file_error(self):
        self.assert_fails(self.lisphost("--transcript", "missing/t.json", "eval", "1"), 3, r"missing/t\.json")


class Doc(LispHostTest):
    def test_shows_how_a_function_is_called_and_what_it_does(self):
        outcome = self.lisphost("doc", "strlen")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        self.assertRegex(outcome.output, r"^\(strlen .*\)\n +\w.*\.\n$")

    def test_the_case_of_the_name_does_not_matter(self):
        self.assertEqual(self.lisphost("doc", "MapCar"), self.lisphost("doc", "mapcar"))

    def test_knows_special_forms_and_functions_of_the_module(self):
        for name in ("setq", "acet-ini-get", "assert-equal"):
            self.assertIn(name, self.lisphost("doc", name).output.lower())

    def test_of_a_function_of_the_module_shows_its_page(self):
        outcome = self.lisphost("doc", "acet-STR-find")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        self.assertRegex(outcome.output, r"^(\(acet-str-find pattern string.*\)\n){3}    The position of .*\n.*nil\.\n$")

    def test_every_page_says_first_how_its_functions_are_called_and_what_they_do(self):
        names = set(self.lisphost("doc").output.splitlines())
        headings = re.findall(r"^## (\S+)$", "".join(page.read_text("utf-8") for page in PAGES.glob("*.md")), re.M)
        documented = [name for name in headings if name.lower() in names]
        self.assertLess(20, len(documented))
        for name in documented:
            with self.subTest(name):
                self.assertRegex(self.lisphost("doc", name).output, rf"^(\({name}[ )].*\n)+(    [^ (].*\n)+$")

    def test_without_a_name_lists_all(self):
        names = self.lisphost("doc").output.splitlines()
        self.assertEqual(names, sorted(set(names)))
        self.assertLessEqual({"car", "defun", "strcat", "vl_catch_all_apply", "acet-str-equal"}, set(names))

    def test_an_unknown_name_is_said_to_be_unknown(self):
        self.assert_fails(self.lisphost("doc", "no-such-function"), 1, "no-such-function")


unittest.main()
