"""Runs a program on a private virtual desktop and keeps a picture of it fresh until it ends.

    run.py PROGRAM --picture FILE
"""

import argparse
import pathlib
import signal
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2]))
from tools.desktop.virtual_desktop import VirtualDesktop  # noqa: E402

PICTURE_INTERVAL = 2.0


class Ended(Exception):
    """We were asked to end."""


def end(*_):
    raise Ended


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("program", type=pathlib.Path)
    arguments.add_argument("--picture", type=pathlib.Path, required=True)
    options = arguments.parse_args()
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, end)
    try:
        with VirtualDesktop(all_services=True) as desktop:
            return show(desktop, options.program.resolve(), options.picture.resolve())
    except Ended:
        return 0


def show(desktop, program, picture):
    desktop.start_window_manager()
    desktop.start_notifications()
    desktop.start_panel()
    running = desktop.start_program([str(program)])
    print(f"No display here: Orvane runs on a private virtual desktop "
          f"({desktop.environment['DISPLAY']}), its picture is {picture}; Ctrl-C ends it.", flush=True)
    while running.poll() is None:
        desktop.screen.save(picture)
        time.sleep(PICTURE_INTERVAL)
    return running.returncode


if __name__ == "__main__":
    sys.exit(main())
