"""The popover's gear menu of the running program: login item, quit."""

import unittest

from desktop_case import PROGRAM
from popover_case import PopoverCase

LOGIN = "Launch at Login"
UNWRITABLE = "Failed to enable launch at login: Filename refers to a directory"
MISSING = "Failed to disable launch at login: No such file or directory"


class GearMenu(PopoverCase):
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

    def test_gives_way_to_another_program(self):
        self.open_menu()
        editor = self.desktop.start_program(["mousepad"])
        self.addCleanup(editor.wait)
        self.addCleanup(editor.kill)
        self.wait_until_gone(LOGIN)
        self.wait_until_gone("Settings")
        self.pointer.key("x")  # the keyboard is the editor's
        self.wait_for("typed letter", 5, lambda: any(
            title.startswith("*Untitled") for title in self.client_windows()))

    def test_keyboard_and_quit(self):
        self.open_menu()
        self.picture("menu")
        for key in ("Down", "Down", "Return"):
            self.pointer.key(key)
        self.wait_for("login entry", 2, self.orvane.autostart_entry.exists)
        self.press("Settings")
        self.press("Quit Orvane")
        self.wait_for("end of the program", 5, lambda: not self.orvane.is_running())
        self.assertEqual(self.orvane.process.returncode, 0)
        self.assertEqual(self.orvane.lines(), [])


if __name__ == "__main__":
    unittest.main()
