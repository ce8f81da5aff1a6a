"""Runs a command in a fresh folder and compares what it prints with a stored transcript.

Usage: run_transcript.py [--update] EXPECTED COMMAND ARGUMENT ...
The folder's path reads <folder> in the transcript. --update stores what was printed; look at the difference."""

import difflib
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

from lisphost import profile_below, with_paths_of_this_machine


def transcript(command: list[str]) -> str:
    with tempfile.TemporaryDirectory() as scratch:
        folder = os.path.realpath(scratch)
        process = subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL, capture_output=True,
                                 env=os.environ | {"TMPDIR": folder} | profile_below(folder))
    output, errors = process.stdout.decode(), process.stderr.decode()
    if process.returncode != 0 or errors:
        output += f"\nstatus {process.returncode}\n{errors}"
    # The command may have made a temporary folder of its own inside.
    output = with_paths_of_this_machine(output, folder)
    return re.sub(re.escape(folder) + r"(/tmp\.\w+)?", "<folder>", output)


def main() -> None:
    arguments = sys.argv[1:]
    update = arguments[0] == "--update"
    if update:
        arguments.pop(0)
    expected, printed = Path(arguments[0]), transcript(arguments[1:])
    if update:
        expected.write_text(printed)
    stored = expected.read_text()
    if printed != stored:
        sys.exit("".join(difflib.unified_diff(stored.splitlines(True), printed.splitlines(True), "stored", "printed")))


main()
