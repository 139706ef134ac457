"""Colours, contrast, motion and the size of texts as the desktop says, while the program runs."""

import subprocess
import sys
import time

from tests.desktop.desktop_case import ROOT
from tests.desktop.window_case import WindowCase


class Appearance(WindowCase):
    def setUp(self):
        super().setUp()
        self.portal = self.desktop.start_program(
            [sys.executable, ROOT / "tools/desktop/portal.py", self.desktop.bus_address],
            own_input=subprocess.PIPE, text=True)
        self.addCleanup(self.portal.wait)
        self.addCleanup(self.portal.stdin.close)

    def say(self, setting):
        print(setting, file=self.portal.stdin, flush=True)

    def brightness(self):
        """Of the window's background, 0 to 255: below the tabs, at the left edge."""
        x, y, _, height = self.place("View")
        return self.desktop.screen.area(x - 15, y + height + 20, 1, 1)[1]

    def test_follows_the_desktop_at_once(self):
        self.wait_for("light window", 5, lambda: self.brightness() > 230)
        self.say("org.freedesktop.appearance color-scheme uint32 1")
        self.wait_for("dark window", 5, lambda: self.brightness() < 60)
        self.picture("dark")
        self.open_popover()
        self.picture("dark-popover")
        self.close_popover()
        self.say("org.freedesktop.appearance color-scheme uint32 2")
        self.wait_for("light window", 5, lambda: self.brightness() > 230)

    def test_contrast_motion_and_size(self):
        def line():
            """Brightness of the line above the details' bar."""
            x, y, _, _ = self.place("Show Details")
            return self.desktop.screen.area(x + 20, y - 1, 1, 1)[1]

        x, y, width, _ = self.place("Used")
        gauge = (x - 90 + width // 2, y - 110, 180, 90)

        def still():
            before = self.desktop.screen.area(*gauge)
            time.sleep(0.2)  # a turning arc would have gone on by then
            return self.control("Boosting...") and self.desktop.screen.area(*gauge) == before

        self.assertGreater(line(), 150)
        self.say("org.freedesktop.appearance contrast uint32 1")
        self.wait_for("strong line", 5, lambda: line() < 20)
        self.picture("contrast")
        self.say("org.gnome.desktop.interface enable-animations false")
        self.open_popover()
        _, _, _, height = self.place("Memory Usage")
        self.close_popover()
        self.press("Boost Memory")
        self.wait_for_control("Boosting...")
        self.wait_for("still arcs", 5, still)
        self.picture("still")
        self.say("org.gnome.desktop.interface text-scaling-factor 1.5")
        self.open_popover()
        self.wait_for("larger text", 3, lambda: self.place("Memory Usage")[3] > height)
        self.picture("large-popover")
