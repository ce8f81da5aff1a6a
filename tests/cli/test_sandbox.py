import os
import tempfile
import time
import unittest
from pathlib import Path

from lisphost import WINDOWS, LispHostTest, Outcome


NONE = "there is no sandbox"


class SandboxTest(LispHostTest):
    """The program stands in a folder of its own; what it must not reach stands beside it."""

    def setUp(self) -> None:
        super().setUp()
        self.secret = self.write("outside/secret.txt", "secret\n")
        self.outside = self.secret.parent

    def run_sandboxed(self, program, *options):
        self.write("inside/program.lsp", program)
        return self.lisphost("--sandbox", *options, "run", "inside/program.lsp")

    def assert_refused(self, outcome, output, *refusals):
        """The program goes on with its functions' failure values; each refusal is a line."""
        self.assertEqual((outcome.status, outcome.output), (0, output))
        self.assertEqual(outcome.errors.splitlines(), [f"lisphost: sandbox: refused {refusal}" for refusal in refusals])


@unittest.skipIf(WINDOWS, NONE)
class Files(SandboxTest):
    def test_the_programs_own_folder_can_be_read(self):
        self.write("inside/data/list.txt", "first\n")
        outcome = self.run_sandboxed(f'(princ (read-line (open "{self.folder}/inside/data/list.txt" "r")))')
        self.assert_gives(outcome, "first")

    def test_the_drawings_folder_can_be_read(self):
        self.write("drawings/points.txt", "first\n")
        self.assert_gives(self.lisphost("--save", "drawings/d.dxf", "eval", "1"), "1\n")
        read = f'(if (setq f (open "{self.folder}/drawings/points.txt" "r")) (read-line f))'
        self.assert_gives(self.lisphost("--sandbox", "--drawing", "drawings/d.dxf", "eval", read), '"first"\n')
        self.assert_refused(self.lisphost("--sandbox", "eval", read), "nil\n",
                            f"opening {self.folder}/drawings/points.txt")
        self.assert_refused(self.lisphost("--sandbox", "--drawing", "drawings/d.dxf", "eval",
                                          f'(open "{self.secret}" "r")'), "nil\n", f"opening {self.secret}")

    def test_a_program_can_load_another_one_beside_it(self):
        self.write("inside/library.lsp", '(princ "loaded")')
        self.assert_gives(self.run_sandboxed('(load "library")'), "loaded")

    def test_other_files_cannot_be_read(self):
        self.assert_refused(self.run_sandboxed(f'(princ (open "{self.secret}" "r"))'), "nil",
                            f"opening {self.secret}")

    def test_a_symbolic_link_leads_nowhere(self):
        (self.folder / "inside").mkdir()
        link = self.folder / "inside/link.txt"
        link.symlink_to(self.secret)
        self.assert_refused(self.run_sandboxed(f'(princ (open "{link}" "r"))'), "nil", f"opening {link}")

    def test_dots_lead_nowhere(self):
        path = f"{self.folder}/inside/../outside/secret.txt"
        self.assert_refused(self.run_sandboxed(f'(princ (open "{path}" "r"))'), "nil", f"opening {path}")

    def test_a_change_of_the_current_folder_opens_nothing(self):
        outcome = self.run_sandboxed(f'(acet-file-chdir "{self.outside}") (princ (open "secret.txt" "r"))')
        self.assert_refused(outcome, "nil", "opening secret.txt")

    def test_the_process_files_are_out_of_reach(self):
        for path in ("/proc/self/environ", "/proc/self/mem", "/proc/1/environ",
                     f"/proc/self/root{self.secret}"):
            with self.subTest(path):
                self.assert_refused(self.run_sandboxed(f'(princ (open "{path}" "r"))'), "nil", f"opening {path}")

    def test_nothing_can_be_written_not_even_beside_the_program(self):
        path = f"{self.folder}/inside/new.txt"
        self.assert_refused(self.run_sandboxed(f'(princ (open "{path}" "w"))'), "nil", f"opening {path}")
        self.assertFalse(Path(path).exists())

    def test_nothing_can_be_removed_moved_or_made(self):
        outcome = self.run_sandboxed(f"""
            (princ (list (acet-file-remove "{self.secret}")
                         (acet-file-move "{self.folder}/inside/program.lsp" "{self.outside}/program.lsp")
                         (acet-file-mkdir "{self.outside}/new")
                         (vl-file-delete "{self.secret}")))""")
        self.assertEqual((outcome.status, outcome.output), (0, "(0 nil nil nil)"))
        self.assertIn(f"lisphost: sandbox: refused making {self.outside}/new\n", outcome.errors)
        self.assertEqual(sorted(path.name for path in self.outside.iterdir()), ["secret.txt"])
        self.assertTrue((self.folder / "inside/program.lsp").exists())

    def test_attributes_cannot_be_changed(self):
        before = os.stat(self.secret).st_mode
        outcome = self.run_sandboxed(f'(princ (acet-file-attr "{self.secret}" 1))')
        self.assertEqual((outcome.status, outcome.output), (0, "nil"))
        self.assertIn("lisphost: sandbox: refused a change of permissions\n", outcome.errors)
        self.assertEqual(os.stat(self.secret).st_mode, before)

    def test_a_folder_can_be_opened_for_writing(self):
        outcome = self.run_sandboxed(f"""
            (setq file (open "{self.outside}/new.txt" "w"))
            (princ "text" file)
            (close file)
            (acet-file-remove "{self.secret}")""", "--allow-write", str(self.outside))
        self.assert_gives(outcome, "")
        self.assertEqual([path.name for path in self.outside.iterdir()], ["new.txt"])

    def test_a_temporary_folder_is_there_and_goes_away(self):
        outcome = self.run_sandboxed("""
            (setq name (strcat (getenv "TMPDIR") "/note.txt") file (open name "w"))
            (princ "text" file)
            (close file)
            (princ (read-line (open name "r")))
            (princ name)""")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        self.assertTrue(outcome.output.startswith("text" + tempfile.gettempdir()), outcome.output)
        self.assertFalse(Path(outcome.output.removeprefix("text")).parent.exists())

    def test_expressions_have_no_folder_of_their_own(self):
        path = self.write("list.txt", "first\n")
        outcome = self.lisphost("--sandbox", "eval", f'(open "{path}" "r")')
        self.assert_refused(outcome, "nil\n", f"opening {path}")


