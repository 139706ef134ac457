"""The layer rule: which headers a file may include, by the folder it is in."""

import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)

# Standard headers have no ending and no capital; everything of Qt has a capital or its folder.
STANDARD = re.compile(r"[a-z_0-9]+")
QT = re.compile(r"(Qt[A-Za-z0-9]*/)?(Q[A-Za-z0-9]+|q[a-z0-9_]+\.h)|Qt[A-Za-z]*")
# What only the services know, although Qt offers it: the bus, other processes, the network.
QT_SERVICES = re.compile(r"(QtDBus|QtNetwork)(/.*)?|QDBus\w*|QNetwork\w*|QProcess|QDesktopServices|QSettings")

# The operating system's own headers; the C library's others (malloc.h) are a program's business.
SYSTEM = re.compile(r"(gio|glib|xcb|X11|sys|linux|dbus)/.*|(unistd|fcntl|signal|poll|pthread)\.h")

OWN_FOLDERS = {
    "core": ("core/", "platform/*.h"),
    "platform": ("core/", "platform/*.h"),
    "platform/linux": ("core/", "platform/"),
    "ui": ("core/", "platform/*.h", "ui/"),
    "preview": ("core/", "platform/*.h", "ui/", "preview/", "testing/", "app/status_icon.h"),
    "testing": ("core/", "platform/*.h", "ui/", "app/", "testing/"),
    "app": ("core/", "platform/", "ui/", "app/"),
}

# What the rooms of platform/linux/ may include of each other, besides files/.
ROOMS = {"applications": {"x11"}, "desktop": {"bus"}, "status_item": {"bus"}}
ROOM = re.compile(r"platform/linux/(\w+)/")


def layer_of(path):
    """The layer of a file, by its path from the root; None where the rule says nothing."""
    parts = path.split("/")
    if parts[:2] == ["platform", "linux"]:
        return "platform/linux"
    return parts[0] if parts[0] in OWN_FOLDERS else None


def is_in(include, folders):
    for folder in folders:
        if folder.endswith("*.h"):
            prefix = folder[:-len("*.h")]
            if include.startswith(prefix) and "/" not in include[len(prefix):]:
                return True
        elif include.startswith(folder):
            return True
    return False


def may_include(layer, bracket, include):
    if bracket == '"':
        # Generated code is included by its bare name.
        return is_in(include, OWN_FOLDERS[layer]) or (layer not in ("core", "platform")
                                                      and "/" not in include)
    if STANDARD.fullmatch(include):
        return True
    if layer == "platform/linux":
        return True
    if layer == "app" and not QT.fullmatch(include):
        return not SYSTEM.fullmatch(include)
    return layer in ("app", "ui", "preview") and bool(QT.fullmatch(include)) and \
        not QT_SERVICES.fullmatch(include)


def may_enter(path, include):
    """Both are files of platform/linux/; each room may use few others."""
    room, other = ROOM.match(path), ROOM.match(include)
    if not room or not other:
        return True
    return other[1] in ({room[1], "files"} | ROOMS.get(room[1], set()))


def violations(path, text):
    """The includes of a file that its layer or its room may not have, as texts."""
    layer = layer_of(path)
    if layer is None:
        return []
    return [f"{path}: {layer}/ may not include {include}"
            for bracket, include in INCLUDE.findall(text)
            if not may_include(layer, bracket, include) or not may_enter(path, include)]


def main(root):
    found = []
    files = [file for ending in ("*.h", "*.cpp") for layer in ("core", "platform", "ui", "app", "preview")
             for file in sorted((root / layer).rglob(ending))]
    for file in files:
        found += violations(file.relative_to(root).as_posix(), file.read_text())
    print("\n".join(found) if found else f"{len(files)} files keep their layers")
    return 1 if found or not files else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
