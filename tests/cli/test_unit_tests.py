"""lisphost test: LISP programs that test others."""

import json
import re
import signal
import subprocess
import unittest
import xml.etree.ElementTree as xml

from lisphost import LISPHOST, TIMEOUT, WINDOWS, LispHostTest, begin_in_the_foreground


class UnitTests(LispHostTest):
    def run_tests(self, text: str, *options: str, name: str = "test.lsp"):
        self.write(name, text)
        return self.lisphost("test", name, *options)

    def assert_passes(self, text: str, *options: str) -> None:
        self.assert_gives(self.run_tests(text, *options), "ok    test.lsp: test-it\n1 test: 1 passed\n")

    def assert_fails_with(self, text: str, *lines: str, verdict: str = "FAIL") -> None:
        """The test fails in this way; the lines that follow say why, shown with a trace."""
        outcome = self.run_tests(text)
        self.assertEqual((outcome.status, outcome.errors), (1, ""), outcome)
        shown = [line.strip() for line in outcome.output.splitlines()]
        count = {"FAIL": "1 failed", "ERROR": "1 with errors"}[verdict]
        self.assertEqual([line for line in shown if not line.startswith(("in ", "at "))],
                         [f"{verdict:5} test.lsp: test-it", *lines, f"1 test: 0 passed, {count}"])


class Assertions(UnitTests):
    def test_those_that_hold_pass(self):
        self.assert_passes("""(defun test-it ()
            (assert 1) (assert (not nil) "unused") (assert-nil nil) (assert-equal '(1 "a" (2.5 . x)) '(1 "a" (2.5 . x)))
            (assert-equal 1.0 1.001 0.01) (assert-error '(/ 1 0)) (assert-error '(/ 1 0) "divide*"))""")

    def test_each_says_what_was_wrong(self):
        for expression, message in {
            "(assert (= 1 2))": "expected a value, got nil",
            '(assert nil "not there")': "not there",
            "(assert-nil '(1))": "expected nil, got (1)",
            '(assert-nil 1 "there")': "there",
            '(assert-equal "a" "b")': 'expected "a", got "b"',
            "(assert-equal 1.0 1.1)": "expected 1.0, got 1.1",
            "(assert-equal 1.0 1.1 0.05)": "expected 1.0, got 1.1",
            "(assert-error '(+ 1 2))": "expected an error, got 3",
            "(assert-error '(/ 1 0) \"bad*\")": 'expected an error like "bad*", got "divide by zero"',
            '(fail-test "never")': "never",
        }.items():
            with self.subTest(expression):
                self.assert_fails_with(f"(defun test-it () {expression} (princ 1))", message)

    def test_they_give_values(self):
        self.assert_passes("""(defun test-it ()
            (assert-equal '(7 T 8 "divide by zero")
                          (list (assert 7) (assert-nil nil) (assert-equal 8 8) (assert-error '(/ 1 0)))))""")

    def test_a_failure_that_the_program_catches_still_fails_the_test(self):
        self.assert_fails_with("""(defun test-it ()
            (vl-catch-all-apply 'assert-equal '(1 2)) (assert 1))""", "expected 1, got 2")

    def test_the_first_failure_counts(self):
        self.assert_fails_with("""(defun test-it ()
            (vl-catch-all-apply 'fail-test '("first")) (fail-test "second"))""", "first")

    def test_the_trace_leads_to_the_assertion(self):
        outcome = self.run_tests("(defun check (n)\n (assert-equal 1 n))\n(defun test-it ()\n (check 2)\n (princ))")
        self.assertIn("        in CHECK at test.lsp:2\n        in TEST-IT at test.lsp:4\n".replace("        ", " " * 8),
                      outcome.output)

    def test_an_error_is_no_failure(self):
        self.assert_fails_with("(defun test-it () (car 1))", "bad argument type: listp 1", verdict="ERROR")

    def test_leaving_the_program_is_an_error(self):
        self.assert_fails_with("(defun test-it () (assert 1) (exit))", "quit / exit abort", verdict="ERROR")

    def test_the_programs_own_error_function_is_not_called(self):
        self.assert_fails_with('(defun *error* (m) (princ "called")) (defun test-it () (car 1))',
                               "bad argument type: listp 1", verdict="ERROR")

    def test_without_an_assertion_the_value_counts(self):
        self.assert_passes("(defun test-it () (= 1 1))")
        self.assert_fails_with("(defun test-it () (= 1 2))", "no assertion was made, and the value is nil",
                               verdict="ERROR")

    def test_an_assertion_outside_the_test_is_none_of_its_own(self):
        for outside in ("(assert 1)", "(defun setup () (assert 1))"):
            self.assert_fails_with(f"{outside} (defun test-it () nil)", "no assertion was made, and the value is nil",
                                   verdict="ERROR")

    def test_the_error_of_the_test_comes_before_that_of_teardown(self):
        self.assert_fails_with("(defun teardown () (car 2)) (defun test-it () (car 1))", "bad argument type: listp 1",
                               verdict="ERROR")
        self.assert_fails_with("(defun teardown () (car 2)) (defun test-it () T)", "bad argument type: listp 2",
                               verdict="ERROR")

    def test_an_error_in_setup_fails_the_test(self):
        self.assert_fails_with("(defun setup () (car 2)) (defun test-it () T)", "bad argument type: listp 2",
                               verdict="ERROR")

    def test_skipping_is_neither(self):
        outcome = self.run_tests('(defun test-it () (skip-test "no printer") (fail-test "never"))')
        self.assert_gives(outcome, "skip  test.lsp: test-it\n      no printer\n1 test: 0 passed, 1 skipped\n")

    def test_a_failure_before_a_skip_fails(self):
        self.assert_fails_with('(defun test-it () (vl-catch-all-apply \'fail-test \'("no")) (skip-test))', "no")


