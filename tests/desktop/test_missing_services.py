"""A desktop that lacks something: the program starts, says so in its lines only, and recovers."""

import contextlib
import os
import select
import shutil
import socket
import unittest

from tests.desktop.desktop_case import PROGRAM, DesktopCase, Orvane, VirtualDesktop, wait_for

from tools.desktop.orvane import meminfo, replace_in_place
from tools.desktop.session import Session


class NoPanel(DesktopCase):
    panel = False

    def test_the_window_opens_instead_and_the_item_comes_with_a_panel(self):
        orvane = self.start_orvane()
        self.wait_for("window instead of the item", 20, lambda: "Orvane" in self.client_windows())
        self.start_panel()
        orvane.wait_for_item()
        self.assertEqual(orvane.lines(), [])


class NoBus(unittest.TestCase):
    def test_starts_and_recovers_with_each_part(self):
        with VirtualDesktop(bus=False) as desktop:
            file = desktop.folder / "meminfo"
            file.write_text(meminfo(50))
            orvane = Orvane(desktop, PROGRAM, meminfo_file=file)
            lines = wait_for("printed line", 10, orvane.lines)
            self.assertRegex("\n".join(lines), r"^Error requesting notification permissions: .+$")
            desktop.start_bus()
            orvane.session = Session(desktop.bus_address)
            desktop.start_panel()
            self.assertEqual(orvane.wait_for_item(20).percentage(), 50)
            self.assertEqual(orvane.lines(), lines)
            desktop.start_notifications()
            wait_for("notification daemon", 10,
                     lambda: orvane.session.has_owner("org.freedesktop.Notifications"))
            replace_in_place(file, meminfo(90))
            title, _ = wait_for("alert", 15, desktop.notifications)[0]
            self.assertEqual(title, "Memory Pressure High")
            wait_for("second line", 2, lambda: len(orvane.lines()) == 2)


class SilentBus(unittest.TestCase):
    """One that accepts and never answers, as when its daemon is stopped."""

    def test_window_opens_and_the_program_ends(self):
        with VirtualDesktop(bus=False) as desktop, socket.socket(socket.AF_UNIX) as silent:
            silent.bind(str(desktop.folder / "silent"))
            silent.listen(16)
            address = {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={desktop.folder / 'silent'}"}
            orvane = Orvane(desktop, PROGRAM, first_launch=True, environment=address)
            wait_for("main window", 10, lambda: desktop.screen.colours(500, 200, 280, 280) > 20)
            self.assertEqual(orvane.stop(), 0)


class Upgrade(DesktopCase):
    def test_no_click_comes_to_nothing(self):
        folder = self.desktop.folder / "installed"
        folder.mkdir()
        program, module = folder / "orvane", folder / "orvane-windows.so"
        shutil.copy(PROGRAM, program)
        foreign = (PROGRAM.parent / module.name).read_bytes().replace(
            b"makeOrvaneWindows_", b"makeOrvaneWindows#")
        module.write_bytes(foreign)
        orvane = Orvane(self.desktop, program, self.session)
        self.addCleanup(orvane.stop)
        item = orvane.wait_for_item()
        item.activate()
        title, _ = self.wait_for("message", 5, self.desktop.notifications)[-1]
        self.assertEqual(title, "Orvane can't open its window")

        newer = folder / "newer"
        newer.write_text(f'#!/bin/sh\necho "$@" > "{folder}/started"\n')
        newer.chmod(0o755)
        newer.replace(program)
        self.assertTrue(orvane.is_running())
        item.activate()
        self.assertEqual(orvane.process.wait(timeout=5), 0)
        self.assertEqual((folder / "started").read_text(), "--popover\n")


class XServerOnDemand(DesktopCase):
    """As on Wayland: connecting to $DISPLAY would start one."""

    def test_no_x_server_is_contacted(self):
        name = f":{50000 + os.getpid() % 10000}"
        path = f"/tmp/.X11-unix/X{name[1:]}"
        os.makedirs("/tmp/.X11-unix", exist_ok=True)
        with contextlib.ExitStack() as stack:
            waiting = []
            for address in (path, "\0" + path):
                waiting.append(stack.enter_context(socket.socket(socket.AF_UNIX)))
                waiting[-1].bind(address)
                waiting[-1].listen(4)
            stack.callback(os.unlink, path)
            orvane = self.start_orvane(environment={"DISPLAY": name, "QT_QPA_PLATFORM": "offscreen"})
            orvane.wait_for_item()
            # The first list is built within five seconds and may still be read when it is there.
            self.assertEqual(select.select(waiting, [], [], 7)[0], [])