START = "the start of a process"
SIGNAL = "a signal to another process"


@unittest.skipIf(WINDOWS, NONE)
class Processes(SandboxTest):
    def test_none_can_be_started(self):
        program = self.write("outside/program.sh", "#!/bin/sh\ntouch started\n")
        program.chmod(0o755)
        outcome = self.run_sandboxed(f"""
            (princ (startapp "{program}"))
            (acet-sys-spawn 1 "{program}")
            (acet-sys-command "{program}")""")
        self.assertEqual((outcome.status, outcome.output), (0, "5"))
        self.assertEqual(set(outcome.errors.splitlines()), {f"lisphost: sandbox: refused {START}"})
        self.assertFalse((self.folder / "started").exists())

    def test_one_can_be_allowed_and_is_bound_by_the_same_rules(self):
        outcome = self.run_sandboxed(f"""
            (princ (acet-sys-command "cat {self.secret}"))
            (princ (acet-sys-command "echo x > {self.outside}/new.txt"))
            (princ (acet-sys-command "cat inside/program.lsp > /dev/null"))""",
                                     "--allow-run", "sh", "--allow-run", "cat")
        # What the C library's system gives: cat fails with 1, the shell with 2, and the last command succeeds.
        self.assertEqual((outcome.status, outcome.output), (0, "256" "512" "0"), outcome)
        self.assertEqual([path.name for path in self.outside.iterdir()], ["secret.txt"])

    def test_what_is_not_allowed_cannot_be_started_all_the_same(self):
        outcome = self.run_sandboxed('(princ (acet-sys-command "cat /dev/null"))', "--allow-run", "sh")
        self.assertNotEqual(outcome.output, "0")

    def test_no_process_outlives_the_run(self):
        marker = self.folder / "inside/late.txt"
        outcome = self.run_sandboxed(f'(acet-sys-command "(sleep 2; echo late > {marker}) &")', "--allow-run", "sh",
                                     "--allow-run", "sleep", "--allow-write", str(self.folder / "inside"))
        self.assertEqual(outcome.status, 0)
        time.sleep(2.5)
        self.assertFalse(marker.exists())

    def test_the_supervising_process_cannot_be_ended(self):
        outcome = self.run_sandboxed("""
            (princ (acet-sys-command "kill -9 $PPID; exit 0"))
            (princ "here")""", "--allow-run", "sh")
        # The shell's parent is the program, which may end itself; the supervisor lives to tell.
        self.assertIn(outcome.status, (0, 1))
        outcome = self.run_sandboxed("""
            (acet-sys-command "read a b c p rest < /proc/$PPID/stat; kill -9 $p")
            (princ "here")""", "--allow-run", "sh")
        self.assertEqual((outcome.status, outcome.output), (0, "here"))


