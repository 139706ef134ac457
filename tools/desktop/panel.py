"""The virtual desktop's panel, as it looks."""

from .processes import wait_until_still
from .virtual_desktop import PANEL_HEIGHT

# Blue, green, red of the item's ground: on a dark panel, and on one not known yet.
BADGES = (bytes((233, 228, 226)), bytes((46, 40, 38)))


def find_item(desktop):
    """The middle of the status item once it stands still in the panel."""
    return wait_until_still("item in the panel", 10, lambda: badge_point(desktop))


def badge_point(desktop):
    """The middle of what has the item's colour in the panel; None where there is too little of it, or
    more than one item's."""
    width, height = desktop.screen.width, PANEL_HEIGHT
    pixels = desktop.screen.area(0, 0, width, height)
    places = [divmod(at, width) for at in range(width * height)
              if pixels[4 * at:4 * at + 3] in BADGES]
    if len(places) < 60:
        return None
    rows, columns = zip(*places)
    if max(columns) - min(columns) > PANEL_HEIGHT:
        return None
    return (min(columns) + max(columns)) // 2, (min(rows) + max(rows)) // 2
