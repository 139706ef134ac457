"""Light and dark as the desktop says, while the program runs."""

import subprocess
import sys
import unittest

from desktop_case import ROOT
from window_case import WindowCase

DARK, LIGHT = 1, 2


class Appearance(WindowCase):
    def setUp(self):
        super().setUp()
        self.portal = self.desktop.start_program(
            [sys.executable, ROOT / "tools/desktop/portal.py", self.desktop.bus_address],
            own_input=subprocess.PIPE, text=True)
        self.addCleanup(self.portal.wait)
        self.addCleanup(self.portal.stdin.close)

    def say(self, scheme):
        print(scheme, file=self.portal.stdin, flush=True)

    def brightness(self):
        """Of the window's background, 0 to 255: below the tabs, at the left edge."""
        x, y, _, height = self.seen.rectangle(self.control("View"))
        return self.desktop.screen.area(x - 15, y + height + 20, 1, 1)[1]

    def test_follows_the_desktop_at_once(self):
        self.wait_for("light window", 5, lambda: self.brightness() > 230)
        self.say(DARK)
        self.wait_for("dark window", 5, lambda: self.brightness() < 60)
        self.picture("dark")
        self.open_popover()
        self.picture("dark-popover")
        self.close_popover()
        self.say(LIGHT)
        self.wait_for("light window", 5, lambda: self.brightness() > 230)


if __name__ == "__main__":
    unittest.main()
