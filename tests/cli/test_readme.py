"""The screens on pages show what really happens: each command after "$" is run and its output compared."""

import re
import subprocess
import unittest
from pathlib import Path

from lisphost import LISPHOST, TIMEOUT, LispHostTest, with_paths_of_this_machine

ROOT = Path(__file__).resolve().parents[2]


def screens(page: str) -> list[tuple[str, str]]:
    """The commands and what follows each of them."""
    blocks = re.findall(r"(?:^(?:    .*|)\n)+", (ROOT / page).read_text(), re.MULTILINE)
    indented = "".join(block for block in blocks if block.lstrip().startswith("$ "))
    shown = re.sub("^    ", "", indented, flags=re.MULTILINE)
    return re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", shown, re.MULTILINE)


class Screens(LispHostTest):
    def normalised(self, text: str) -> str:
        text = with_paths_of_this_machine(text, self.folder)
        text = text.replace(str(self.folder), "/home/you/drawings")
        return re.sub(r"\S*/tmp\.\w+", "<copy>", text).strip()

    def printed(self, command: str) -> str:
        command = f"{ROOT}/examples/run-demo {LISPHOST}" if command == "./run" else command.replace("./run", LISPHOST)
        process = subprocess.run(command, shell=True, cwd=self.folder, env=self.environment | {"TMPDIR": str(self.folder)}, stdout=subprocess.PIPE,
                                 stderr=subprocess.STDOUT, text=True, timeout=TIMEOUT)
        return process.stdout

    def assert_true(self, page: str, least: int):
        found = screens(page)
        self.assertGreaterEqual(len(found), least)
        for command, shown in found:
            with self.subTest(command):
                if command.startswith("cat "):
                    self.write(command.removeprefix("cat "), shown)
                else:
                    self.assertEqual(self.normalised(self.printed(command)), self.normalised(shown))

    def test_those_of_the_readme(self):
        self.assert_true("README.md", least=5)

    def test_those_about_testing(self):
        self.assert_true("docs/testing.md", least=5)


unittest.main()