class Output(UnitTests):
    def test_what_a_test_prints_is_shown_when_it_fails(self):
        self.assert_fails_with('(defun test-it () (princ "one\\ntwo") (fail-test "no"))', "no", "printed:", "| one", "| two")

    def test_it_is_not_shown_when_it_passes(self):
        self.assert_passes('(princ "loaded") (defun test-it () (princ "one\\ntwo"))')

    def test_messages_of_modules_are_kept_back_too(self):
        self.assert_passes("(defun test-it () (acet-file-attr) T)")

    def test_tests_can_look_at_it(self):
        self.assert_passes("""(defun test-it () (princ "before")
            (assert-equal "Hello\\n12" (capture-output '(progn (princ "Hello\\n") (princ 12)))))""")


class Isolation(UnitTests):
    def test_every_test_has_variables_and_a_drawing_of_its_own(self):
        outcome = self.run_tests("""(if seen (exit))
            (defun test-one () (setq seen T) (setvar "OSMODE" 7) (entmake '((0 . "POINT") (10 1 2 0))) (assert (entlast)))
            (defun test-two () (assert-nil seen) (assert-nil (entlast)) (assert (/= 7 (getvar "OSMODE"))))""")
        self.assert_gives(outcome, "ok    test.lsp: test-one\nok    test.lsp: test-two\n2 tests: 2 passed\n")

    def test_a_drawing_is_there_anew_for_each(self):
        self.assert_gives(self.lisphost("--save", "d.dxf", "eval", '(not (entmake \'((0 . "POINT") (10 1 2 0))))'), "nil\n")
        outcome = self.run_tests("""(defun test-one () (assert (entdel (entlast))) (assert-nil (entnext)))
            (defun test-two () (assert (entnext)))""", "--drawing", "d.dxf")
        self.assert_gives(outcome, "ok    test.lsp: test-one\nok    test.lsp: test-two\n2 tests: 2 passed\n")

    def test_setup_and_teardown_stand_around_each(self):
        self.run_tests("""(defun note (text / f) (setq f (open "notes" "a")) (write-line text f) (close f))
            (defun setup () (note "setup")) (defun teardown () (note "teardown"))
            (defun test-one () (note "one") T) (defun test-two () (note "two") (fail-test "no"))""")
        notes = (self.folder / "notes").read_text().split()
        self.assertEqual(notes, ["setup", "one", "teardown", "setup", "two", "teardown"])

    @unittest.skipIf(WINDOWS, "the registry is the system's own")
    def test_settings_stay_out_of_the_users_profile(self):
        key = '"HKEY_CURRENT_USER\\\\Software\\\\Tests" "A"'
        self.assert_passes(f'(defun test-it () (vl-registry-write {key} "1") (assert-equal "1" (vl-registry-read {key})))')
        self.assert_gives(self.evaluate(f"(vl-registry-read {key})"), "nil\n")

    @unittest.skipIf(WINDOWS, "Unix' permissions of a folder do not bind what is in it")
    def test_where_no_folder_can_be_made_for_settings_nothing_is_run(self):
        locked = self.folder / "locked"
        locked.mkdir(mode=0o500)
        self.environment |= {"TMPDIR": str(locked)}
        self.write("test.lsp", "(assert 1)")
        self.assert_fails(self.lisphost("test", "test.lsp"), 3, "^lisphost: no temporary folder can be made: ")

    def test_windows_that_stay_open_are_closed_before_the_next(self):
        outcome = self.run_tests("""(defun test-one () (acet-ui-status "Working" "Title") T) (defun test-two () T)
            (defun test-three () (acet-ui-status "Working" "Title") T)""", "--transcript", "transcript")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        events = [json.loads(line) for line in (self.folder / "transcript").read_text().splitlines()]
        self.assertEqual([(event["class"], event["visible"]) for event in events], [("Dlg_Status", True)] * 2)

    def test_a_drawing_that_a_test_has_spoiled_fails_those_that_follow(self):
        self.assert_gives(self.lisphost("--save", "d.dxf", "eval", "1"), "1\n")
        outcome = self.run_tests("""(defun test-one () (vl-file-delete "d.dxf") (assert 1))
            (defun test-two () (assert 1)) (defun test-three () (assert 1))""", "--drawing", "d.dxf", "--junit", "r.xml")
        self.assertEqual(outcome.status, 1)
        self.assertRegex(outcome.output, r"(?s)^ok    test.lsp: test-one\nERROR test.lsp: test-two\n.*d\.dxf.*\n"
                         r"ERROR test.lsp: test-three\n.*\n3 tests: 1 passed, 2 with errors\n$")
        self.assertTrue((self.folder / "r.xml").exists())

    def test_answers_are_there_from_the_beginning_for_each(self):
        self.write("answers", "5\n6\n")
        outcome = self.run_tests("""(defun test-one () (assert-equal 5 (getint)))
            (defun test-two () (assert-equal '(5 6) (list (getint) (getint))))""", "--answers", "answers")
        self.assertEqual((outcome.status, outcome.errors), (0, ""), outcome)

    def test_answers_can_be_given_by_the_test(self):
        self.assert_passes("""(defun test-it () (answer-with "5") (answer-with "7" "1,2" "@press No")
            (assert-equal 7 (getint)) (assert-equal '(1.0 2.0 0.0) (getpoint "\\nWhere: "))
            (assert-equal 7 (acet-ui-message "Really?" "Title" 4)))""")

    def test_an_answer_that_is_none_is_an_error(self):
        self.assert_fails_with('(defun test-it () (answer-with "@pres No"))', "answer-with:1: unknown answer @pres",
                               verdict="ERROR")


