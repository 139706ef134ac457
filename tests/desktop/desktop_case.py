"""What the tests of the running program share: one virtual desktop a file, pictures on the way."""

import os
import pathlib
import re
import subprocess
import time
import unittest

from tools.desktop.orvane import Orvane
from tools.desktop.pointer import Pointer
from tools.desktop.processes import wait_for
from tools.desktop.session import Session
from tools.desktop.virtual_desktop import VirtualDesktop

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAM = pathlib.Path(os.environ.get("ORVANE_PROGRAM", ROOT / "build/release/orvane"))
VERSION = re.search(r"VERSION (\d+\.\d+\.\d+)", (ROOT / "CMakeLists.txt").read_text())[1]
PICTURES = pathlib.Path(os.environ.get("ORVANE_PICTURES", ROOT / "build/test-screenshots"))
# Of all waits, sooner than the runner's limit, which would not say what was missing.
END = time.monotonic() + 100


class DesktopCase(unittest.TestCase):
    """A test case on a whole desktop; a subclass may leave parts out."""

    panel = notifications = True

    @classmethod
    def setUpClass(cls):
        cls.desktop = VirtualDesktop()
        cls.addClassCleanup(cls.desktop.close)
        os.environ.update(cls.desktop.environment)
        cls.session = Session(cls.desktop.bus_address)
        cls.addClassCleanup(cls.session.close)
        cls.pointer = Pointer(cls.desktop.environment["DISPLAY"])
        cls.desktop.start_window_manager()
        if cls.notifications:
            cls.desktop.start_notifications()
            wait_for("notification daemon", 10,
                     lambda: cls.session.has_owner("org.freedesktop.Notifications"))
        if cls.panel:
            cls.start_panel()

    @classmethod
    def start_panel(cls):
        cls.desktop.start_panel()
        wait_for("panel", 15, lambda: cls.session.has_owner("org.kde.StatusNotifierWatcher"))

    def tearDown(self):
        self.picture("end")

    def start_orvane(self, **options):
        """The program, ended after the test."""
        orvane = Orvane(self.desktop, PROGRAM, self.session, **options)
        self.addCleanup(orvane.stop)
        return orvane

    def picture(self, name):
        """Keeps a picture of the desktop with the test run."""
        test = self.id().rpartition(".")[2].removeprefix("test_")
        self.desktop.screen.save(PICTURES / f"{type(self).__name__}-{test}-{name}.png")

    def client_windows(self):
        """{title: state} of the windows that the window manager knows."""
        windows = {}
        for window in re.findall(r"0x[0-9a-f]+", self.seen_by_x("-root", "_NET_CLIENT_LIST")):
            told = self.seen_by_x("-id", window, "_NET_WM_NAME", "_NET_WM_STATE")
            title = re.search(r'_NET_WM_NAME.* = "(.*)"', told)
            windows[title[1] if title else ""] = told
        return windows

    def seen_by_x(self, *question):
        return subprocess.run(["xprop", *question], env=self.desktop.environment,
                              capture_output=True, text=True, check=False).stdout

    def wait_for(self, what, seconds, check, **options):
        """Polls until `check()` gives something true, and gives that."""
        return wait_for(what, min(seconds, END - time.monotonic()), check, **options)
