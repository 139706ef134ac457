"""A virtual desktop on Wayland: sway without a monitor, its picture and its input."""

import os
import socket
import struct
import subprocess
import time

from . import processes
from .screen import Screen
from .virtual_desktop import HEIGHT, WIDTH, VirtualDesktop

NOBODY = 65534
CONFIGURATION = f"output HEADLESS-1 resolution {WIDTH}x{HEIGHT}\n"
BUTTONS = {1: 0x110, 3: 0x111}


class SwayDesktop(VirtualDesktop):
    """Its `pointer` takes the place of `Pointer`."""

    def _start_screen(self):
        place = self.folder / "screen"
        place.mkdir()
        (place / "config").write_text(CONFIGURATION)
        lesser = []
        if os.geteuid() == 0 and not self.system:  # as which sway doesn't run
            self.folder.chmod(0o711)
            os.chown(place, NOBODY, NOBODY)
            lesser = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
        settings = {"WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman",
                    "WLR_LIBINPUT_NO_DEVICES": "1", "XDG_RUNTIME_DIR": str(place), "HOME": str(place)}
        self.start_part("screen", ["env", *(f"{name}={value}" for name, value in settings.items()),
                               *lesser, "sway", "--config", str(place / "config")])
        display = processes.wait_for("sway", 10, lambda: next(
            (path for path in place.glob("wayland-*") if path.is_socket()), None))
        self.environment |= {"WAYLAND_DISPLAY": str(display), "XDG_SESSION_TYPE": "wayland",
                             "XDG_CURRENT_DESKTOP": "sway"}
        self.screen = WaylandScreen(self.environment)
        self.pointer = WaylandPointer(self.environment)


class WaylandScreen(Screen):
    """The compositor's picture, taken by grim for each look."""

    def __init__(self, environment):
        self._environment = environment
        self.width, self.height = WIDTH, HEIGHT

    def close(self):
        pass

    def area(self, x, y, width, height):
        x, y = max(0, x), max(0, y)
        width, height = min(width, self.width - x), min(height, self.height - y)
        picture = subprocess.run(
            ["grim", "-t", "ppm", "-g", f"{x},{y} {width}x{height}", "-"], env=self._environment,
            stdout=subprocess.PIPE, check=True).stdout
        colours = picture[-width * height * 3:]
        pixels = bytearray(width * height * 4)
        for channel in range(3):
            pixels[2 - channel::4] = colours[channel::3]
        return bytes(pixels)


class WaylandPointer:
    """A mouse (zwlr_virtual_pointer_v1), as long as this lives; keys are pressed by wtype."""

    _REGISTRY, _SYNC, _MANAGER, _POINTER = 2, 3, 4, 5
    _MANAGER_NAME = "zwlr_virtual_pointer_manager_v1"

    def __init__(self, environment):
        self._environment = environment
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.connect(environment["WAYLAND_DISPLAY"])
        self._send(1, 1, struct.pack("<I", self._REGISTRY))
        self._send(1, 0, struct.pack("<I", self._SYNC))
        name = self._global_number()
        text = self._MANAGER_NAME.encode() + b"\0"
        text = struct.pack("<I", len(text)) + text + b"\0" * (-len(text) % 4)
        self._send(self._REGISTRY, 0,
                   struct.pack("<I", name) + text + struct.pack("<II", 1, self._MANAGER))
        self._send(self._MANAGER, 0, struct.pack("<II", 0, self._POINTER))

    def close(self):
        self._socket.close()

    def move(self, x, y):
        self._send(self._POINTER, 1, struct.pack("<IIIII", self._now(), x, y, WIDTH, HEIGHT))
        self._send(self._POINTER, 4)

    def click(self, x, y, button=1):
        # What is entered by the first movement alone doesn't yet know where the pointer is.
        for away in (1, 0):
            self.move(int(x) + away, int(y))
            time.sleep(0.1)
        for pressed in (1, 0):
            self._send(self._POINTER, 2, struct.pack("<III", self._now(), BUTTONS[button], pressed))
            self._send(self._POINTER, 4)
            time.sleep(0.05)

    def key(self, *names):
        *held, last = ({"Control_L": "ctrl", "Shift_L": "shift"}.get(name, name) for name in names)
        command = [part for name in held for part in ("-M", name)] + ["-k", last]
        subprocess.run(["wtype", *command], env=self._environment, check=True)

    def _global_number(self):
        """The number under which the compositor offers virtual pointers."""
        stream = self._socket.makefile("rb")
        while True:
            sender, size_and_kind = struct.unpack("<II", stream.read(8))
            body = stream.read((size_and_kind >> 16) - 8)
            if sender == self._SYNC:
                raise RuntimeError("the compositor offers no virtual pointer")
            if sender == self._REGISTRY and self._MANAGER_NAME.encode() + b"\0" in body:
                return struct.unpack_from("<I", body)[0]

    def _send(self, target, request, body=b""):
        self._socket.sendall(struct.pack("<II", target, (8 + len(body)) << 16 | request) + body)

    @staticmethod
    def _now():
        return int(time.monotonic() * 1000) & 0xFFFFFFFF
