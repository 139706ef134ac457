"""The main window, its menus and dialogs, and other programs' windows, for the tests that use them."""

import stat

from popover_case import PopoverCase

MIME_APPS = "[Default Applications]\nx-scheme-handler/{scheme}=recorder.desktop\n"
RECORDER = """[Desktop Entry]
Type=Application
Name=Recorder
Exec={script} %u
MimeType=x-scheme-handler/{scheme};
"""


class WindowCase(PopoverCase):
    TAB = "Overview"

    def start_orvane(self, **options):
        # So that xdg-open goes by the files of `record_addresses`, not by a desktop's own helpers.
        return super().start_orvane(first_launch=True, environment={"XDG_CURRENT_DESKTOP": ""},
                                    **options)

    def setUp(self):
        super().setUp()
        self.focus_window()

    def focus_window(self):
        """Whatever other window has just taken the focus: clicks beside the tabs."""
        x, y, _, height = self.seen.rectangle(self.wait_for_control("View"))
        self.pointer.click(x - 10, y + height // 2)
        self.wait_for("focus", 5, self.has_focus)

    def taskbar_shows(self, title):
        return "SKIP_TASKBAR" not in self.client_windows().get(title, "SKIP_TASKBAR")

    def menu_title(self, menu):
        """The middle of a menu's title in the menu bar."""
        x, y, width, height = self.seen.rectangle(self.seen.find(
            self.orvane.pid, menu, role="push button") or self.fail(f"no menu {menu}"))
        return x + width // 2, y + height // 2

    def choose(self, menu, entry):
        """An entry of the menu bar, by mouse."""
        self.pointer.click(*self.menu_title(menu))
        self.click(entry)

    def record_addresses(self, scheme):
        """From now on the desktop's program for such addresses writes them to a file; gives that."""
        home = self.orvane.home
        applications = home / ".local/share/applications"
        applications.mkdir(parents=True, exist_ok=True)
        script, record = home / "recorder", home / "recorded"
        script.write_text(f'#!/bin/sh\nprintf "%s" "$1" > "{record}.part"\nmv "{record}.part" "{record}"\n')
        script.chmod(script.stat().st_mode | stat.S_IXUSR)
        (applications / "recorder.desktop").write_text(RECORDER.format(script=script, scheme=scheme))
        (self.orvane.configuration / "mimeapps.list").write_text(MIME_APPS.format(scheme=scheme))
        return record