class Discovery(UnitTests):
    def test_names_in_the_order_of_the_file(self):
        outcome = self.run_tests("""(defun test-z (/ local) T) (defun TEST:a () T)
            (defun test_m () T) (defun testing () (exit)) (defun test- () (exit)) (defun test-of (n) (exit))""")
        self.assertEqual(re.findall(r"test\.lsp: (\S+)", outcome.output), ["test-z", "test:a", "test_m"])

    def test_functions_that_the_file_loads_are_not_its_tests(self):
        self.write("program.lsp", "(defun test-point () (exit)) (defun setup () (exit))")
        self.assert_passes('(load "program") (defun test-it () T)')

    def test_folders_are_searched_for_files_with_tests(self):
        for name in ("a-test.lsp", "sub/Tests.LSP", "sub/test-b.lsp", "sub/contest.lsp", "latest.lsp", "sub/test.txt", "program.lsp"):
            self.write(name, "(defun test-it () T)")
        outcome = self.lisphost("test", ".")
        names = re.findall(r"ok +\./(\S+):", outcome.output)
        self.assertEqual(sorted(names), ["a-test.lsp", "sub/Tests.LSP", "sub/test-b.lsp"], outcome)

    def test_a_file_without_test_functions_is_one_test(self):
        self.assert_gives(self.run_tests("(assert-equal 3 (+ 1 2))"), "ok    test.lsp\n1 test: 1 passed\n")
        outcome = self.run_tests("(assert-equal 3 (+ 1 1))")
        self.assertEqual(outcome.status, 1)
        self.assertIn("FAIL  test.lsp\n      expected 3, got 2\n", outcome.output)

    def test_a_file_with_neither_is_an_error(self):
        outcome = self.run_tests("(defun tset-it () T)")
        self.assertEqual((outcome.status, outcome.output.splitlines()[:2]),
                         (1, ["ERROR test.lsp", "      no function named test-... and no assertion"]))

    def test_a_file_that_cannot_be_loaded_is_an_error_and_the_next_one_is_run(self):
        self.write("broken-test.lsp", "(defun test-it (")
        outcome = self.run_tests("(defun test-it () T)", "broken-test.lsp")
        self.assertEqual(outcome.status, 1)
        self.assertRegex(outcome.output, r"(?s)ok    test.lsp: test-it\nERROR broken-test.lsp\n.*\n2 tests: 1 passed, 1 with errors")

    def test_a_path_that_leads_nowhere(self):
        self.assert_fails(self.lisphost("test", "missing"), 3, "^lisphost: missing: no such file or folder\n$")

    def test_a_folder_without_tests(self):
        outcome = self.lisphost("test", ".")
        self.assertEqual((outcome.status, outcome.output, outcome.errors), (1, "0 tests: 0 passed\n", "lisphost: there are no tests\n"))

    def test_calls_that_make_no_sense(self):
        self.assert_fails(self.lisphost("test"), 2, "(?i)path|required")
        self.write("test.lsp", "(assert 1)")
        for option in (("--save", "d.dxf"), ("--plot", "d.png")):
            self.assert_fails(self.lisphost("test", "test.lsp", *option), 2, "not for test")


