"""Drawings of any number of entities for the comparisons: a mixture as of floor plans, always the same."""

import re
from pathlib import Path

LAYERS = 20


def common(handle: int, kind: str, subclass: str) -> str:
    return (f"  0\n{kind}\n  5\n{handle:X}\n330\n1F\n100\nAcDbEntity\n  8\nLayer{handle % LAYERS}\n"
            f"  6\nContinuous\n 62\n{handle % 7 + 1:6d}\n 48\n1.0\n370\n    25\n100\n{subclass}\n")


def entity(handle: int) -> str:
    x, y = handle % 1000 * 12.625, handle // 1000 * 7.3125 + handle % 13 / 10
    kind = handle % 10
    if kind < 5:
        return (f"{common(handle, 'LINE', 'AcDbLine')} 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n"
                f" 11\n{x + 10.123456:.6f}\n 21\n{y + 3.654321:.6f}\n 31\n0.0\n")
    if kind == 5:
        return f"{common(handle, 'CIRCLE', 'AcDbCircle')} 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n 40\n2.5\n"
    if kind == 6:
        return (f"{common(handle, 'ARC', 'AcDbCircle')} 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n 40\n2.5\n"
                "100\nAcDbArc\n 50\n15.0\n 51\n270.0\n")
    if kind == 7:
        return (f"{common(handle, 'TEXT', 'AcDbText')} 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n 40\n1.8\n"
                f"  1\nRoom {handle}\n100\nAcDbText\n")
    points = "".join(f" 10\n{x + i * 1.5:.6f}\n 20\n{y + i % 2 * 2.25:.6f}\n" for i in range(4))
    return f"{common(handle, 'LWPOLYLINE', 'AcDbPolyline')} 90\n{4:9d}\n 70\n     1\n 43\n0.0\n{points}"


def layer(number: int) -> str:
    return (f"  0\nLAYER\n  5\n{0xF000 + number:X}\n330\n7\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n"
            f"  2\nLayer{number}\n 70\n0\n 62\n7\n  6\nContinuous\n")


def write_drawing(path: Path, empty: str, count: int) -> None:
    """Puts the entities and their layers into an empty drawing, given as its text."""
    first = 0x10000
    text = re.sub(r"(\$HANDSEED\n +5\n).*\n", rf"\g<1>{first + count:X}\n", empty)
    text = re.sub(r"(TABLE\n +2\nLAYER\n(?:.*\n)*?)(  0\nENDTAB\n)",
                  lambda table: table[1] + "".join(map(layer, range(LAYERS))) + table[2], text, count=1)
    head, tail = text.split("  2\nENTITIES\n", 1)
    with path.open("w", encoding="ascii", newline="\n") as file:
        file.write(head + "  2\nENTITIES\n")
        for begin in range(0, count, 10000):
            file.write("".join(entity(first + i) for i in range(begin, min(begin + 10000, count))))
        file.write(tail)
