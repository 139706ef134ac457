"""The item on other hosts than the tests' panel: a click opens the popover in its place, and it closes."""

import json
import subprocess
import sys
import unittest

from tests.desktop.desktop_case import PICTURES, PROGRAM, ROOT
from tools.desktops.hosts import HOSTS

# The compositor chooses the place unless it knows the layer of panels.
PLACES = {"openbox": ["item"], "lxqt": ["item"], "mate": ["item"], "sway": ["middle", "item"]}


class Hosts(unittest.TestCase):
    def test_click_opens_and_closes(self):
        for name, places in PLACES.items():
            with self.subTest(host=name):
                missing = HOSTS[name].missing()
                if missing:
                    self.skipTest(f"this release doesn't offer {', '.join(missing)}")
                tried = subprocess.run(
                    [sys.executable, "tools/desktops/trial.py", name, PROGRAM, PICTURES / "hosts"],
                    cwd=ROOT, capture_output=True, text=True, timeout=60, check=False)
                self.assertEqual(tried.returncode, 0, tried.stderr)
                seen = json.loads(tried.stdout)
                self.assertIn(seen.pop("place"), places, seen)
                expected = {"tooltip": True, "click": "popover", "ends": True,
                            "closes": ["elsewhere", "Escape"]}
                self.assertEqual(seen | expected, seen)
