"""Whole desktops, as the releases of Debian have them, for `./dev desktops`."""

import contextlib
import dataclasses
import pathlib
import tempfile

from tools.desktop import processes
from tools.desktop.pointer import Pointer
from tools.desktop.session import Session
from tools.desktop.sway_desktop import SwayDesktop
from tools.desktop.virtual_desktop import HEIGHT, WIDTH, VirtualDesktop
from tools.desktops.bare_root import USER, BareRoot
from tools.desktops.hosts import HOSTS

ROOTS = pathlib.Path(__file__).resolve().parents[2] / "build/desktops"
PACKAGES = ("at-spi2-core", "dbus", "dbus-x11", "dconf-cli", "dconf-gsettings-backend",
            "fonts-dejavu-core", "libglib2.0-bin", "adwaita-icon-theme", "libcap2-bin", "procps",
            "qt6-wayland", "xdg-desktop-portal-gtk")
GNOME = ("gnome-shell", "gnome-shell-extension-appindicator", "gnome-settings-daemon",
         "librsvg2-common", "xdg-desktop-portal-gnome", "xwayland")
PLASMA = ("plasma-desktop", "plasma-workspace", "breeze-icon-theme", "kwin-x11", "kwin-wayland", "xwayland",
          "xdg-desktop-portal-kde")
EXTENSION = "['ubuntu-appindicators@ubuntu.com']"
NESTED = ("kwin_wayland", "--width", str(WIDTH), "--height", str(HEIGHT), "--socket", "wayland-0",
          "--xwayland", "--x11-display")


