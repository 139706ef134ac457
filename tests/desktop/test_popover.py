"""The popover of the running program and its gear menu, by mouse, keyboard and assistive technology."""

import time

from tests.desktop.desktop_case import PROGRAM
from tests.desktop.window_case import PopoverCase

LOGIN = "Launch at Login"
UNWRITABLE = "Failed to enable launch at login: Filename refers to a directory"
MISSING = "Failed to disable launch at login: No such file or directory"


class Popover(PopoverCase):
    def test_by_mouse(self):
        self.open_popover()
        self.picture("open")
        x, y, width, height = self.popover()
        self.assertEqual(width, 300)
        self.assertLessEqual(height, 400)
        self.assertEqual(x + width, self.desktop.screen.width - 6)
        self.assertTrue(28 <= y <= 60, y)
        self.click("Show Details")
        for row in ("Free", "Active", "Inactive", "Wired", "Compressed"):
            self.wait_for_control(row)
        self.click("Hide Details")
        self.wait_until_gone("Free")
        self.pointer.click(200, 700)
        self.wait_until_gone(self.CONTROL)
        # At once: the click outside and the one on the item are two.
        # The item's click opens and closes, and each opening starts with the details hidden.
        self.open_popover()
        self.wait_for_control("Show Details")
        self.pointer.click(*self.item_point)
        self.wait_until_gone(self.CONTROL)
        time.sleep(0.5)  # the panel's report of the click would have come by now
        self.assertFalse(self.control(self.CONTROL))

    def test_by_keyboard_and_assistive_technology(self):
        self.orvane.item().activate()
        self.tab_to("Show Details")
        self.picture("focus")
        self.pointer.key("space")
        self.wait_for_control("Compressed")
        for activate in (self.press, lambda name: self.tab_to(name) or self.pointer.key("Return")):
            activate("Boost Memory")
            self.wait_for_control("Boosting...", 2)
            # Touching 2 GiB for the first time can take a virtual machine many seconds.
            self.wait_for_control("Boost Memory", 60)
        self.press("Hide Details")
        self.wait_until_gone("Compressed")
        self.assertEqual([line for line in self.orvane.lines()
                          if not line.startswith("Notification sent successfully: Boost Complete!")], [])

    def test_from_the_menu_of_the_item(self):
        place = (self.item_point[0] - 60, 40, 120, 120)
        before = self.desktop.screen.area(*place)
        self.pointer.click(*self.item_point, button=3)
        self.wait_for("menu", 5, lambda: self.desktop.screen.area(*place) != before)
        self.picture("menu")
        for key in ("Down", "Return"):  # past the figure, which can't be chosen
            self.pointer.key(key)
        self.wait_for_control(self.CONTROL)
        self.assertTrue(28 <= self.popover()[1] <= 60)

    def test_login_entry_follows_the_toggle(self):
        entry = self.orvane.autostart_entry
        # What can't be done or undone is an error, and the choice stays.
        entry.mkdir(parents=True)
        self.assertTrue(self.toggle_login())
        entry.rmdir()
        self.assertFalse(self.toggle_login())
        self.wait_for("two lines", 2, lambda: self.orvane.lines() == [UNWRITABLE, MISSING])

        self.assertTrue(self.toggle_login())
        self.wait_for("login entry", 2, entry.exists)
        self.assertIn(f'Exec="{PROGRAM}"', entry.read_text())
        self.assertIn("launchAtLogin=true", self.orvane.preferences())
        self.assertFalse(self.toggle_login())
        self.assertFalse(entry.exists())
        self.assertEqual(len(self.orvane.lines()), 2)

    def test_menu_gives_way_to_another_program(self):
        self.open_menu()
        editor = self.desktop.start_program(["mousepad"])
        self.addCleanup(editor.wait)
        self.addCleanup(editor.kill)
        self.wait_until_gone(LOGIN)
        self.wait_until_gone("Settings")
        self.pointer.key("x")  # the keyboard is the editor's
        self.wait_for("typed letter", 5, lambda: any(
            title.startswith("*Untitled") for title in self.client_windows()))

    def test_menu_by_keyboard_and_quit(self):
        self.open_menu()
        self.picture("menu")
        for key in ("Down", "Down", "Return"):
            self.pointer.key(key)
        self.wait_for("login entry", 2, self.orvane.autostart_entry.exists)
        self.press("Settings")
        self.press("Quit Orvane")
        self.assertEqual(self.orvane.process.wait(timeout=5), 0)
        self.assertEqual(self.orvane.lines(), [])

    def popover(self):
        """Without its shadow: (x, y, width, height)."""
        return self.seen.rectangle(self.seen.find(self.orvane.pid, "Orvane", role="panel"))

    def open_menu(self):
        self.open_popover()
        self.click("Settings")
        self.wait_for_control(LOGIN)

    def toggle_login(self):
        """Gives whether the menu shows the login item as checked afterwards."""
        self.open_menu()
        self.click(LOGIN)
        self.wait_until_gone(LOGIN)
        self.click("Settings")
        checked = self.seen.has_state(self.wait_for_control(LOGIN), "checked")
        self.pointer.key("Escape")
        self.wait_until_gone(LOGIN)
        self.close_popover()
        return checked
