"""What Orvane costs where the figure changes at every sample, and what an opened window leaves behind."""

import threading
import time

from bench.program.figures import Row, memory, process_seconds, wake_ups
from bench.program.main_window import OVERVIEW, PROCESSES, window_corner
from tools.desktop.orvane import Orvane, meminfo, replace_in_place
from tools.desktop.processes import wait_for

BETWEEN_CHANGES = 5  # seconds, as between two samples
USED = 50, 52  # percent


class ChangingMachine:
    def __init__(self, measurement):
        self.measurement, self.desktop = measurement, measurement.desktop
        self.seconds, self.pointer = measurement.seconds, measurement.pointer
        self.meminfo = self.desktop.folder / "meminfo"
        self.meminfo.write_text(meminfo(USED[0]))
        self.ended = threading.Event()
        self.orvane = measurement.start(meminfo_file=self.meminfo)

    def rows(self):
        changes = threading.Thread(target=self._change)
        changes.start()
        try:
            yield from self._rows()
        finally:
            self.ended.set()
            changes.join()
            self.orvane.stop()

    def _change(self):
        count = 0
        while not self.ended.wait(BETWEEN_CHANGES):
            count += 1
            replace_in_place(self.meminfo, meminfo(USED[count % len(USED)]))

    def _rows(self):
        self.orvane.wait_for_item()
        time.sleep(6)  # the first list is built 5 s after the start
        never_opened = memory(self.orvane.pid)[0]
        yield from self._cost("panel only", 0.03, 1.0)
        self._order("--show")
        left, top = wait_for("main window", 10, lambda: window_corner(self.desktop))
        for tab, point, bound in (("Overview", OVERVIEW, 0.10), ("Processes", PROCESSES, 0.20)):
            self.pointer.click(left + point[0], top + point[1])
            time.sleep(2)
            yield next(self._cost(tab, bound))
        self.pointer.key("Control_L", "w")
        wait_for("closed window", 10, lambda: window_corner(self.desktop) is None)
        time.sleep(10)
        yield Row("anonymous memory left by a closed window", memory(self.orvane.pid)[0] - never_opened,
                  1.0, "MB", f"never opened: {never_opened:.2f}")

    def _order(self, option):
        Orvane(self.desktop, self.measurement.build / "orvane", home=self.orvane.home,
               accessible=False, options=[option]).process.wait(timeout=10)

    def _cost(self, view, cpu_bound, wake_bound=None):
        cpu, waking = process_seconds(self.orvane.pid), wake_ups(self.orvane.pid)
        time.sleep(self.seconds)
        cpu = (process_seconds(self.orvane.pid) - cpu) * 60 / self.seconds
        yield Row(f"CPU, figure always changing, {view}", cpu, cpu_bound, "s/min")
        if wake_bound:
            waking = (wake_ups(self.orvane.pid) - waking) / self.seconds
            yield Row(f"wake-ups, figure always changing, {view}", waking, wake_bound, "/s")
