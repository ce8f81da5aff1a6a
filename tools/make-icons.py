#!/usr/bin/env python3
"""Draws the dialogs' icons: make-icons.py DIRECTORY writes ok.png and cancel.png there, and the same twice and three
times as large for dense screens, under the names that Qt looks for."""

import math
import pathlib
import struct
import sys
import zlib

SIZE = 16  # of a button's icon, in pixels of an ordinary screen
SCALES = {1: "", 2: "@2x", 3: "@3x"}
SAMPLES = 8  # per pixel and axis: coverage is counted, which smooths the edges
DRAWN_SIZE = 32  # what the strokes below are measured in
STROKE = 2.6  # half the width of a stroke

GREEN = (46, 158, 68)
RED = (208, 52, 44)
TICK = [((6.0, 17.0), (13.0, 24.0)), ((13.0, 24.0), (26.0, 8.5))]
CROSS = [((8.0, 8.0), (24.0, 24.0)), ((24.0, 8.0), (8.0, 24.0))]


def distance(point, segment):
    """From a point to a line segment."""
    (px, py), ((ax, ay), (bx, by)) = point, segment
    dx, dy = bx - ax, by - ay
    along = max(0.0, min(1.0, ((px - ax) * dx + (py - ay) * dy) / (dx * dx + dy * dy)))
    return math.hypot(px - ax - along * dx, py - ay - along * dy)


def coverage(column, row, segments, unit):
    """Which share of a pixel the strokes cover, 0 to 1. A pixel is so many units of the drawing wide."""
    hits = 0
    for i in range(SAMPLES):
        for j in range(SAMPLES):
            point = ((column + (i + 0.5) / SAMPLES) * unit, (row + (j + 0.5) / SAMPLES) * unit)
            hits += min(distance(point, segment) for segment in segments) <= STROKE
    return hits / SAMPLES**2


def pixels(segments, colour, size):
    """The rows of the image, each preceded by PNG's filter byte 0."""
    for row in range(size):
        yield 0
        for column in range(size):
            yield from (*colour, round(255 * coverage(column, row, segments, DRAWN_SIZE / size)))


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(segments, colour, size):
    header = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
    data = zlib.compress(bytes(pixels(segments, colour, size)), 9)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", data) + chunk(b"IEND", b"")


def main():
    directory = pathlib.Path(sys.argv[1])
    for scale, suffix in SCALES.items():
        (directory / f"ok{suffix}.png").write_bytes(png(TICK, GREEN, SIZE * scale))
        (directory / f"cancel{suffix}.png").write_bytes(png(CROSS, RED, SIZE * scale))


if __name__ == "__main__":
    main()
