"""The pressure alert of the running program, with /proc/meminfo replaced for it alone."""

import unittest

from desktop_case import DesktopCase

from tools.desktop.orvane import meminfo, replace_in_place

TICK = 5.0  # s


class PressureAlert(DesktopCase):
    def test_comes_once_and_not_from_unreadable_counters(self):
        file = self.desktop.folder / "meminfo"
        file.write_text(meminfo(30))
        orvane = self.start_orvane(meminfo_file=file)
        item = orvane.wait_for_item()
        # Seen only through what it must not do: alert, or end the program.
        replace_in_place(file, "MemTotal: \xff kB\nMemFree: 99999999999999999999 kB\n\0")
        with self.assertRaises(TimeoutError):
            self.wait_for("alert or end", 1.3 * TICK, lambda: self.desktop.notifications()
                          or not orvane.is_running())
        # After the first rise, a fall and a second one change nothing.
        for figure in (91, 40, 95):
            replace_in_place(file, meminfo(figure))
            self.wait_for(f"figure of {figure}", 3 * TICK, lambda: item.percentage() == figure)
            [(title, body)] = self.wait_for("alert", 2 * TICK, self.desktop.notifications)
            self.picture(f"at-{figure}")
        self.assertEqual(title, "Memory Pressure High")
        self.assertRegex(body, r"(?s)^Memory usage is 91\.0%\. .+ is using \d+ MB$")
        self.assertEqual(len(orvane.lines()), 1)


if __name__ == "__main__":
    unittest.main()
