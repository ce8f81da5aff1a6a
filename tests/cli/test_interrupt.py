import os
import signal
import subprocess
import unittest

from lisphost import LISPHOST, TIMEOUT, LispHostTest


class Interrupt(LispHostTest):
    def interrupt(self, program: str) -> tuple[int, str, str]:
        """Starts a program that prints a line and goes on for ever, and presses Ctrl-C after that line."""
        self.write("program.lsp", program)
        os.mkfifo(self.folder / "running")
        # A shell that starts a job in the background makes it ignore Ctrl-C; the tests may run below one.
        process = subprocess.Popen([LISPHOST, "run", "program.lsp"], cwd=self.folder, env=self.environment, text=True,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        self.addCleanup(process.kill)
        (self.folder / "running").read_bytes()  # until the program has opened and closed the other end
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=TIMEOUT)
        return process.returncode, output, errors

    def test_ends_an_endless_loop_with_an_error(self):
        status, _, errors = self.interrupt('(close (open "running" "w"))\n(while T)\n')
        self.assertEqual(status, 1)
        self.assertRegex(errors, r"^error: .*\n(.*\n)*.*program\.lsp:2\b")

    def test_ends_endless_calls_of_functions(self):
        status, _, errors = self.interrupt('(defun spin () (mapcar \'1+ \'(1 2 3)))\n'
                                           '(close (open "running" "w"))\n(while T (spin))\n')
        self.assertEqual(status, 1)
        self.assertRegex(errors, "^error: ")

    def test_keeps_what_the_program_had_printed(self):
        status, output, _ = self.interrupt('(princ "before")\n(close (open "running" "w"))\n(while T)\n')
        self.assertEqual((status, output.rstrip("\n")), (1, "before"))

    def test_calls_the_error_function_of_the_program(self):
        status, output, _ = self.interrupt('(defun *error* (text) (princ "cleaned up"))\n'
                                           '(close (open "running" "w"))\n(while T)\n')
        self.assertEqual((status, output.rstrip("\n")), (1, "cleaned up"))


unittest.main()
