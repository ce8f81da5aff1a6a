#!/usr/bin/env python3
"""Runs a program on a screen of its own: on_screen.py PLATFORM SCALE PICTURES PROGRAM [ARGUMENT ...].

PLATFORM is the plug-in with which Qt shows windows: xcb, or windows for a program that Wine runs. The screen is Xvfb with
the window manager openbox; without them the status is 77, which means that nothing was tested.
The program finds the folder for its pictures in SCREEN_PICTURES."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

SKIPPED = 77


def start_screen(scale):
    """The X server and the name of its display, which the server chooses itself."""
    read_end, write_end = os.pipe()
    size = f"{1280 * scale}x{960 * scale}x24"
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-screen", "0", size, "-nolisten", "tcp"],
                              pass_fds=[write_end], stderr=subprocess.DEVNULL)
    os.close(write_end)
    with os.fdopen(read_end) as answer:
        return server, f":{answer.readline().strip()}"


def start_manager(environment):
    """The window manager, which says that it is ready by running a command."""
    with tempfile.TemporaryDirectory() as folder:
        ready = pathlib.Path(folder) / "ready"
        manager = subprocess.Popen(["openbox", "--sm-disable", "--startup", f"touch {ready}"], env=environment,
                                   stderr=subprocess.DEVNULL)
        deadline = time.monotonic() + 20
        while not ready.exists() and time.monotonic() < deadline:
            time.sleep(0.02)
    return manager


def end(process):
    process.terminate()
    try:
        process.wait(timeout=10)
    except subprocess.TimeoutExpired:
        process.kill()


def main():
    platform, scale, pictures, *command = sys.argv[1:]
    if not shutil.which("Xvfb") or not shutil.which("openbox"):
        print("no screen: Xvfb or openbox is missing")
        return SKIPPED
    pathlib.Path(pictures).mkdir(parents=True, exist_ok=True)
    server, display = start_screen(int(scale))
    environment = os.environ | {"DISPLAY": display, "QT_QPA_PLATFORM": platform, "QT_SCALE_FACTOR": scale,
                                "SCREEN_PICTURES": pictures}
    manager = start_manager(environment)
    try:
        return subprocess.run(command, env=environment, timeout=240, check=False).returncode
    finally:
        end(manager)
        end(server)


if __name__ == "__main__":
    sys.exit(main())
