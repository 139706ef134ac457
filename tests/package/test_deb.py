"""The Debian package in a bare system: installed with what it depends on alone, started from its menu
entry, removed again. Needs root, mmdebstrap and the network; ORVANE_PACKAGE and ORVANE_SUITE say which.
"""

import os
import pathlib
import re
import shlex
import subprocess
import tempfile

from tests.desktop.desktop_case import DesktopCase, Orvane, wait_for
from tools.desktops.bare_root import BareRoot

PACKAGE, SUITE = pathlib.Path(os.environ["ORVANE_PACKAGE"]), os.environ["ORVANE_SUITE"]
# What package management itself keeps, and the caches of the libraries that came along.
KEPT = re.compile(r"/(var/(cache|log|lib/(apt|dpkg|systemd))/|etc/ld\.so\.cache|run/|tmp/|root/)")


class Package(DesktopCase):
    def files(self):
        found = subprocess.check_output(["find", ".", "-xdev"], cwd=self.root.folder,
                                        text=True).splitlines()
        return {name[1:] for name in found if not KEPT.match(name[1:])}

    def start_from_menu(self, errors):
        entry = (self.root.folder / "usr/share/applications/orvane.desktop").read_text()
        starter = self.desktop.folder / "starter"
        command = "exec " + re.search("^Exec=(.*)$", entry, re.MULTILINE)[1]
        starter.write_text(f"#!/bin/sh\nexec {shlex.join(self.root.command('sh', '-c', command))}\n")
        starter.chmod(0o755)
        orvane = Orvane(self.desktop, starter, self.session, first_launch=True, errors=errors)
        self.addCleanup(orvane.stop)
        return orvane

    def test_installs_starts_and_leaves_nothing(self):
        folder = tempfile.TemporaryDirectory(prefix="orvane-package-")
        self.addCleanup(folder.cleanup)
        self.root = BareRoot(pathlib.Path(folder.name) / "root", self.desktop.folder)
        self.root.make(SUITE)
        bare = self.files()
        (self.root.folder / "tmp/orvane.deb").write_bytes(PACKAGE.read_bytes())
        self.root.apt("update")
        self.root.apt("install", "/tmp/orvane.deb")
        icon = self.root.folder / "usr/share/icons/hicolor/256x256/apps/orvane.png"
        self.assertTrue(icon.read_bytes().startswith(b"\x89PNG"))

        with open(self.desktop.folder / "errors", "w+") as errors:
            orvane = self.start_from_menu(errors)
            self.assertIsNotNone(orvane.wait_for_item(20).percentage())
            wait_for("main window", 20, lambda: "Orvane" in self.client_windows())
            wait_for("its drawing", 10, lambda: self.desktop.screen.colours(500, 200, 280, 280) > 20)
            self.picture("window-" + SUITE)
            self.assertEqual(orvane.stop(), 0)
            errors.seek(0)
            self.assertEqual(errors.read(), "")
        self.assertIn("hasLaunchedBefore", orvane.preferences())

        # Also what came along and the bare system itself would recommend or suggest.
        self.root.apt("purge", "--autoremove", "-o", "APT::AutoRemove::RecommendsImportant=0",
                      "-o", "APT::AutoRemove::SuggestsImportant=0", "orvane")
        self.assertEqual(self.files() - bare, set())
        self.assertTrue(orvane.preferences())
