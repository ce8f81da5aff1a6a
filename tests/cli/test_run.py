import unittest

from lisphost import LispHostTest


class Run(LispHostTest):
    def test_shows_what_the_program_prints_and_no_values(self):
        self.assert_gives(self.run_program('(setq a 1)\n(princ "one\n")\n(prin1 "two")'), 'one\n"two"')

    def test_programs_are_loaded_in_order(self):
        self.write("first.lsp", "(defun greet (name) (princ (strcat \"hello \" name)))")
        self.write("second.lsp", '(greet "you")')
        self.assert_gives(self.lisphost("run", "first.lsp", "second.lsp"), "hello you")

    def test_a_program_that_fails_keeps_the_next_from_running(self):
        self.write("first.lsp", '(princ "first")\n(car 1)')
        self.write("second.lsp", '(princ "second")')
        outcome = self.lisphost("run", "first.lsp", "second.lsp")
        self.assert_fails(outcome, 1, "^error: bad argument type")
        self.assertEqual(outcome.output.rstrip("\n"), "first")

    def test_quit_ends_with_status_0(self):
        self.assert_gives(self.run_program('(princ "a")\n(quit)\n(princ "b")'), "a")

    def test_the_error_function_of_the_program_sees_the_message(self):
        outcome = self.run_program('(defun *error* (text) (princ (strcat "caught " text)))\n(/ 1 0)')
        self.assertEqual(outcome.status, 1)
        self.assertRegex(outcome.output, "^caught divide by zero\n?$")

    def test_no_file_is_a_usage_error(self):
        self.assert_fails(self.lisphost("run"), 2, "(?i)file|required")

    def test_what_follows_two_dashes_is_not_a_file(self):
        self.write("program.lsp", '(princ "ran")')
        self.assert_gives(self.lisphost("run", "program.lsp", "--", "missing.lsp", "--version"), "ran")

    def test_a_program_loads_another_from_its_own_folder(self):
        self.write("tools/helper.lsp", "(setq loaded 42)")
        self.assert_gives(self.run_program('(load "helper")\n(princ loaded)', "tools/main.lsp"), "42")


class Encodings(LispHostTest):
    def test_utf_8_with_and_without_a_mark(self):
        for mark in (b"", b"\xef\xbb\xbf"):
            self.assert_gives(self.run_program(mark + '(princ "Größe €")'.encode()), "Größe €")

    def test_windows_1252(self):
        self.assert_gives(self.run_program('(princ "Größe €")'.encode("cp1252")), "Größe €")

    def test_lines_may_end_as_on_windows(self):
        self.assert_gives(self.run_program('(princ 1) ; one\r\n(princ 2)\r\n'), "12")

    def test_an_empty_program_does_nothing(self):
        self.assert_gives(self.run_program(""), "")
        self.assert_gives(self.run_program(b"\xef\xbb\xbf; only a comment"), "")


unittest.main()
