"""The program tried on one desktop, as a user would: trial.py HOST PROGRAM [PICTURES]

Prints one line of JSON with what was seen. A process for each desktop, as assistive technology is
connected to once.
"""

import json
import os
import pathlib
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2]))
from tools.desktop.orvane import Orvane  # noqa: E402
from tools.desktop.panel import BADGES  # noqa: E402
from tools.desktop.processes import wait_for, wait_until_still  # noqa: E402
from tools.desktop.session import Session  # noqa: E402
from tools.desktops.hosts import HOSTS  # noqa: E402
from tools.desktops.picture_changes import changed_boxes  # noqa: E402
from tools.desktops.whole import WHOLE  # noqa: E402

CONTROL = "Settings"  # is there whenever the popover is, and nowhere else
PANEL_HEIGHT = 60  # at most


class Trial:
    def __init__(self, desktop, program, pictures):
        os.environ.update(desktop.environment)
        from tools.desktop import accessibility  # connects to the desktop that exists now
        self.seen, self.desktop, self.pictures = accessibility, desktop, pictures
        self.screen, self.pointer = desktop.screen, desktop.pointer
        self.session = Session(desktop.bus_address)
        self.program = program

    def run(self):
        wait_for("host of items", 60, lambda: self.session.has_owner("org.kde.StatusNotifierWatcher"))
        empty = wait_until_still("screen", 60, self.screen.everything)
        self.orvane = Orvane(self.desktop, self.program, self.session)
        item = self.orvane.wait_for_item(20)
        wait_for("figure", 5, lambda: item.percentage() is not None)
        found = {"tooltip": item.label().strip() in str(item.get("ToolTip"))}
        box = wait_until_still("item in the panel", 15, lambda: self.item_box(empty))
        found["item"] = box
        self.picture("item")
        self.point = box[0] + box[2] // 2, box[1] + box[3] // 2
        self.pointer.move(*self.point)
        closed = wait_until_still("screen", 10, self.screen.everything)
        found["click"] = self.open()
        popover = wait_until_still("popover", 10, lambda: self.popover_box(closed))
        found["popover"] = popover
        found["place"] = self.place(popover)
        self.picture("popover")
        found["closes"] = [way for way, close in (("elsewhere", self.click_elsewhere(popover)),
                                                  ("Escape", lambda: self.pointer.key("Escape")))
                           if self.closes(close)]
        found["ends"] = self.orvane.stop() == 0
        return found

    def item_box(self, empty):
        """What the panel shows since the program runs; None while it is still moving in."""
        boxes = [box for box in changed_boxes(empty, self.screen.everything(), self.screen.width)
                 if box[2] >= 8 and box[3] >= 8 and self.in_panel(box)]
        return boxes and (self.badge_box(boxes[0]) or boxes[0])

    def badge_box(self, box):
        """Of the item's own ground within what changed: other items may have made room for it."""
        pixels = self.screen.area(*box)
        places = [divmod(at, box[2]) for at in range(box[2] * box[3])
                  if pixels[4 * at:4 * at + 3] in BADGES]
        if len(places) < 60:
            return None
        rows, columns = zip(*places)
        return (box[0] + min(columns), box[1] + min(rows),
                max(columns) - min(columns) + 1, max(rows) - min(rows) + 1)

    def in_panel(self, box):
        bottom = box[1] + box[3]
        return bottom <= PANEL_HEIGHT or box[1] >= self.screen.height - PANEL_HEIGHT

    def open(self):
        """Clicks at the item; gives what that opened. After this the popover is open."""
        self.pointer.click(*self.point)
        try:
            wait_for("popover", 3, self.is_open)
            return "popover"
        except TimeoutError:
            self.picture("menu")
        for key in ("Down", "Return"):  # past the figure, which can't be chosen
            self.pointer.key(key)
            time.sleep(0.5)
        wait_for("popover from the menu", 5, self.is_open)
        return "menu"

    def is_open(self):
        return self.seen.find(self.orvane.pid, CONTROL)

    def popover_box(self, closed):
        boxes = [box for box in changed_boxes(closed, self.screen.everything(), self.screen.width, 4)
                 if not self.in_panel(box)]
        return boxes[0] if boxes and boxes[0][2] > 200 else None

    def place(self, popover):
        """Where the popover is: "item", "middle" or its middle point."""
        x, y = popover[0] + popover[2] // 2, popover[1] + popover[3] // 2
        gap = (popover[1] if self.point[1] < PANEL_HEIGHT
               else self.screen.height - popover[1] - popover[3])
        if abs(x - self.point[0]) < popover[2] * 2 // 3 and gap < PANEL_HEIGHT + 20:
            return "item"
        if abs(x - self.screen.width // 2) < 60 and abs(y - self.screen.height // 2) < 60:
            return "middle"
        return [x, y]

    def click_elsewhere(self, popover):
        x = 150 if popover[0] > 200 else self.screen.width - 150
        return lambda: self.pointer.click(x, self.screen.height // 2)

    def closes(self, close):
        """Whether the open popover goes; opens it again where it was closed before."""
        if not self.is_open():
            time.sleep(0.5)  # what follows at once is the same click to the program
            self.open()
        time.sleep(0.5)  # the focus arrives with the window or shortly after
        close()
        try:
            return wait_for("end of the popover", 3, lambda: not self.is_open())
        except TimeoutError:
            return False

    def picture(self, name):
        if self.pictures:
            self.screen.save(self.pictures / f"{name}.png")


def main(name, program, pictures=None):
    with (HOSTS | WHOLE)[name].start() as desktop:
        found = Trial(desktop, pathlib.Path(program), pictures and pathlib.Path(pictures) / name).run()
    print(json.dumps(found))


if __name__ == "__main__":
    main(*sys.argv[1:])
