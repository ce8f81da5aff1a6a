"""Running lisphost from the tests. ctest says which one in the environment variable LISPHOST."""

import ctypes
import os
import re
import signal
import subprocess
import tempfile
import unittest
from dataclasses import dataclass
from pathlib import Path

LISPHOST = os.environ["LISPHOST"]
FOLDER = Path(os.environ["LISPHOST_FOLDER"])  # where the program and its module are
WINDOWS = os.environ["LISPHOST_SYSTEM"] == "Windows"  # the program is one for Windows, run under Wine

# Far beyond what any test takes: a build with sanitizers on a busy machine is slow.
TIMEOUT = 120


PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH = 24, 1, 2
LIBC = ctypes.CDLL(None, use_errno=True)


def respect_permissions() -> None:
    """Called in the child: permissions then bind root as they bind everybody else, while paths stay reachable."""
    if os.geteuid() == 0:
        for capability in (CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH):
            if LIBC.prctl(PR_CAPBSET_DROP, capability, 0, 0, 0) != 0:
                raise OSError(ctypes.get_errno(), "the right to ignore permissions cannot be given up")


def begin_in_the_foreground() -> None:
    """Called in the child. A shell that starts a job in the background makes it ignore Ctrl-C; the tests may run below
    one."""
    signal.signal(signal.SIGINT, signal.SIG_DFL)
    respect_permissions()


def native(path: str | Path) -> str:
    """A path of this machine as the program shows it: to Windows all of this machine is drive Z."""
    return "Z:" + str(path).replace("/", "\\") if WINDOWS else str(path)


def quoted(text: str) -> str:
    """A text as it stands in programs, and as prin1 shows it."""
    escapes = {"\\": "\\\\", '"': '\\"', "\n": "\\n"}
    return '"' + "".join(escapes.get(character, character) for character in text) + '"'


def with_paths_of_this_machine(text: str, folder: str | Path) -> str:
    """What the program printed; in the paths below the folder drive and separators are those of this machine."""
    def here(match: re.Match) -> str:
        return re.sub(r"\\+", "/", match[0].removeprefix("Z:"))
    if not WINDOWS:
        return text
    shown = "Z:" + re.escape(str(folder)).replace("/", r"[/\\]+")
    return re.sub(shown + r'[^\s"]*', here, text)


def profile_below(folder: str | Path) -> dict[str, str]:
    """The environment in which settings and registry are kept in the folder."""
    if WINDOWS:  # where the folder of the user is not taken from the environment
        return {"LISPHOST_PROFILE": f"{folder}/lisphost"}
    return {"HOME": str(folder), "XDG_DATA_HOME": str(folder)}


def possible_names(names: list[str]) -> list[str]:
    """Those that a file can have: on Windows quotes, backslashes and ends of lines are in none."""
    return [name for name in names if not (WINDOWS and set(name) & set('"\\\n'))]


@dataclass
class Outcome:
    status: int  # negative: the number of the signal that ended the program
    output: str
    errors: str


class LispHostTest(unittest.TestCase):
    """Each test works in a folder of its own, which also holds the profile; nothing of the user's is touched."""

    def setUp(self) -> None:
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name).resolve()
        self.profile = self.folder / ".profile"
        self.environment = os.environ | profile_below(self.profile)

    def write(self, name: str, content: str | bytes) -> Path:
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content.encode() if isinstance(content, str) else content)
        return path

    def lisphost(self, *arguments: str | Path, typed: str = "") -> Outcome:
        process = subprocess.run([LISPHOST, *arguments], cwd=self.folder, env=self.environment, input=typed.encode(),
                                 capture_output=True, timeout=TIMEOUT, preexec_fn=respect_permissions)
        return Outcome(process.returncode, process.stdout.decode(), process.stderr.decode())

    def evaluate(self, *expressions: str) -> Outcome:
        return self.lisphost("eval", *expressions)

    def run_program(self, text: str | bytes, name: str = "program.lsp") -> Outcome:
        self.write(name, text)
        return self.lisphost("run", name)

    def assert_gives(self, outcome: Outcome, output: str) -> None:
        """The program ended well, with exactly this on standard output and nothing on standard error."""
        self.assertEqual(outcome, Outcome(0, output, ""))

    def assert_fails(self, outcome: Outcome, status: int, pattern: str) -> None:
        """The program ended with this status and a message on standard error that matches the pattern."""
        self.assertEqual(outcome.status, status, outcome)
        self.assertRegex(outcome.errors, pattern)
