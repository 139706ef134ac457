"""Opening the popover and the main window and finding their controls, for the tests that use them."""

from tests.desktop.desktop_case import DesktopCase

from tools.desktop.panel import find_item
from tools.desktop.processes import wait_until_still


class PopoverCase(DesktopCase):
    CONTROL = "Settings"  # is there whenever the popover is, and nowhere else

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # AT-SPI connects once, to the desktop that exists now.
        from tools.desktop import accessibility
        cls.seen = accessibility

    def setUp(self):
        self.orvane = self.start_orvane()
        self.orvane.wait_for_item()
        self.item_point = find_item(self.desktop)

    def control(self, name):
        return self.seen.find(self.orvane.pid, name)

    def wait_for_control(self, name, seconds=5):
        try:
            return self.wait_for(name, seconds, lambda: self.control(name))
        except TimeoutError:
            self.fail(f"no {name!r} among {self.seen.names(self.orvane.pid)}")

    def wait_until_gone(self, name):
        self.wait_for(f"end of {name}", 5, lambda: not self.control(name))

    def middle(self, name):
        """The middle of a control once it stands still."""
        self.wait_for_control(name)
        x, y, width, height = wait_until_still(name, 5, lambda: self.place(name))
        return x + width // 2, y + height // 2

    def place(self, name):
        node = self.control(name)
        return node and self.seen.rectangle(node)

    def click(self, name):
        self.pointer.click(*self.middle(name))

    def press(self, name):
        """Through assistive technology."""
        self.assertTrue(self.seen.press(self.wait_for_control(name)), name)

    def open_popover(self):
        self.pointer.click(*self.item_point)
        self.wait_for_control(self.CONTROL)
        self.wait_for("focus in the popover", 3, self.has_focus)

    def has_focus(self):
        return any(self.seen.has_state(node, "active") for node in
                   self.seen.everything(self.orvane.pid) if node.get_role_name() in ("window", "frame"))

    def has_keyboard(self, name):
        node = self.control(name)
        return node and self.seen.has_state(node, "focused")

    def tab_to(self, name):
        """Moves the keyboard to a control, as a user without a mouse would."""
        self.wait_for_control(name)
        self.wait_for(f"keyboard on {name}", 10,
                      lambda: self.has_keyboard(name) or self.pointer.key("Tab"), interval=0.3)

    def close_popover(self):
        if self.control(self.CONTROL):
            self.pointer.key("Escape")
            self.wait_until_gone(self.CONTROL)


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
