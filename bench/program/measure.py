"""Measures the running program on a virtual desktop: measure.py BUILD_DIR [--seconds N]

Each figure stands beside its bound, and where that says something beside the same figure of an empty window
of Qt Quick, measured in the same run; at the end Orvane stands beside the other monitors.
"""

import argparse
import itertools
import os
import pathlib
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT))
from bench.program.changing_machine import ChangingMachine  # noqa: E402
from bench.program.figures import HEAD, Row, cpu_seconds, memory, proportional, wake_ups  # noqa: E402
from bench.program.main_window import MainWindowMeasurement  # noqa: E402
from bench.program.peers import table  # noqa: E402
from tools.desktop.orvane import Orvane  # noqa: E402
from tools.desktop.panel import find_item  # noqa: E402
from tools.desktop.pointer import Pointer  # noqa: E402
from tools.desktop.processes import wait_for  # noqa: E402
from tools.desktop.session import Session  # noqa: E402
from tools.desktop.virtual_desktop import VirtualDesktop  # noqa: E402

OPENINGS = 6
STARTS = 5
PROCESSES = 100
READING_PERIOD = 300  # seconds
HOG = "block = bytearray(510 << 20); block[::4096] = b'x' * len(block[::4096]); import time; time.sleep(3600)"


class Measurement:
    def __init__(self, desktop, build, seconds):
        self.desktop, self.build, self.seconds = desktop, build, seconds
        self.session = Session(desktop.bus_address)
        self.pointer = Pointer(desktop.environment["DISPLAY"])

    def start(self, **options):
        return Orvane(self.desktop, self.build / "orvane", self.session, accessible=False, **options)

    def rows(self):
        yield self.start_up()
        window = self.desktop.start_program([str(self.build / "bench/program/empty_window")])
        orvane = self.start()
        orvane.wait_for_item()
        time.sleep(6)  # the first list is built 5 s after the start
        yield from self.memory_rows("panel only", orvane, window, 2.6, 23.5)
        yield from self.rest_rows("at rest", orvane, window, 0.05, 1.0)
        window.terminate()
        window.wait()
        yield self.rest_beside_large_applications(orvane)
        yield from self.popover_rows(orvane)
        orvane.stop()
        yield from MainWindowMeasurement(self).rows()
        yield from ChangingMachine(self).rows()

    def peers(self):
        orvane = self.start()
        orvane.wait_for_item()
        time.sleep(6)
        yield from table(self, orvane)
        orvane.stop()

    def start_up(self):
        """Processor time from exec to the item registered; the best of a few, as caches warm."""
        costs = []
        for _ in range(STARTS):
            orvane = self.start()
            while not orvane.item():
                time.sleep(0.002)
            costs.append(cpu_seconds(orvane.pid))
            orvane.stop()
        spread = f"{STARTS} starts: " + " ".join(f"{cost:.3f}" for cost in costs)
        return Row("CPU from exec to the item", sorted(costs)[STARTS // 2], 0.10, "s", spread)

    @staticmethod
    def memory_rows(when, orvane, window, *bounds):
        figures = zip(("anonymous", "resident"), memory(orvane.pid), memory(window.pid), bounds)
        for kind, own, floor, bound in figures:
            yield Row(f"{kind} memory, {when}", own, bound, "MB", floor=floor)

    def rest_rows(self, when, orvane, window, cpu_bound, wake_bound):
        pids = orvane.pid, window.pid
        before = [(cpu_seconds(pid), wake_ups(pid)) for pid in pids]
        time.sleep(self.seconds)
        cpu, floor = ((cpu_seconds(pid) - old) * 60 / self.seconds for pid, (old, _) in zip(pids, before))
        yield Row(f"CPU {when}", cpu, cpu_bound, "s/min", floor=floor)
        waking, floor = ((wake_ups(pid) - old) / self.seconds for pid, (_, old) in zip(pids, before))
        yield Row(f"wake-ups {when}", waking, wake_bound, "/s", floor=floor)

    def rest_beside_large_applications(self, orvane):
        """For as long as it takes to read each of them once, which is what they cost."""
        hogs = [self.desktop.start_program([sys.executable, "-c", HOG]) for _ in range(4)]
        sleepers = [self.desktop.start_program(["sleep", "3600"])
                    for _ in range(PROCESSES - sum(name.isdigit() for name in os.listdir("/proc")))]
        wait_for("2 GB", 60, lambda: all(memory(hog.pid)[0] > 500 for hog in hogs))
        cpu = cpu_seconds(orvane.pid)
        time.sleep(READING_PERIOD)
        cpu = (cpu_seconds(orvane.pid) - cpu) * 60 / READING_PERIOD
        start = time.thread_time()
        for hog in hogs:
            proportional(hog.pid)
        once = (time.thread_time() - start) * 1000
        for process in hogs + sleepers:
            process.kill()
            process.wait()
        return Row("CPU at rest beside applications of 2 GB", cpu, 0.05, "s/min",
                   f"reading their true sizes once: {once:.0f} ms")

    def popover_rows(self, orvane):
        times = [self.opening() for _ in range(OPENINGS)]
        later = sorted(times[1:])
        yield Row("popover: click to first frame, first time", times[0], 150, "ms")
        yield Row("popover: click to first frame, later", later[len(later) // 2], 50, "ms",
                  "each: " + " ".join(f"{each:.0f}" for each in times[1:]))
        anonymous, resident = memory(orvane.pid)
        yield Row("anonymous memory after the popover was closed", anonymous, 10, "MB")
        yield Row("resident memory after the popover was closed", resident, 50, "MB")

    def opening(self):
        """Milliseconds from the mouse button's release on the item to the popover's first frame."""
        screen, point = self.desktop.screen, find_item(self.desktop)
        self.pointer.move(point[0] - 400, 400)  # a pointer that rests on the item shows a tooltip
        time.sleep(0.7)
        area = (point[0] - 140, 60, 280, 40)
        before = screen.area(*area)
        released = self.pointer.click(*point)
        while screen.area(*area) == before:
            if time.monotonic() - released > 5:
                raise TimeoutError("the popover never showed")
            time.sleep(0.0005)
        shown = time.monotonic()
        # The first pixels are the finished frame: text and ring are in it.
        colours = screen.colours(*area)
        if colours < 12:
            print(f"note: only {colours} colours in the first frame")
        time.sleep(0.5)
        self.pointer.key("Escape")
        wait_for("closed popover", 5, lambda: screen.area(*area) == before)
        return (shown - released) * 1000


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--seconds", type=float, default=60, help="how long rest is watched")
    options = arguments.parse_args()
    with VirtualDesktop() as desktop:
        os.environ.update(desktop.environment)
        desktop.start_window_manager()
        desktop.start_notifications()
        desktop.start_panel()
        measurement = Measurement(desktop, options.build.resolve(), options.seconds)
        for line in itertools.chain([HEAD], measurement.rows(), measurement.peers()):
            print(line, flush=True)


if __name__ == "__main__":
    main()
