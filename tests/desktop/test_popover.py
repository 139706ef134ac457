"""The popover of the running program, by mouse, by keyboard and through assistive technology."""

import time
import unittest

from popover_case import PopoverCase

# Touching 2 GiB for the first time can take a virtual machine many seconds.
BOOST_SECONDS = 60
ROWS = ("Free", "Active", "Inactive", "Wired", "Compressed")


class Popover(PopoverCase):
    def test_by_mouse(self):
        self.open_popover()
        self.picture("open")
        x, y, width, height = self.popover()
        self.assertEqual(width, 300)
        self.assertLessEqual(height, 400)
        self.assertTrue(0 <= x <= self.desktop.screen.width - width, x)
        self.assertTrue(28 <= y <= 60, y)
        self.click("Show Details")
        for row in ROWS:
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
            self.wait_for_control("Boost Memory", BOOST_SECONDS)
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

    def popover(self):
        """The popover's window: (x, y, width, height)."""
        return next(self.seen.rectangle(node) for node in self.seen.everything(self.orvane.pid)
                    if node.get_role_name() in ("window", "frame")
                    and self.seen.has_state(node, "showing"))


if __name__ == "__main__":
    unittest.main()