@unittest.skipIf(WINDOWS, NONE)
class Limits(SandboxTest):
    def test_time(self):
        start = time.monotonic()
        outcome = self.run_sandboxed("(while T)", "--limit-time", "1")
        self.assert_fails(outcome, 1, "^lisphost: the time limit is reached\nerror: Function cancelled\n")
        self.assertGreater(time.monotonic() - start, 0.9)

    def test_time_ends_a_program_that_catches_every_error(self):
        outcome = self.run_sandboxed("(while T (vl-catch-all-apply '(lambda () (while T))))", "--limit-time", "1")
        self.assert_fails(outcome, 1, "the time limit is reached")

    def test_memory(self):
        outcome = self.run_sandboxed("(while T (setq list (cons 1 list)))", "--limit-memory", "20")
        self.assert_fails(outcome, 1, "^error: out of memory\n")

    def test_depth(self):
        outcome = self.run_sandboxed("(defun f (n) (if (> n 0) (1+ (f (1- n))) 0)) (princ (f 50)) (f 200)",
                                     "--limit-depth", "100")
        self.assert_fails(outcome, 1, "^error: internal stack limit reached\n")
        self.assertEqual(outcome.output, "50\n")


class Usage(SandboxTest):
    @unittest.skipUnless(WINDOWS, "there is a sandbox")
    def test_where_there_is_none_nothing_runs(self):
        refusal = Outcome(2, "", "lisphost: --sandbox needs Linux: there is no sandbox on this system\n")
        self.assertEqual(self.run_sandboxed('(princ "ran")'), refusal)
        self.assertEqual(self.lisphost("--sandbox", "--allow-write", ".", "eval", '(princ "ran")'), refusal)

    def test_only_programs_expressions_and_tests_run_in_it(self):
        self.assert_fails(self.lisphost("--sandbox", "repl"), 2, "--sandbox is for run, eval and test")

    def test_its_options_mean_nothing_without_it(self):
        for option in ("--allow-write", "--allow-run", "--limit-time", "--limit-memory", "--limit-depth"):
            with self.subTest(option):
                self.assert_fails(self.lisphost(option, "1", "eval", "1"), 2, "--sandbox")

    @unittest.skipIf(WINDOWS, NONE)
    def test_a_program_that_is_not_there_cannot_be_allowed(self):
        self.assert_fails(self.lisphost("--sandbox", "--allow-run", "no-such-program", "eval", "1"), 2,
                          "no-such-program: no such program")

    @unittest.skipIf(WINDOWS, NONE)
    def test_exit_statuses_are_those_of_the_program(self):
        self.assert_fails(self.run_sandboxed("(/ 1 0)"), 1, "^error: divide by zero\n")
        self.assert_fails(self.lisphost("--sandbox", "run", "missing.lsp"), 3, r"missing\.lsp")


@unittest.skipIf(WINDOWS, NONE)
class UnitTests(SandboxTest):
    def test_tests_read_their_folder_and_nothing_else(self):
        self.write("inside/list.txt", "first\n")
        self.write("inside/a-test.lsp", f"""
            (defun test-inside () (assert-equal "first" (read-line (open "inside/list.txt" "r"))))
            (defun test-outside () (assert-nil (open "{self.secret}" "r")))""")
        outcome = self.lisphost("--sandbox", "test", "inside")
        self.assert_refused(outcome, "ok    inside/a-test.lsp: test-inside\nok    inside/a-test.lsp: test-outside\n"
                            "2 tests: 2 passed\n", f"opening {self.secret}")

    def test_the_report_is_written_where_writing_is_allowed(self):
        self.write("inside/a-test.lsp", "(assert 1)")
        call = ["test", "inside/a-test.lsp", "--junit", "outside/results.xml"]
        self.assert_fails(self.lisphost("--sandbox", *call), 3, "results.xml")
        self.assertFalse((self.outside / "results.xml").exists())
        outcome = self.lisphost("--sandbox", "--allow-write", "outside", *call)
        self.assert_gives(outcome, "ok    inside/a-test.lsp\n1 test: 1 passed\n")
        self.assertIn("<testsuites", (self.outside / "results.xml").read_text())

    def test_every_test_is_bound_to_the_memory(self):
        self.write("inside/a-test.lsp", """(defun grow (/ all) (while T (setq all (cons 1 all))))
            (defun test-one () (grow)) (defun test-two () (grow))""")
        outcome = self.lisphost("--sandbox", "--limit-memory", "20", "test", "inside")
        self.assertEqual((outcome.status, outcome.output.count("out of memory")), (1, 2), outcome)

    def test_a_test_that_takes_too_long_is_ended_here_too(self):
        self.write("inside/a-test.lsp", "(defun test-one () (while T)) (defun test-two () T)")
        outcome = self.lisphost("--sandbox", "test", "--timeout", "1", "inside")
        self.assertEqual((outcome.status, outcome.errors), (1, ""))
        self.assertIn("ok    inside/a-test.lsp: test-two\n", outcome.output)

    def test_the_time_limit_ends_the_run(self):
        self.write("inside/a-test.lsp", "(defun test-one () (while T)) (defun test-two () T)")
        outcome = self.lisphost("--sandbox", "--limit-time", "1", "test", "inside")
        self.assert_fails(outcome, 1, "the time limit is reached\n")
        self.assertNotIn("test-two", outcome.output)


if __name__ == "__main__":
    unittest.main()
