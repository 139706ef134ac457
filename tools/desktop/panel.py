"""The virtual desktop's panel, seen through assistive technology."""

from gi.repository import GLib

from . import accessibility
from .processes import wait_for


def find_item(desktop, start_panel):
    """The middle of the status item once it is in the panel, which is started anew if need be: now
    and then a panel starts without becoming known to assistive technology."""
    try:
        return wait_for("item in the panel", 10, lambda: item_point(desktop))
    except TimeoutError:
        desktop.stop("panel")
        start_panel()
        return wait_for("item in the panel", 10, lambda: item_point(desktop))


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
