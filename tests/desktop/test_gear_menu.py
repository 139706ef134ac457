"""The popover's gear menu of the running program: login item, quit."""

import unittest

from desktop_case import PROGRAM
from gear_menu_case import LOGIN, GearMenuCase


class GearMenu(GearMenuCase):
    def test_login_entry_follows_the_toggle(self):
        self.assertFalse(self.login_is_checked())
        self.toggle_login()
        self.wait_for("login entry", 2, self.orvane.autostart_entry.exists)
        entry = self.orvane.autostart_entry.read_text()
        self.assertIn(f'Exec="{PROGRAM}"', entry)
        self.assertTrue(self.login_is_checked())
        self.assertIn("launchAtLogin=true", self.orvane.preferences())
        self.toggle_login()
        self.wait_for("end of the entry", 2, lambda: not self.orvane.autostart_entry.exists())
        # Undoing what isn't there is an error, and the choice stays.
        self.orvane.autostart_entry.parent.mkdir(exist_ok=True)
        self.toggle_login()
        self.orvane.autostart_entry.unlink()
        self.toggle_login()
        self.wait_for("printed line", 2, self.orvane.lines)
        self.assertEqual(self.orvane.lines(),
                         ["Failed to disable launch at login: No such file or directory"])
        self.assertFalse(self.login_is_checked())

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
        for _ in range(2):
            self.pointer.key("Down")
        self.pointer.key("Return")
        self.wait_for("login entry", 2, self.orvane.autostart_entry.exists)
        self.press("Settings")
        self.press("Quit Orvane")
        self.wait_for("end of the program", 5, lambda: not self.orvane.is_running())
        self.assertEqual(self.orvane.process.returncode, 0)
        self.assertEqual(self.orvane.lines(), [])


if __name__ == "__main__":
    unittest.main()
