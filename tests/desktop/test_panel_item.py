"""The item in a real panel: when it comes, what it says, and panels that come and go; the alert."""

import os
import pathlib
import signal
import subprocess
import time

from tests.desktop.desktop_case import DesktopCase

from tools.desktop.orvane import meminfo, replace_in_place

FILLED = 2 * 1024 ** 3


def used_percent():
    """Used memory in percent, as `free` says now."""
    figures = subprocess.run(["free", "--bytes"], capture_output=True, text=True,
                             check=True).stdout.splitlines()[1].split()
    total, available = int(figures[1]), int(figures[6])
    return (total - available) * 100 / total


class PanelItem(DesktopCase):
    def agrees(self, orvane):
        figure = orvane.item().percentage()
        # The figure is cut to whole percents: 57.9 is 57.
        return figure is not None and -1 <= used_percent() - figure <= 2 and [figure]

    def test_shows_what_free_shows_and_follows(self):
        started = time.monotonic()
        orvane = self.start_orvane()
        item = orvane.wait_for_item(2)
        self.wait_for("figure that agrees with free", 2 - (time.monotonic() - started),
                      lambda: self.agrees(orvane))
        self.assertRegex(item.label(), r"^ \d+%$")
        self.assertIn(item.label().strip(), str(item.get("ToolTip")))
        self.assertIn(item.label().strip(), item.get("Title"))
        loaded = pathlib.Path(f"/proc/{orvane.pid}/maps").read_text()
        self.assertIn("libQt6Gui", loaded)
        self.assertNotRegex(loaded, "libQt6(Network|Qml|Quick)", "only the windows need these")
        before = used_percent()

        filler = subprocess.Popen(["/usr/bin/python3", "-c",
                                   f"kept = b'x' * {FILLED}; print(flush=True); input()"],
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.addCleanup(filler.wait)
        self.addCleanup(filler.kill)
        filler.stdout.readline()
        share = FILLED * 100 / (os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE"))
        self.wait_for("risen figure", 15, lambda: used_percent() > before + share / 3
                      and item.percentage() > before + share / 3 and self.agrees(orvane))
        self.picture("filled")
        filler.communicate(b"\n")
        self.wait_for("fallen figure", 15, lambda: item.percentage() < before + share / 3
                      and self.agrees(orvane))
        self.assertEqual(orvane.lines(), [])

    def test_survives_panels_that_die_and_return(self):
        orvane = self.start_orvane()
        orvane.wait_for_item()
        for end_signal in (signal.SIGKILL, signal.SIGTERM):
            self.desktop.stop("panel", end_signal)
            self.wait_for("panel gone", 5, lambda: orvane.item() is None)
            self.start_panel()
            orvane.wait_for_item(10)
        self.assertTrue(orvane.is_running())
        self.assertEqual(orvane.lines(), [])

    def test_alert_comes_once_and_not_from_unreadable_counters(self):
        file = self.desktop.folder / "meminfo"
        file.write_text(meminfo(30))
        orvane = self.start_orvane(meminfo_file=file)
        item = orvane.wait_for_item()
        # Seen only through what it must not do: alert, or end the program.
        replace_in_place(file, "MemTotal: \xff kB\nMemFree: 99999999999999999999 kB\n\0")
        with self.assertRaises(TimeoutError):  # though the next figure comes within five seconds
            self.wait_for("alert or end", 6.5, lambda: self.desktop.notifications()
                          or not orvane.is_running())
        # After the first rise, a fall and a second one change nothing.
        for figure in (91, 40, 95):
            replace_in_place(file, meminfo(figure))
            self.wait_for(f"figure of {figure}", 15, lambda: item.percentage() == figure)
            [(title, body)] = self.wait_for("alert", 10, self.desktop.notifications)
            self.picture(f"at-{figure}")
        self.assertEqual(title, "Memory Pressure High")
        self.assertRegex(body, r"(?s)^Memory usage is 91\.0%\. .+ is using \d+ MB$")
        self.assertEqual(len(orvane.lines()), 1)
