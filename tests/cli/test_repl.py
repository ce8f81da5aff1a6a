import os
import random
import signal
import time
import unittest

from lisphost import LispHostTest, TIMEOUT, WINDOWS
from terminal import Terminal


class Repl(LispHostTest):
    def start(self, *arguments: str, **others: object) -> Terminal:
        terminal = Terminal(["--profile", str(self.profile), *arguments], str(self.folder), self.environment, **others)
        self.addCleanup(terminal.close)
        return terminal

    def open(self, *arguments: str, **others: object) -> Terminal:
        terminal = self.start(*arguments, **others)
        terminal.wait_for_prompt()
        return terminal

    def leave(self, terminal: Terminal) -> None:
        terminal.type("\x04")  # Ctrl-D
        self.assertEqual(terminal.wait_for_end(), 0, terminal.shown)

    def test_is_the_default_on_a_terminal_and_prints_values(self):
        terminal = self.open()
        terminal.type('(strcat "a" "b")\n')
        terminal.wait_for_prompt('\n"ab"\n')
        self.leave(terminal)

    def test_an_expression_may_span_lines(self):
        terminal = self.open("repl")
        terminal.type("(* 6\n")
        terminal.wait_for(r"\n  ?")
        terminal.type("7)\n")
        terminal.wait_for_prompt(r"\n42\n")
        self.leave(terminal)

    def test_an_error_is_shown_and_the_session_goes_on(self):
        terminal = self.open("repl")
        terminal.type("(setq a 5)\n(/ a 0)\n")
        terminal.wait_for("error: divide by zero")
        terminal.type("(+ a 1)\n")
        terminal.wait_for_prompt(r"\n6\n")
        self.leave(terminal)

    def test_an_error_ends_the_transaction_that_it_leaves_open(self):
        terminal = self.open("repl")
        terminal.type('(progn (setvar "CMDECHO" 0) (command "_.point" "1,2") (startAddTableTransaction) (car 5))\n')
        terminal.wait_for("error: bad argument type")
        terminal.type('(progn (command "_.u") (if (entlast) "still there" "undone"))\n')
        terminal.wait_for_prompt(r'\n"undone"\n')
        self.leave(terminal)

    def test_a_stray_parenthesis_does_not_end_the_session(self):
        terminal = self.open("repl")
        terminal.type(")\n")
        terminal.wait_for("error: ")
        terminal.type("(+ 1 1)\n")
        terminal.wait_for_prompt(r"\n2\n")
        self.leave(terminal)

    def test_ctrl_c_forgets_what_was_typed_and_the_session_goes_on(self):
        terminal = self.open("repl")
        terminal.type("(setq a (list 1\n")
        terminal.wait_for(r"\n  ?")
        terminal.type("half a line\x03")
        terminal.wait_for_prompt()
        terminal.type("(+ 20 3)\n")
        terminal.wait_for_prompt(r"\n23\n")
        self.leave(terminal)

    @unittest.skipIf(WINDOWS, "what is typed ahead stays in the console's queue")
    def test_ctrl_c_at_any_moment_does_not_end_the_session(self):
        terminal = self.open("repl")
        for _ in range(100):  # evaluating, printing, about to read
            terminal.type("(+ 1 1)\n")
            time.sleep(random.uniform(0, 0.004))
            terminal.type("\x03")
        # The last one may come so late that it cancels what is typed here.
        self.assertTrue(any(self.answers(terminal) for _ in range(10)), terminal.shown)
        terminal.wait_for_prompt(r"\n23\n")
        self.leave(terminal)

    @staticmethod
    def answers(terminal: Terminal) -> bool:
        terminal.type("(+ 20 3)\n")
        return terminal.shows_within(5, r"\n23\n> $")

    @unittest.skipIf(WINDOWS, "what is typed ahead stays in the console's queue")
    def test_ctrl_c_while_an_entry_is_looked_through_stops_it(self):
        terminal = self.open("repl")
        for delay in range(6):  # milliseconds; to look through the entry takes some
            terminal.type("(progn\n")
            terminal.wait_for(r"\n  ?")
            for line in range(30):
                terminal.type(f"'({'1 ' * 500})\n")
                terminal.wait_for(r"\)\n  ?")
            terminal.type("(while T))\n")
            terminal.wait_for(r"T\)\)\n")
            time.sleep(delay / 1000)
            terminal.type("\x03")
            self.assertTrue(any(self.answers(terminal) for _ in range(10)), terminal.shown)
            terminal.wait_for_prompt(r"\n23\n")
        self.leave(terminal)

    @unittest.skipIf(WINDOWS, "signals are not passed on to new processes")
    def test_a_session_that_is_to_ignore_ctrl_c_lets_programs_run_on(self):
        terminal = self.open("repl", prepare=lambda: signal.signal(signal.SIGINT, signal.SIG_IGN))
        terminal.type('(progn (princ "go") (terpri) (repeat 3000000 (+ 1 1)) "done")\n')
        terminal.wait_for(r"\ngo\n")
        terminal.type("\x03")
        terminal.wait_for_prompt(r'"done"\n')
        self.leave(terminal)

    @unittest.skipIf(WINDOWS, "there is no such device")
    def test_a_full_disk_below_the_output_is_told_at_the_end(self):
        terminal = self.start("repl", prepare=lambda: os.dup2(os.open("/dev/full", os.O_WRONLY), 1))
        terminal.type("(princ 1)\n(quit)\n")
        self.assertEqual(terminal.wait_for_end(), 3, terminal.shown)

    def test_tab_completes_names(self):
        terminal = self.open("repl")
        terminal.type("(vl-string-tr\t-right-trim")
        terminal.type("\x03")
        terminal.wait_for_prompt()
        terminal.type("(acet-str-col\t \"a\" \"b\")\n")
        terminal.wait_for_prompt(r"\n-1\n")
        self.leave(terminal)

    def test_the_up_key_brings_the_entry_before_back(self):
        terminal = self.open("repl")
        terminal.type("(* 11 11)\n")
        terminal.wait_for_prompt(r"\n121\n")
        terminal.type("\x1b[A\n")
        terminal.wait_for_prompt(r"\n121\n")
        self.leave(terminal)

    @unittest.skipIf(WINDOWS, "the console keeps the history, as long as it is open")
    def test_the_history_outlives_the_session(self):
        terminal = self.open("repl")
        terminal.type("(* 11 11)\n")
        terminal.wait_for_prompt(r"\n121\n")
        self.leave(terminal)
        terminal = self.open("repl")
        terminal.type("\x10\n")  # Ctrl-P: the entry before
        terminal.wait_for_prompt(r"\n121\n")
        self.leave(terminal)

    def test_quit_leaves(self):
        terminal = self.open("repl")
        terminal.type("(quit)\n")
        self.assertEqual(terminal.wait_for_end(), 0, terminal.shown)

    def test_ctrl_c_stops_an_endless_loop_but_not_the_session(self):
        terminal = self.open("repl")
        terminal.type('(progn (princ "go" ) (terpri) (while T))\n')
        terminal.wait_for(r"\ngo\n")
        time.sleep(0.2)  # the loop is entered right after the line that was waited for
        terminal.type("\x03")
        terminal.wait_for("error: ")
        terminal.type("(+ 1 1)\n")
        terminal.wait_for_prompt(r"\n2\n")
        self.leave(terminal)


class NoTerminal(LispHostTest):
    def test_standard_input_is_evaluated(self):
        self.assert_gives(self.lisphost("repl", typed='(setq a 2)\n(princ "x")\n(* a\n 3)\n'), '2\nx\n"x"\n6\n')

    def test_nothing_to_read_is_fine(self):
        self.assert_gives(self.lisphost("repl"), "")


unittest.main()