PROGRAM = r"""
(defun test-good () (princ "unseen") T)
(defun test-bad () (princ "bell\007 <&> \"") (assert-equal "a\n<b>" "c"))
(defun test-broken () (car 1))
(defun test-later () (skip-test "not # now"))
"""


class Reports(UnitTests):
    def test_tap(self):
        outcome = self.run_tests(PROGRAM, "--tap")
        self.assertEqual(outcome.status, 1)
        self.assertEqual(outcome.output.splitlines(), [
            "TAP version 13",
            "ok 1 - test.lsp: test-good",
            "not ok 2 - test.lsp: test-bad",
            "  ---",
            r'  message: "expected \"a\\n<b>\", got \"c\""',
            r'  trace: "  in TEST-BAD at test.lsp:3\n"',
            r'  output: "bell\u0007 <&> \""',
            "  ...",
            "not ok 3 - test.lsp: test-broken",
            "  ---",
            '  message: "bad argument type: listp 1"',
            r'  trace: "  in TEST-BROKEN at test.lsp:4\n"',
            "  ...",
            r"ok 4 - test.lsp: test-later # SKIP not \# now",
            "1..4",
        ])

    def test_junit(self):
        self.write("more-test.lsp", "(assert 1)")
        outcome = self.run_tests(PROGRAM, "more-test.lsp", "--junit", "results.xml")
        self.assertEqual((outcome.status, outcome.errors), (1, ""))
        suites = xml.parse(self.folder / "results.xml").getroot()
        self.assertEqual([suites.get(name) for name in ("tests", "failures", "errors", "skipped")], ["5", "1", "1", "1"])
        self.assertEqual([(suite.get("name"), suite.get("tests")) for suite in suites], [("test.lsp", "4"), ("more-test.lsp", "1")])
        cases = {case.get("name"): case for case in suites.iter("testcase")}
        self.assertEqual(list(cases), ["test-good", "test-bad", "test-broken", "test-later", "more-test.lsp"])
        self.assertEqual([{case.get("classname") for case in suite} for suite in suites], [{"test"}, {"more-test"}])
        self.assertEqual([child.tag for child in cases["test-good"]], ["system-out"])
        bad = cases["test-bad"]
        self.assertEqual(bad.find("failure").get("message"), 'expected "a\\n<b>", got "c"')
        self.assertEqual(bad.find("failure").text, "  in TEST-BAD at test.lsp:3\n")
        self.assertEqual(bad.find("system-out").text, 'bell\ufffd <&> "')
        self.assertEqual(cases["test-broken"].find("error").get("message"), "bad argument type: listp 1")
        self.assertEqual(cases["test-later"].find("skipped").get("message"), "not # now")
        self.assertGreaterEqual(float(suites.get("time")), 0)

    def test_a_report_that_cannot_be_written(self):
        outcome = self.run_tests("(assert 1)", "--junit", "missing/results.xml")
        self.assert_fails(outcome, 3, "^lisphost: missing/results.xml: ")

    def test_a_test_that_takes_too_long_is_ended_and_the_next_one_runs(self):
        outcome = self.run_tests("""(defun forever () (while T))
            (defun test-one () (forever)) (defun test-two () (vl-catch-all-apply 'forever) (assert 1))
            (defun test-three () (assert 1))""", "--timeout", "1")
        self.assertEqual((outcome.status, outcome.errors), (1, ""))
        self.assertRegex(outcome.output, r"""ERROR test.lsp: test-one
      it ran longer than 1 s
        in FOREVER at test.lsp:1
        in TEST-ONE at test.lsp:2
ERROR test.lsp: test-two
      it ran longer than 1 s
ok    test.lsp: test-three
3 tests: 1 passed, 2 with errors
$""")

    @unittest.skipIf(WINDOWS, "Wine passes no interrupts on")
    def test_an_interrupt_ends_the_test_and_the_run(self):
        self.write("test.lsp", '(defun test-one () (alert "at work") (while T)) (defun test-two () T)')
        process = subprocess.Popen([LISPHOST, "test", "--transcript", "-", "--junit", "r.xml", "test.lsp"], cwd=self.folder, env=self.environment,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, preexec_fn=begin_in_the_foreground)
        self.assertIn("at work", process.stderr.readline())
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=TIMEOUT)
        self.assertEqual(process.returncode, 1)
        self.assertRegex(output, "^ERROR test.lsp: test-one\n      Function cancelled\n")
        self.assertRegex(output, "\n1 test: 0 passed, 1 with errors\n$")
        self.assertIn("lisphost: interrupted; the tests that follow were not run\n", errors)
        self.assertIn('tests="1"', (self.folder / "r.xml").read_text())

    @unittest.skipIf(WINDOWS, "Wine passes no interrupts on")
    def test_an_interrupt_that_the_test_catches_ends_the_run_all_the_same(self):
        self.write("test.lsp", """(defun at-work () (alert "at work") (while T))
            (defun test-one () (vl-catch-all-apply 'at-work) (assert 1)) (defun test-two () T)""")
        process = subprocess.Popen([LISPHOST, "test", "--tap", "--timeout", "60", "--transcript", "-", "test.lsp"],
                                   cwd=self.folder, env=self.environment, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True, preexec_fn=begin_in_the_foreground)
        self.assertIn("at work", process.stderr.readline())
        process.send_signal(signal.SIGINT)
        output, _ = process.communicate(timeout=TIMEOUT)
        self.assertEqual(process.returncode, 1)
        self.assertRegex(output, r'(?s)not ok 1 - test.lsp: test-one\n.*"Function cancelled".*\nBail out! interrupted\n$')

    @unittest.skipIf(WINDOWS, "there is no sandbox")
    def test_the_end_of_the_time_between_two_tests_is_reported_like_an_interrupt(self):
        self.assert_gives(self.lisphost("--save", "d.dxf", "eval", """(progn
            (repeat 100000 (entmake '((0 . "LINE") (10 0 0 0) (11 1 1 0)))) (princ))"""), "")
        # nearly all of the time is that of opening the drawing for each, and the rest that of loading the program
        self.write("test.lsp", "".join(f"(defun test-{number} () T)" for number in range(1000)))
        outcome = self.lisphost("test", "--sandbox", "--limit-time", "4", "--drawing", "d.dxf", "test.lsp")
        self.assertEqual(outcome.status, 1)
        self.assertRegex(outcome.output, r"ERROR test.lsp: test-\d+\n      Function cancelled\n(        at test.lsp:1\n)?"
                         r"\d+ tests?: \d+ passed, 1 with errors\n$")
        self.assertEqual(outcome.errors, "lisphost: the time limit is reached\n"
                         "lisphost: interrupted; the tests that follow were not run\n")


unittest.main()
