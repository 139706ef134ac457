"""What the open main window costs: memory, standing still, a boost's animation, changing tabs."""

import re
import subprocess
import time

from bench.program.figures import Row, cpu_seconds, main_thread_seconds
from tools.desktop.processes import wait_for

FRAME_LINE = "polish="  # Qt Quick's own line for each frame it drew
SWITCHES = 8
# Points in the window's content.
OVERVIEW, PROCESSES, BOOST = (120, 44), (320, 44), (220, 402)
TAB_CONTENT = (20, 100, 400, 300)
BETWEEN_SAMPLES = 3  # seconds, of the five


def window_corner(desktop):
    """Where the main window's content begins; None while there is no window."""
    seen = subprocess.run(["xwininfo", "-name", "Orvane"], env=desktop.environment,
                          capture_output=True, text=True, check=False).stdout
    corner = re.findall(r"Absolute upper-left [XY]:\s+(\d+)", seen)
    return tuple(map(int, corner)) if len(corner) == 2 and "IsViewable" in seen else None


class MainWindowMeasurement:
    def __init__(self, measurement):
        self.measurement = measurement
        self.desktop, self.pointer = measurement.desktop, measurement.pointer
        self.seconds = measurement.seconds
        self.frames = self.desktop.folder / "frames"
        with open(self.frames, "ab") as log:
            self.orvane = measurement.start(first_launch=True, errors=log, environment={
                "QT_LOGGING_RULES": "qt.scenegraph.time.renderloop.debug=true"})
        self.orvane.wait_for_item()
        self.left, self.top = wait_for("main window", 10, lambda: window_corner(self.desktop))
        time.sleep(6)  # the first list is built 5 s after the start

    def rows(self):
        window = self.desktop.start_program([str(self.measurement.build / "bench/program/empty_window")])
        time.sleep(3)
        yield from self.measurement.memory_rows("main window open", self.orvane, window, 10, 50)
        window.terminate()
        window.wait()
        yield from self._standing_still()
        yield from self._switching_tabs()
        yield from self._boosting()
        self.orvane.stop()

    def _frame_count(self):
        return self.frames.read_text(errors="replace").count(FRAME_LINE)

    def _standing_still(self):
        cpu, frames = cpu_seconds(self.orvane.pid), self._frame_count()
        time.sleep(self.seconds)
        cpu = (cpu_seconds(self.orvane.pid) - cpu) * 60 / self.seconds
        yield Row("CPU, main window open", cpu, 0.10, "s/min",
                  f"{(self._frame_count() - frames) * 5 / self.seconds:.1f} frames a sample")
        yield Row("frames between two samples", self._frames_between_samples(), 0, "")

    def _frames_between_samples(self):
        """Right after a sample's own frames are drawn; a sample that changes nothing draws none."""
        deadline = time.monotonic() + 30
        seen = self._frame_count()
        while self._frame_count() == seen and time.monotonic() < deadline:
            time.sleep(0.02)
        time.sleep(1.5)  # the springs come to rest
        seen = self._frame_count()
        time.sleep(BETWEEN_SAMPLES)
        return self._frame_count() - seen

    def _switching_tabs(self):
        times = []
        for point in [PROCESSES, OVERVIEW] * (SWITCHES // 2):
            times.append(self._until_changed(point))
            time.sleep(0.4)
        first, later = times[0], sorted(times[1:])
        yield Row("tab switch: press to frame, first time", first, 50, "ms")
        yield Row("tab switch: press to frame, later", later[len(later) // 2], 50, "ms",
                  "each: " + " ".join(f"{each:.0f}" for each in times[1:]))

    def _until_changed(self, point):
        x, y, width, height = TAB_CONTENT
        area = (self.left + x, self.top + y, width, height)
        before = self.desktop.screen.area(*area)
        pressed = self.pointer.press(self.left + point[0], self.top + point[1])
        wait_for("other tab", 5, lambda: self.desktop.screen.area(*area) != before, interval=0.0005)
        shown = time.monotonic()
        self.pointer.release()
        return (shown - pressed) * 1000

    def _boosting(self):
        """The claim is made on another thread: the main thread's time is the animation's."""
        self.pointer.click(self.left + BOOST[0], self.top + BOOST[1])
        time.sleep(0.3)
        start, cpu, frames = time.monotonic(), main_thread_seconds(self.orvane.pid), self._frame_count()
        time.sleep(1.0)
        passed = time.monotonic() - start
        cpu = main_thread_seconds(self.orvane.pid) - cpu
        rate = (self._frame_count() - frames) / passed
        yield Row("boost's animation, share of a core", 100 * cpu / passed, 10, "%",
                  f"{rate:.0f} frames/s")
