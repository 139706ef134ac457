"""The main window of the running program: closed and shown again, its menu bar."""

import urllib.parse

from tests.desktop.desktop_case import VERSION
from tests.desktop.window_case import WindowCase

MAIL_PROGRAM = """[Desktop Entry]
Type=Application
Name=Mail
Exec={script} %u
MimeType=x-scheme-handler/mailto;
"""


class MainWindow(WindowCase):
    def taskbar_shows(self, title):
        return "SKIP_TASKBAR" not in self.client_windows().get(title, "SKIP_TASKBAR")

    def test_hides_and_comes_back_as_it_was(self):
        self.assertTrue(self.taskbar_shows("Orvane"))
        self.tab_to("Show Details")
        self.pointer.key("space")
        self.wait_for_control("Hide Details")
        self.picture("details")
        self.tab_to(self.TAB)
        self.pointer.key("Right")
        x, y = self.middle("Top Memory Consumers")
        self.pointer.press(x, y - 100)  # the title bar, dragged until the end is below the screen's
        self.wait_for("low window", 3, lambda: self.pointer.move(x, y) or self.pointer.move(
            x, y + 100) or self.place("View")[1] > y + 100)
        self.pointer.release()
        place = self.middle("Refresh")

        self.pointer.key("Control_L", "w")
        self.wait_until_gone(self.TAB)
        self.wait_for("end of the taskbar entry", 3, lambda: "Orvane" not in self.client_windows())
        self.assertIn("mainWindowVisible=false", self.orvane.preferences())

        self.open_popover()
        self.click("Settings")
        self.click("Show Window")
        self.assertEqual(self.middle("Refresh"), place)
        self.wait_for("window in the taskbar", 3, lambda: self.taskbar_shows("Orvane"))
        self.click(self.TAB)
        self.wait_for_control("Hide Details")

    def test_menu_bar_by_keyboard(self):
        self.press("Processes")  # where Down selects an application otherwise
        self.wait_for_control("Refresh")
        self.pointer.key("F10")
        self.pointer.key("Down")
        for key, entry in ((None, "About Orvane"), ("Right", "Close Window"), ("Left", "About Orvane"),
                           ("Right", "Close Window")):
            if key:
                self.pointer.key(key)
            self.wait_for(f"keyboard on {entry}", 3, lambda name=entry: self.has_keyboard(name))
        self.picture("menu")
        self.pointer.key("Escape")
        self.wait_until_gone("Close Window")
        self.pointer.key("Escape")

        self.pointer.key("Alt_L")
        self.pointer.key("Down")
        self.wait_for("keyboard on the first entry", 3, lambda: self.has_keyboard("About Orvane"))
        self.pointer.key("Return")
        self.wait_for_control(f"Version {VERSION}")
        self.picture("about")
        self.pointer.key("Escape")
        self.wait_until_gone(f"Version {VERSION}")

        self.wait_for("focus", 3, self.has_focus)
        self.pointer.key("Control_L", "m")
        self.wait_for("minimised window", 3,
                      lambda: "HIDDEN" in self.client_windows().get("Orvane", ""))

        # Restored in the taskbar, closed and shown again it is a window.
        self.pointer.click(60, 14)
        self.wait_for("restored window", 3, self.has_focus)
        self.pointer.key("Control_L", "w")
        self.wait_until_gone(self.TAB)
        self.open_popover()
        self.click("Settings")
        self.click("Show Window")
        self.wait_for_control(self.TAB)
        self.wait_for("focus", 3, self.has_focus)
        self.assertNotIn("HIDDEN", self.client_windows()["Orvane"])

    def test_press_drag_and_release_in_a_menu(self):
        self.pointer.press(*self.menu_title("Help"))
        self.wait_for_control("Contact Support")
        self.pointer.move(*self.menu_title("Orvane"))
        for entry in ("Quit Orvane", "About Orvane"):
            self.pointer.move(*self.middle(entry))
            self.wait_for(f"pointer on {entry}", 3, lambda name=entry: self.has_keyboard(name))
        self.picture("dragged")
        self.pointer.release()
        self.wait_for_control(f"Version {VERSION}")

    def test_updates_come_from_the_package_manager_and_quit(self):
        self.open_popover()  # the keys work in every window
        self.pointer.key("Control_L", "u")
        self.wait_for_control("Updates come with your system")
        self.picture("updates")
        self.pointer.key("Control_L", "q")
        self.assertEqual(self.orvane.process.wait(timeout=5), 0)
        self.assertIn("mainWindowVisible=true", self.orvane.preferences())
        self.assertEqual(self.orvane.lines(), [])

    def test_support_request_reaches_the_mail_program(self):
        home = self.orvane.home
        script, record = home / "mail-program", home / "mail"
        script.write_text(f'#!/bin/sh\nprintf "%s" "$1" > "{record}.part"\nmv "{record}.part" "{record}"\n')
        script.chmod(0o755)
        applications = home / ".local/share/applications"
        applications.mkdir(parents=True)
        (applications / "mail.desktop").write_text(MAIL_PROGRAM.format(script=script))
        (self.orvane.configuration / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/mailto=mail.desktop\n")
        self.choose("Help", "Contact Support")
        self.wait_for("mail", 10, record.exists)
        address, _, fields = record.read_text().partition("?")
        self.assertEqual(address, "mailto:support@orvane.example")
        self.assertEqual(urllib.parse.parse_qs(fields, strict_parsing=True), {
            "subject": ["Orvane Support Request"],
            "body": ["Hello Orvane Team,\n\nI need assistance with the following:\n\n"]})
        self.assertEqual(self.orvane.lines(), [])