@dataclasses.dataclass(frozen=True)
class Whole:
    """One desktop; its `start` takes the running virtual desktop through the rest of the way."""

    title: str
    suite: str
    packages: tuple
    start_session: object
    name: str  # XDG_CURRENT_DESKTOP
    base: type = VirtualDesktop

    def root(self, shared):
        return BareRoot(ROOTS / self.suite, shared)

    def install(self, package):
        """The system with this desktop and the program's package, made where it isn't there yet."""
        with tempfile.TemporaryDirectory() as shared:
            root = self.root(shared)
            root.make(self.suite)
            root.apt("update")
            root.apt("install", *PACKAGES, *self.packages)
            (root.folder / "root/orvane.deb").write_bytes(pathlib.Path(package).read_bytes())
            root.apt("install", "--reinstall", "/root/orvane.deb")
            root.run("sh", "-c", f"id -u {USER} || useradd --create-home --uid {USER} user")
            # There is no seat, and a capability that can't be had keeps KWin from starting.
            root.run("sh", "-c", "rm -f /usr/share/dbus-1/system-services/org.freedesktop.login1.service;"
                     " if test -e /usr/bin/kwin_wayland; then setcap -r /usr/bin/kwin_wayland; fi; true")

    @contextlib.contextmanager
    def start(self):
        own = {"XDG_CURRENT_DESKTOP": self.name, "GSETTINGS_BACKEND": "dconf",
               "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        with self.base(all_services=True, system=self.root, environment=own) as desktop:
            processes.start(desktop.system.command(
                "sh", "-c", "mkdir -p /run/dbus -m 755; rm -f /run/dbus/pid; mkdir -p /tmp/.X11-unix;"
                " chmod 1777 /tmp/.X11-unix; rm -f /tmp/.X11-unix/*; exec dbus-daemon --system --nofork"))
            set_setting(desktop, "org.gnome.desktop.interface", "toolkit-accessibility", "true")
            if not hasattr(desktop, "pointer"):
                desktop.pointer = Pointer(desktop.environment["DISPLAY"])
            self.start_session(desktop)
            wait_for_rest(desktop)
            desktop.pointer.key("Escape")  # GNOME starts with its overview
            wait_for_rest(desktop)
            yield desktop


def wait_for_rest(desktop):
    """Until there is a host of items and the picture stays the same for 4 seconds."""
    session = Session(desktop.bus_address)
    processes.wait_for("host of items", 90, lambda: session.has_owner("org.kde.StatusNotifierWatcher"))
    pictures = []

    def rests():
        pictures.append(desktop.screen.everything())
        return len(pictures) > 4 and len(set(pictures[-5:])) == 1

    processes.wait_for("rest", 60, rests, interval=1)


def set_setting(desktop, *group_key_value):
    desktop.start_program(["gsettings", "set", *group_key_value]).wait(timeout=20)


def start_gnome(desktop, *kind):
    set_setting(desktop, "org.gnome.shell", "enabled-extensions", EXTENSION)
    set_setting(desktop, "org.gnome.shell", "welcome-dialog-last-shown-version", "99")
    desktop.start_part("shell", ["gnome-shell", *kind])


def start_gnome_on_wayland(desktop):
    desktop.environment |= {"XDG_SESSION_TYPE": "wayland",
                            "MUTTER_DEBUG_DUMMY_MODE_SPECS": f"{WIDTH}x{HEIGHT}"}
    start_gnome(desktop, "--nested", "--wayland")
    become_wayland(desktop, None)


def start_plasma(desktop, window_manager=("kwin_x11",)):
    release = "6" if (desktop.system.folder / "usr/bin/kded6").exists() else "5"
    desktop.environment |= {"KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": release,
                            "KDE_SESSION_UID": str(USER), "QT_QUICK_BACKEND": "software"}
    if window_manager == NESTED:
        desktop.environment |= {"XDG_SESSION_TYPE": "wayland", "KWIN_COMPOSE": "Q"}
        desktop.start_part("window manager", [*NESTED, desktop.environment["DISPLAY"]])
        become_wayland(desktop, x_display)
    else:
        desktop.start_part("window manager", window_manager)
    desktop.start_part("services", [f"kded{release}"])
    desktop.start_part("panel", ["plasmashell"])


def start_cinnamon(desktop):
    desktop.start_part("shell", ["cinnamon", "--replace"])
    session = Session(desktop.bus_address)
    processes.wait_for("Cinnamon", 60, lambda: session.has_owner("org.Cinnamon"))
    desktop.start_part("watcher", ["/usr/libexec/xapps/sn-watcher/xapp-sn-watcher"])


def become_wayland(desktop, find_x):
    """What starts from now on is the nested compositor's."""
    socket = pathlib.Path(desktop.environment["XDG_RUNTIME_DIR"]) / "wayland-0"
    processes.wait_for("compositor", 60, socket.exists)
    display = find_x and processes.wait_for("Xwayland", 30, lambda: find_x(desktop))
    desktop.environment.pop("DISPLAY")
    desktop.environment |= {"WAYLAND_DISPLAY": "wayland-0"} | ({"DISPLAY": display} if display else {})


def x_display(desktop):
    """Where the compositor listens for X11, running or started on demand."""
    folder = desktop.system.folder / "tmp/.X11-unix"
    return next((f":{socket.name[1:]}" for socket in folder.glob("X*")), None)


def start_sway(desktop):
    desktop.write_settings(HOSTS["sway"].settings)
    desktop.start_panel(HOSTS["sway"].panel)


WHOLE = {
    "gnome": Whole("GNOME, X11", "bookworm", GNOME, lambda desktop: start_gnome(desktop, "--x11"), "GNOME"),
    "gnome-wayland": Whole("GNOME, Wayland", "bookworm", GNOME, start_gnome_on_wayland, "GNOME"),
    "plasma": Whole("Plasma, X11", "bookworm", PLASMA, start_plasma, "KDE"),
    "plasma-wayland": Whole("Plasma, Wayland", "bookworm", PLASMA,
                            lambda desktop: start_plasma(desktop, NESTED), "KDE"),
    "cinnamon": Whole("Cinnamon", "bookworm", ("cinnamon",), start_cinnamon, "X-Cinnamon"),
    "gnome-13": Whole("GNOME, Wayland", "trixie", GNOME, start_gnome_on_wayland, "GNOME"),
    "plasma-13": Whole("Plasma, Wayland", "trixie", PLASMA,
                       lambda desktop: start_plasma(desktop, NESTED), "KDE"),
    "sway-13": Whole("sway, waybar", "trixie", ("sway", "waybar"), start_sway, "sway", SwayDesktop),
}
