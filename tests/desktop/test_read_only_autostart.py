"""Launch at login where the autostart folder can't be written."""

import unittest

from gear_menu_case import GearMenuCase


class ReadOnlyAutostart(GearMenuCase):
    def start_orvane(self, **options):
        return super().start_orvane(read_only=".config/autostart", **options)

    def test_line_is_printed_and_the_toggle_stays(self):
        self.toggle_login()
        self.wait_for("printed line", 2, self.orvane.lines)
        self.assertEqual(self.orvane.lines(),
                         ["Failed to enable launch at login: Read-only file system"])
        self.assertTrue(self.login_is_checked())
        self.assertFalse(self.orvane.autostart_entry.exists())


if __name__ == "__main__":
    unittest.main()
