import os
import signal
import subprocess
import time
import unittest

from lisphost import LISPHOST, TIMEOUT, WINDOWS, LispHostTest, begin_in_the_foreground


class Interrupt(LispHostTest):
    def start(self, program: str, beginning=begin_in_the_foreground) -> subprocess.Popen:
        """Starts a program that makes the file "running" when it runs, and presses Ctrl-C then."""
        self.write("program.lsp", program)
        process = subprocess.Popen([LISPHOST, "run", "program.lsp"], cwd=self.folder, env=self.environment, text=True,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   preexec_fn=beginning)
        self.addCleanup(process.kill)
        end = time.monotonic() + TIMEOUT
        while not (self.folder / "running").exists():
            self.assertIsNone(process.poll(), "the program has ended")
            self.assertLess(time.monotonic(), end, "the program does not run")
            time.sleep(0.01)
        process.send_signal(signal.SIGINT)
        return process

    def interrupt(self, program: str) -> tuple[int, str, str]:
        process = self.start(program)
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

    @unittest.skipIf(WINDOWS, "which has another way to say this to a program, that Wine does not take from the signal")
    def test_is_nothing_to_a_program_that_was_started_to_ignore_it(self):
        program = """(close (open "running" "w"))
            (while (not (findfile "go on")))
            (repeat 100000 (1+ 1)) ; long enough to hear of an interrupt
            (princ "here")"""
        process = self.start(program, lambda: signal.signal(signal.SIGINT, signal.SIG_IGN))
        self.write("go on", "")
        output, errors = process.communicate(timeout=TIMEOUT)
        self.assertEqual((process.returncode, output.rstrip("\n"), errors), (0, "here", ""))


unittest.main()
