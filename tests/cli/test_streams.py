"""Standard streams that are closed, full, or have nobody at the other end."""

import os
import subprocess
import unittest

from lisphost import LISPHOST, TIMEOUT, WINDOWS, LispHostTest

LOST = "lisphost: cannot write to standard output\n"


class Streams(LispHostTest):
    def start(self, *arguments: str, closed: tuple = (), **options) -> subprocess.CompletedProcess:
        """Runs with these standard streams closed."""
        def close() -> None:
            for stream in closed:
                os.close(stream)
        return subprocess.run([LISPHOST, *arguments], cwd=self.folder, env=self.environment, timeout=TIMEOUT,
                              preexec_fn=close, text=True, **options)

    def test_output_that_does_not_fit_on_the_device_is_an_error(self):
        with open("/dev/full", "w") as full:
            done = self.start("eval", "(+ 1 2)", stdout=full, stderr=subprocess.PIPE)
        self.assertEqual((done.returncode, done.stderr), (3, LOST))

    def test_the_status_of_a_program_that_failed_stays(self):
        with open("/dev/full", "w") as full:
            done = self.start("eval", '(princ "a")', "(car 1)", stdout=full, stderr=subprocess.PIPE)
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.startswith("error: bad argument type") and done.stderr.endswith(LOST), done.stderr)

    def test_output_to_a_closed_stream_is_an_error(self):
        done = self.start("eval", "(+ 1 2)", closed=(1,), stderr=subprocess.PIPE)
        self.assertEqual((done.returncode, done.stderr), (3, LOST))

    def test_a_program_that_prints_nothing_needs_no_output(self):
        done = self.start("eval", "(princ)", closed=(0, 1), stderr=subprocess.PIPE)
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_what_is_printed_to_closed_streams_does_not_end_up_in_a_file_that_the_program_opens(self):
        program = '(progn (setq f (open "out.txt" "w")) (princ "console") (princ "file" f) (close f) (car 1))'
        done = self.start("eval", program, closed=(0, 1, 2))
        self.assertEqual(done.returncode, 1)
        self.assertEqual((self.folder / "out.txt").read_text(), "file")

    def test_a_closed_input_is_empty(self):
        done = self.start("repl", closed=(0,), capture_output=True)
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def print_to_a_pipe_which_nobody_reads(self, **options) -> tuple[int, str]:
        reading, writing = os.pipe()
        os.close(reading)
        done = self.start("eval", '(while T (princ "line\n"))', stdout=writing, stderr=subprocess.PIPE, **options)
        os.close(writing)
        return done.returncode, done.stderr

    @unittest.skipIf(WINDOWS, "there is no signal that ends it")
    def test_a_program_that_prints_to_a_pipe_which_nobody_reads_ends(self):
        self.assertEqual(self.print_to_a_pipe_which_nobody_reads(restore_signals=True), (-13, ""))

    def test_a_program_that_prints_to_a_pipe_which_nobody_reads_ends_without_the_signal(self):
        self.assertEqual(self.print_to_a_pipe_which_nobody_reads(restore_signals=False),
                         (3, "lisphost: nobody reads the standard output any more\n"))


unittest.main()
