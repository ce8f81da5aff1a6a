#!/usr/bin/env python3
"""Checks that every folder includes only what it may use: check_includes.py REPOSITORY QT-HEADERS.

The table says which folder may use which; a folder may always use itself. Widgets and pictures are kept out of the
folders that must build without them, and differences of operating systems out of all but a few sources. Texts of UTF-16
units are converted in one way alone.
"""

import pathlib
import re
import sys

# The tests, benchmarks and fuzz targets may use everything and are not listed.
MAY_USE = {
    "sdk": [],
    "sdk/fx/ui": ["sdk"],
    "storage": [],
    "platform": ["storage"],
    "platform/ui": ["platform", "sdk"],
    "resources": [],
    "lisp": ["sdk"],
    "dialogs": ["sdk"],
    "functions": ["lisp", "dialogs", "sdk", "platform"],
    "module": ["lisp", "functions", "dialogs", "resources", "sdk", "platform"],
    "host/palette": [],
    "host/sdk": ["sdk", "host/palette"],
    "host/sdk/ui": ["sdk"],
    "host/interpreter": [],
    "host/drawing": ["storage"],
    "host/drawing/geometry": ["host/drawing", "host/text"],
    "host/text": [],
    "host/render": ["host/drawing", "host/palette", "host/text", "storage"],
    "host/commands": ["host/interpreter", "host/drawing", "host/palette"],
    "host/kernel": ["host/sdk", "host/interpreter", "host/drawing", "host/commands", "lisp", "sdk", "platform",
                    "storage"],
    "host/lisptest": ["host/interpreter", "host/kernel", "storage"],
    "host/ui": ["host/kernel", "host/render", "host/sdk", "host/interpreter", "host/drawing", "host/commands",
                "host/palette", "lisp", "sdk", "platform", "storage"],
    "app": ["host", "lisp", "sdk", "storage"],
}
WITHOUT_GUI = ["lisp", "platform", "storage", "sdk", "host/interpreter", "host/drawing", "host/commands", "host/sdk"]
GUI = ["QtWidgets", "QtGui"]
GUI_ROOMS = ["sdk/fx/ui", "platform/ui", "host/sdk/ui", "host/ui"]

# The folders and sources that may compile to something else on another system.
MAY_BRANCH = ["platform/", "storage/", "sdk/fx/FxExport.h", "sdk/fx/ui/FxUiExport.h", "sdk/oda/OdRxExport.h",
              "host/interpreter/NativeStack.cpp", "host/kernel/ModuleLoader.cpp"]

BRANCH = re.compile(r"^\s*#\s*(?:el)?if.*\b(?:_WIN|WIN32|Q_OS_|__linux|__unix|__MINGW|_MSC_VER)", re.MULTILINE)
# Takes a first U+FEFF for a byte order mark and drops it, which no text in memory has.
DROPS_MARK = re.compile(r"\bQString::fromUtf16\b")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def room_of(path):
    """The longest folder of the table that a path lies in."""
    return max((room for room in MAY_USE if path.startswith(room + "/")), key=len)


def allows(room, header):
    return any(header.startswith(folder + "/") for folder in [room, *MAY_USE[room]])


def is_gui_header(qt_headers, header):
    return any(header.startswith(module) or (qt_headers / module / header).is_file() for module in GUI)


def faults(repository, qt_headers, source):
    """What is wrong with one source."""
    name = source.relative_to(repository).as_posix()
    room = room_of(name)
    text = source.read_text(encoding="utf-8")
    if BRANCH.search(text) and not name.startswith(tuple(MAY_BRANCH)):
        yield f"{name}: differs from system to system, which only platform/ and a few others may"
    if DROPS_MARK.search(text):
        yield f"{name}: QString::fromUtf16 drops a first U+FEFF; QStringView(text).toString() does not"
    for quote, header in INCLUDE.findall(text):
        if quote == "<":
            if room in WITHOUT_GUI and is_gui_header(qt_headers, header):
                yield f"{name}: <{header}> is a header of the user interface"
        elif header.startswith("ui_"):
            continue  # made by uic from a form in the same folder
        elif not (repository / header).is_file():
            yield f'{name}: "{header}" is no path from the root of the repository'
        elif not allows(room, header) or (room in WITHOUT_GUI and room_of(header) in GUI_ROOMS):
            yield f'{name}: {room} may not use "{header}"'


def sources(repository):
    for folder in MAY_USE:
        for pattern in ("*.h", "*.cpp"):
            yield from (repository / folder).rglob(pattern)


def main():
    repository, qt_headers = (pathlib.Path(argument) for argument in sys.argv[1:3])
    checked = set(sources(repository))
    found = [fault for source in sorted(checked) for fault in faults(repository, qt_headers, source)]
    print("\n".join(found) or f"{len(checked)} sources keep to the table")
    # Nothing to check means that the wrong folder was named.
    return 1 if found or not checked else 0


if __name__ == "__main__":
    sys.exit(main())
