"""The languages that are compared: where their programs are and how one is prepared and run."""

import resource
import subprocess
from dataclasses import dataclass
from pathlib import Path
from typing import Callable

PROGRAMS = Path(__file__).parent / "programs"
WORKLOADS = ["fib", "tak", "loop", "concat", "join", "assoc", "sort", "map"]

# apply with 200,000 arguments goes beyond the usual 8 MB of stack in one of the languages.
STACK_BYTES = 1 << 30


@dataclass
class Language:
    name: str
    packages: list[str]
    suffix: str
    prepare: Callable[[Path, Path], Path]  # source, scratch folder -> the file to run
    command: Callable[[Path], list[str]]

    def source(self, workload: str) -> Path:
        return PROGRAMS / self.name / (workload + self.suffix)


def as_is(source: Path, _: Path) -> Path:
    return source


def compile_emacs(source: Path, scratch: Path) -> Path:
    copy = scratch / source.name
    copy.write_bytes(source.read_bytes())
    subprocess.run(["emacs", "-Q", "--batch", "-f", "batch-byte-compile", copy], check=True)
    return copy.with_suffix(".elc")


def compile_guile(source: Path, scratch: Path) -> Path:
    output = scratch / (source.stem + ".go")
    subprocess.run(
        ["guile", "--no-auto-compile", "-c",
         f'((@ (system base compile) compile-file) "{source}" #:output-file "{output}" #:optimization-level 2)'],
        check=True)
    return output


def languages(lisphost: Path) -> list[Language]:
    return [
        Language("autolisp", [], ".lsp", as_is, lambda file: [str(lisphost), "run", str(file)]),
        Language("newlisp", ["newlisp"], ".lsp", as_is, lambda file: ["newlisp", str(file)]),
        Language("picolisp", ["picolisp"], ".l", as_is, lambda file: ["picolisp", str(file)]),
        Language("emacs", ["emacs-nox"], ".el", compile_emacs,
                 lambda file: ["emacs", "-Q", "--batch", "-l", str(file)]),
        Language("guile", ["guile-3.0"], ".scm", compile_guile,
                 lambda file: ["guile", "--no-auto-compile", "-c", f'(load-compiled "{file}")']),
        Language("lua", ["lua5.4"], ".lua", as_is, lambda file: ["lua5.4", str(file)]),
    ]


def raise_stack_limit() -> None:
    _, hard = resource.getrlimit(resource.RLIMIT_STACK)
    wanted = STACK_BYTES if hard == resource.RLIM_INFINITY else min(STACK_BYTES, hard)
    resource.setrlimit(resource.RLIMIT_STACK, (wanted, hard))
