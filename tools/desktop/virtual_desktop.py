"""A private desktop without a monitor: X server, session bus, window manager, panel, notifications.

Every part can be left out, ended and started again, which is how the tests see the program without
one. Nothing of it touches the user's own desktop or files.
"""

import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

from . import desktop_files, processes
from .screen import Screen

WIDTH, HEIGHT, PANEL_HEIGHT = 1280, 800, 28


class VirtualDesktop:
    def __init__(self, bus=True, all_services=False, system=None, environment=None):
        """`all_services`: the bus starts whatever is installed, not only what a test asked for. All but
        the screen runs in `system`, a function that gives a BareRoot that shares a folder."""
        processes.adopt_orphans()
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="orvane-desktop-"))
        self.home = desktop_files.write_home(self.folder / "home")
        self.environment = self._clean_environment() | (environment or {})
        self._parts = {}
        self.system = system and system(self.folder)
        self._start_screen()
        self.bus_address = None
        if bus:
            self.start_bus(all_services)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        """Ends everything that was started here, by whomever, and removes its files."""
        # Last of all what programs complain about when it goes before them.
        processes.end_descendants([self._parts[part].pid for part in ("screen", "bus")
                                   if part in self._parts])
        self._parts.clear()
        processes.end_descendants()
        self.screen.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _clean_environment(self):
        kept = {name: os.environ[name] for name in ("PATH", "LANG", "TERM") if name in os.environ}
        return kept | {
            "HOME": str(self.home),
            "XDG_CONFIG_HOME": str(self.home / ".config"),
            "XDG_DATA_HOME": str(self.home / ".local/share"),
            "XDG_CACHE_HOME": str(self.home / ".cache"),
            "XDG_STATE_HOME": str(self.home / ".local/state"),
            "XDG_RUNTIME_DIR": str(desktop_files.make_private(self.folder / "runtime")),
            "XDG_CURRENT_DESKTOP": "XFCE", "XDG_SESSION_TYPE": "x11",
            "LC_ALL": "C.UTF-8", "NO_AT_BRIDGE": "0", "GSETTINGS_BACKEND": "memory",
            "GTK_CSD": "0", "LIBGL_ALWAYS_SOFTWARE": "1",
        }

    def _start_screen(self):
        frame_buffer = desktop_files.make_private(self.folder / "screen")
        reading, writing = os.pipe()
        self._start_here("screen", [
            "Xvfb", "-displayfd", str(writing), "-screen", "0", f"{WIDTH}x{HEIGHT}x24",
            "-nolisten", "tcp", "-noreset", "-fbdir", str(frame_buffer)], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("the X server did not start")
        self.environment["DISPLAY"] = f":{number}"
        self.screen = Screen(frame_buffer / "Xvfb_screen0")

    def start_bus(self, all_services=False):
        """The session bus; it inherits the display, and so does every service it starts."""
        configuration = desktop_files.write_bus_configuration(self.folder, all_services)
        reading, writing = os.pipe()
        self.start_part("bus", ["dbus-daemon", f"--config-file={configuration}", "--nofork",
                            f"--print-address={writing}"], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as answer:
            self.bus_address = answer.readline().strip()
        if not self.bus_address:
            raise RuntimeError("the session bus did not start")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.bus_address

    def start_window_manager(self, command=("xfwm4", "--compositor=on", "--vblank=off")):
        self._output(["hsetroot", "-add", "#2b5876", "-add", "#4e4376", "-gradient", "160"])
        self.start_part("window manager", command)
        processes.wait_for("window manager", 30, lambda: self._output(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"]).find("window id") > 0)

    def write_settings(self, settings):
        """Files below ~/.config, as (name, text) pairs."""
        for name, text in settings:
            path = self.home / ".config" / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)

    def start_panel(self, command=("xfce4-panel", "--disable-wm-check")):
        self.start_part("panel", command)

    def start_notifications(self):
        """The notification daemon; `notifications()` reads what it received."""
        log = open(self.folder / "notifications.log", "ab")
        self.start_part("notifications", ["dunst", "-conf", str(self.home / "dunstrc"), "-print"],
                    stdout=log)

    def notifications(self):
        """What the notification daemon was told, as (title, body) pairs, oldest first."""
        log = self.folder / "notifications.log"
        return desktop_files.parse_notifications(log.read_text()) if log.exists() else []

    def stop(self, part, end_signal=signal.SIGTERM):
        """Ends one part and waits until it is gone."""
        process = self._parts.pop(part)
        process.send_signal(end_signal)
        process.wait(timeout=10)

    def start_program(self, command, **options):
        """Any program, on this desktop."""
        environment = self.environment | options.pop("environment", {})
        return processes.start(self._inside(command), env=environment, cwd=self.folder, **options)

    def _inside(self, command):
        return self.system.user_command(command) if self.system else command

    def start_part(self, part, command, **options):
        self._start_here(part, self._inside(command), **options)

    def _start_here(self, part, command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        log = open(self.folder / f"{part}.log", "ab")
        self._parts[part] = processes.start(command, env=self.environment, cwd=self.folder,
                                            stderr=log, **options)

    def _output(self, command):
        return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, check=False).stdout
