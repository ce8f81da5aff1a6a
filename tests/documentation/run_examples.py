#!/usr/bin/env python3
"""Runs the examples of a reference page: run_examples.py LISPHOST PAGE.

Under a heading the first indented block says how the function is called. Every further block that begins with a
parenthesis holds examples: an expression, and behind the semicolon the value that it prints; words may follow the value
after a comma or colon. Blocks that begin with @ hold what the user answers, line by line. The examples of one heading run in one program, those of a page in one directory.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

# What the examples find in their directory.
FOLDERS = ["drawings/old", "old"]
FILES = {
    "plan.dxf": "",
    "new.dxf": "",
    "plan.bak": "",
    "locked.dxf": "",
    "tools.ini": "[Main]\ncolour=red\nsize=10\n\n[Paths]\nsupport=C:/support\n",
}
READ_ONLY = ["locked.dxf"]

# Values that differ from day to day and place to place.
VARYING = {
    "(acet-file-cwd)": r'"(/|Z:\\\\).*"',
    '(acet-file-chdir "drawings/old")': r'"drawings(/|\\\\)old"',
    '(acet-file-readdialog "Open" "" "dxf" "" 0)': r'"(Z:)?/.*/plan\.dxf"',
    '(acet-ui-pickdir "" "." "Where to?")': r'"(Z:)?/.*/drawings/old"',
    "(acet-util-ver)": r'"LispExtension Version: [A-Z][a-z]{2} [ 1-3]\d 20\d\d"',
}

# What Windows gives instead of a value of the page; docs/platforms.md tells why.
ON_WINDOWS = {
    ('(startapp "true")', "42"): "2",
    ('(startapp "/nonexistent/readme.txt")', "3"): "2",
    ('(acet-file-writedialog "Save" "drawings" "Texts (*.txt)" "" 1)', '"drawings/report.txt"'):
        r'"Z:/.*/drawings/report\.txt"',
}

# Stands behind the output of each example. Where the user answers, prompts stand before the value.
END, END_MARK = "(progn (princ (chr 30)) (princ))", "\x1e"

VALUE = re.compile(r';\s+("(?:[^"\\]|\\.)*"|\([^)]*\)|[^\s,:]+)')


def blocks(section):
    """The indented blocks of a section, each as its lines without the indentation."""
    for paragraph in re.split(r"\n\s*\n", section):
        lines = [line for line in paragraph.splitlines() if line.startswith("    ")]
        if lines:
            yield [line[4:] for line in lines]


def examples(block):
    """Expression and value of each example of a block; an expression may take several lines."""
    expression = ""
    for line in block:
        code, semicolon, comment = line.partition(";")
        expression = f"{expression} {code.strip()}".strip()
        if semicolon:
            value = VALUE.match(semicolon + comment)
            if value is None:
                raise ValueError(f"no value behind the semicolon: {line}")
            yield expression, value.group(1)
            expression = ""
    if expression:
        raise ValueError(f"an example without a value: {expression}")


def sections(page):
    """The examples of each heading that has any, and the user's answers to them."""
    for section in re.split(r"^## ", page, flags=re.MULTILINE)[1:]:
        further = list(blocks(section))[1:]
        found = [example for block in further if block[0].startswith("(") for example in examples(block)]
        answers = [line for block in further if block[0].startswith("@") for line in block]
        if found:
            yield found, answers


def furnish(directory):
    for folder in FOLDERS:
        (directory / folder).mkdir(parents=True)
    for name, content in FILES.items():
        (directory / name).write_text(content, encoding="utf-8")
    for name in READ_ONLY:
        (directory / name).chmod(0o444)


def agrees(expression, expected, printed):
    if expression in VARYING:
        return re.fullmatch(VARYING[expression], printed) is not None
    if os.environ["LISPHOST_SYSTEM"] == "Windows" and (expression, expected) in ON_WINDOWS:
        return re.fullmatch(ON_WINDOWS[expression, expected], printed) is not None
    return printed == expected


def failures(lisphost, directory, found, answers):
    """What the examples of one heading print, where it is not what the page says."""
    answers_file = directory / "answers.txt"
    answers_file.write_text("".join(f"{line}\n" for line in answers), encoding="utf-8")
    expressions = [part for expression, _ in found for part in (expression, END)]
    command = [lisphost, "eval", *expressions, "--answers", str(answers_file)]
    environment = os.environ | {"LISPHOST_PROFILE": str(directory / "profile")}
    result = subprocess.run(command, cwd=directory, env=environment, capture_output=True, text=True, timeout=60, check=False)
    printed = [part.strip("\n").splitlines() for part in result.stdout.split(END_MARK)[:-1]]
    is_odd = len(printed) != len(found) or any(not lines or (len(lines) > 1 and not answers) for lines in printed)
    if result.returncode != 0 or is_odd or "no answer left" in result.stderr:
        yield f"status {result.returncode}: {[expression for expression, _ in found]}\n{result.stdout}{result.stderr}"
        return
    for (expression, expected), lines in zip(found, printed):
        if not agrees(expression, expected, lines[-1]):
            yield f"{expression}\n  printed  {lines[-1]}\n  expected {expected}"


def main():
    lisphost, page = sys.argv[1], pathlib.Path(sys.argv[2])
    all_examples = list(sections(page.read_text(encoding="utf-8")))
    with tempfile.TemporaryDirectory() as name:
        directory = pathlib.Path(name)
        furnish(directory)
        wrong = [failure for found, answers in all_examples for failure in failures(lisphost, directory, found, answers)]
    print("\n".join(wrong) or f"{sum(len(found) for found, _ in all_examples)} examples print what the page says")
    # A page without a single example was not understood.
    return 1 if wrong or not all_examples else 0


if __name__ == "__main__":
    sys.exit(main())
