"""lisphost on a terminal of its own, as a person uses it."""

import os
import pty
import re
import select
import signal
import termios
import time
from collections.abc import Callable

from lisphost import LISPHOST, TIMEOUT

CURSOR_RIGHT = re.compile(r"\x1b\[(\d+)C")  # over what is blank
CONTROL_SEQUENCE = re.compile(r"\x1b(\[[0-?]*[ -/]*[@-~]|\][^\x07]*\x07|[@-Z\\-_])")
UNFINISHED_SEQUENCE = re.compile(r"\x1b(\[[0-?]*[ -/]*)?$")


def plain_text(data: str) -> str:
    spaced = CURSOR_RIGHT.sub(lambda match: " " * int(match[1]), data)
    return CONTROL_SEQUENCE.sub("", spaced).replace("\r", "")


class Terminal:
    def __init__(self, arguments: list[str], folder: str, environment: dict[str, str],
                 prepare: Callable[[], None] = lambda: None) -> None:
        """`prepare` is called in the new process."""
        self.shown = ""
        self.unfinished = ""  # a control sequence whose end is still to come
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            signal.signal(signal.SIGINT, signal.SIG_DFL)
            prepare()
            os.chdir(folder)
            os.execve(LISPHOST, [LISPHOST, *arguments], environment | {"TERM": "dumb"})

    def type(self, text: str) -> None:
        os.write(self.terminal, text.replace("\n", "\r").encode())  # what the Enter key sends

    def wait_for(self, pattern: str) -> str:
        """Waits until what was shown since the last call matches, and gives the match."""
        if not self.shows_within(TIMEOUT, pattern):
            raise AssertionError(f"{pattern!r} does not appear in {self.shown!r}")
        match = re.search(pattern, self.shown)
        self.shown = self.shown[match.end():]
        return match.group()

    def shows_within(self, seconds: float, pattern: str) -> bool:
        end = time.monotonic() + seconds
        while not re.search(pattern, self.shown):
            if not self._read(end - time.monotonic()):
                return False
        return True

    def wait_for_prompt(self, before: str = "") -> None:
        """Waits for the prompt after this text, and until what is typed goes to the line editor.

        The editor shows its prompt first and then turns the terminal's own line editing off: a Ctrl-D typed in between
        would be taken by neither."""
        self.wait_for(before + "> $")
        end = time.monotonic() + TIMEOUT
        while termios.tcgetattr(self.terminal)[3] & termios.ICANON:
            if time.monotonic() >= end:
                raise AssertionError("lisphost shows a prompt and does not read")
            time.sleep(0.001)

    def wait_for_end(self) -> int:
        end = time.monotonic() + TIMEOUT
        while self._read(end - time.monotonic()):
            pass
        if time.monotonic() >= end:
            raise AssertionError(f"lisphost does not end; it shows {self.shown!r}")
        _, status = os.waitpid(self.process, 0)
        self.process = None
        return os.waitstatus_to_exitcode(status)

    def close(self) -> None:
        os.close(self.terminal)
        if self.process is not None:
            os.kill(self.process, signal.SIGKILL)
            os.waitpid(self.process, 0)

    def _read(self, seconds: float) -> bool:
        if seconds <= 0 or not select.select([self.terminal], [], [], seconds)[0]:
            return False
        try:
            data = os.read(self.terminal, 65536)
        except OSError:  # how Linux reports that the other side is closed
            return False
        text = self.unfinished + data.decode(errors="replace")
        match = UNFINISHED_SEQUENCE.search(text)
        self.unfinished = match.group() if match else ""
        self.shown += plain_text(text.removesuffix(self.unfinished))
        return bool(data)
