"""The virtual desktop's panel, seen through assistive technology."""

from gi.repository import GLib

from . import accessibility
from .processes import wait_for
from .virtual_desktop import PANEL_HEIGHT


BADGE = bytes((46, 40, 38))  # blue, green, red of the item's ground


def find_item(desktop, start_panel):
    """The middle of the status item once it is in the panel. Now and then a panel starts without
    becoming known to assistive technology: then the item is found by its looks, or in a new panel."""
    try:
        return wait_for("item in the panel", 10, lambda: item_point(desktop))
    except TimeoutError:
        if not badge_point(desktop):
            desktop.stop("panel")
            start_panel()
        return wait_for("item in the panel", 10,
                        lambda: item_point(desktop) or badge_point(desktop))


def badge_point(desktop):
    """The middle of what has the item's colour in the panel; None where there is too little of it."""
    width, height = desktop.screen.width, PANEL_HEIGHT
    pixels = desktop.screen.area(0, 0, width, height)
    places = [divmod(at, width) for at in range(width * height)
              if pixels[4 * at:4 * at + 3] == BADGE]
    if len(places) < 60:
        return None
    rows, columns = zip(*places)
    return (min(columns) + max(columns)) // 2, (min(rows) + max(rows)) // 2


def item_point(desktop):
    """The middle of the status item on the screen, the panel's only push button; None while there
    is none."""
    for node in accessibility.everything(desktop.running("panel").pid):
        try:
            if node.get_role_name() != "push button":
                continue
            x, y, width, height = accessibility.rectangle(node)
        except GLib.Error:
            continue  # it has just gone
        if width > 1 and x >= 0:
            return x + width // 2, y + height // 2
    return None
