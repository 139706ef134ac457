"""Other monitors at their default view, beside Orvane in the same run."""

import os
import pty
import shutil
import subprocess
import termios
import threading
import time

from bench.program.figures import all_memory, cpu_seconds, wake_ups

WINDOWS = ("lxtask", "xfce4-taskmanager", "gnome-system-monitor")
TERMINALS = ("htop", "btop")
SETTLING = 10  # seconds
TITLE = f"{'program':<24}{'CPU s/min':>11}{'wake-ups/s':>12}{'anonymous':>11}{'resident':>10}{'PSS MB':>9}"


def table(measurement, orvane):
    """The lines of the table: Orvane in the panel and each peer that is installed."""
    yield TITLE
    yield _line("orvane, panel only", orvane.pid, measurement.seconds)
    for name in filter(shutil.which, WINDOWS + TERMINALS):
        process, finish = _started(measurement.desktop, name)
        time.sleep(SETTLING)
        try:
            yield _line(name, process.pid, measurement.seconds)
        except FileNotFoundError:
            yield f"{name:<24} ended by itself"
        process.kill()
        process.wait()
        finish()


def _line(name, pid, seconds):
    cpu, waking = cpu_seconds(pid), wake_ups(pid)
    time.sleep(seconds)
    cpu, waking = (cpu_seconds(pid) - cpu) * 60 / seconds, (wake_ups(pid) - waking) / seconds
    anonymous, resident, own_share = all_memory(pid)
    return f"{name:<24}{cpu:>11.3f}{waking:>12.2f}{anonymous:>11.1f}{resident:>10.1f}{own_share:>9.1f}"


def _started(desktop, name):
    """(process, what to call after its end)."""
    if name in WINDOWS:
        return desktop.start_program([name], stderr=subprocess.DEVNULL), lambda: None
    screen, terminal = pty.openpty()
    termios.tcsetwinsize(terminal, (40, 120))  # btop wants more than 80 columns
    process = desktop.start_program([name], own_input=terminal, stdout=terminal, stderr=terminal,
                                    environment={"TERM": "xterm-256color", "LC_ALL": "C.UTF-8"})
    os.close(terminal)
    reader = threading.Thread(target=_drain, args=[screen])
    reader.start()
    return process, reader.join


def _drain(screen):
    try:
        while os.read(screen, 65536):
            pass
    except OSError:
        pass  # its end
    os.close(screen)
