"""Opening the gear menu and its login toggle, for the tests that use them."""

from popover_case import PopoverCase

LOGIN = "Launch at Login"


class GearMenuCase(PopoverCase):
    def open_menu(self):
        self.open_popover()
        self.click("Settings")
        self.wait_for_control(LOGIN)

    def toggle_login(self):
        self.open_menu()
        self.click(LOGIN)
        self.wait_until_gone(LOGIN)
        self.close_popover()

    def login_is_checked(self):
        self.open_menu()
        self.picture("menu")
        checked = self.seen.has_state(self.control(LOGIN), "checked")
        self.pointer.key("Escape")
        self.wait_until_gone(LOGIN)
        self.close_popover()
        return checked
