"""Hosts of status items, each on a virtual desktop of its own."""

import contextlib
import dataclasses
import shutil

from tools.desktop.pointer import Pointer
from tools.desktop.sway_desktop import SwayDesktop
from tools.desktop.virtual_desktop import VirtualDesktop

LXQT_PANEL = """panels=panel1
[panel1]
plugins=taskbar,statusnotifier
position=Bottom
iconSize=22
panelSize=32
width=100
width-percent=true
[statusnotifier]
type=statusnotifier
[taskbar]
type=taskbar
"""


@dataclasses.dataclass(frozen=True)
class Host:
    """A panel with the window manager or compositor that it is tried with."""

    panel: tuple
    window_manager: tuple = ()
    settings: tuple = ()  # (file below ~/.config, its text)

    def missing(self):
        """The programs that it takes and that aren't here."""
        wanted = [self.panel[0], *(self.window_manager[:1] or ("sway", "grim", "wtype"))]
        return [program for program in wanted if not shutil.which(program)]

    @contextlib.contextmanager
    def start(self):
        with VirtualDesktop() if self.window_manager else SwayDesktop() as desktop:
            desktop.write_settings(self.settings)
            if self.window_manager:
                desktop.pointer = Pointer(desktop.environment["DISPLAY"])
                desktop.start_window_manager(self.window_manager)
            desktop.start_panel(self.panel)
            yield desktop


WAYBAR = """{"layer": "top", "height": 30, "modules-right": ["tray"],
"tray": {"icon-size": 22, "spacing": 6}}"""

HOSTS = {
    "openbox": Host(("xfce4-panel", "--disable-wm-check"), ("openbox",)),
    "lxqt": Host(("lxqt-panel",), ("openbox",), (("lxqt/panel.conf", LXQT_PANEL),)),
    "mate": Host(("mate-panel",), ("openbox",)),
    "sway": Host(("waybar",), (), (("waybar/config", WAYBAR),)),
}
