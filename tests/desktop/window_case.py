"""The main window and its menu bar, for the tests that use them."""

from popover_case import PopoverCase


class WindowCase(PopoverCase):
    TAB = "Overview"

    def start_orvane(self, environment=None, **options):
        # So that xdg-open goes by the files of the home, not by a desktop's own helpers.
        return super().start_orvane(first_launch=True, **options,
                                    environment={"XDG_CURRENT_DESKTOP": ""} | (environment or {}))

    def setUp(self):
        super().setUp()
        self.focus_window()

    def focus_window(self):
        """Whatever other window has just taken the focus: clicks beside the tabs."""
        x, y, _, height = self.seen.rectangle(self.wait_for_control("View"))
        self.pointer.click(x - 10, y + height // 2)
        self.wait_for("focus", 5, self.has_focus)

    def menu_title(self, menu):
        """The middle of a menu's title in the menu bar."""
        x, y, width, height = self.seen.rectangle(self.seen.find(
            self.orvane.pid, menu, role="push button") or self.fail(f"no menu {menu}"))
        return x + width // 2, y + height // 2

    def choose(self, menu, entry):
        """An entry of the menu bar, by mouse."""
        self.pointer.click(*self.menu_title(menu))
        self.click(entry)
