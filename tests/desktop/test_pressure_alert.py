"""The pressure alert of the running program, with /proc/meminfo replaced for it alone."""

import re
import unittest

from desktop_case import DesktopCase

from tools.desktop.orvane import meminfo, replace_in_place

TITLE = "Memory Pressure High"
TICK = 5.0  # s


class PressureAlert(DesktopCase):
    def start_with(self, text):
        self.meminfo = self.desktop.folder / f"{self.id()}.meminfo"
        self.meminfo.write_text(text)
        self.seen = len(self.desktop.notifications())
        orvane = self.start_orvane(meminfo_file=self.meminfo)
        orvane.wait_for_item()
        return orvane

    def alerts(self):
        return self.desktop.notifications()[self.seen:]

    def shows(self, orvane, figure):
        return orvane.item().percentage() == figure

    def test_comes_once(self):
        orvane = self.start_with(meminfo(90))
        self.wait_for("alert", 2 * TICK, self.alerts)
        self.picture("alert")
        body = "Memory usage is 90.0%"
        self.assertEqual(self.alerts(), [(TITLE, body)])
        self.wait_for("printed line", 1, orvane.lines)
        # A fall and a second rise change nothing.
        replace_in_place(self.meminfo, meminfo(40))
        self.wait_for("fallen figure", 3 * TICK, lambda: self.shows(orvane, 40))
        replace_in_place(self.meminfo, meminfo(95))
        self.wait_for("risen figure", 3 * TICK, lambda: self.shows(orvane, 95))
        self.assertEqual(self.alerts(), [(TITLE, body)])
        self.assertEqual(orvane.lines(), [f"Notification sent successfully: {TITLE} - {body}"])

    def test_unreadable_counters_raise_nothing_and_recover(self):
        orvane = self.start_with(meminfo(30))
        self.wait_for("figure", 2, lambda: self.shows(orvane, 30))
        # The sample in between is only seen through what it must not do: alert, or end the program.
        replace_in_place(self.meminfo, "MemTotal: \xff kB\nMemFree: 99999999999999999999 kB\n\0")
        self.wait_while(orvane.is_running, 1.3 * TICK)
        self.assertEqual(self.alerts(), [])
        replace_in_place(self.meminfo, meminfo(91))
        self.wait_for("figure again", 3 * TICK, lambda: self.shows(orvane, 91))
        name_and_size = re.compile(r"^Memory usage is 91\.0%\. .+ is using \d+ MB$", re.DOTALL)
        title, body = self.wait_for("alert", 2 * TICK, self.alerts)[0]
        self.assertEqual(title, TITLE)
        self.assertRegex(body, name_and_size)

    def wait_while(self, check, seconds):
        """Fails as soon as `check()` gives something false."""
        with self.assertRaises(TimeoutError):
            self.wait_for("end of the program", seconds, lambda: not check())


if __name__ == "__main__":
    unittest.main()
