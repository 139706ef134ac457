"""What a program shows on the session bus: its status item, seen as a panel sees it."""

from gi.repository import Gio, GLib

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM_INTERFACE = "org.kde.StatusNotifierItem"
_TIMEOUT = 3000  # ms


class Session:
    def __init__(self, address):
        self._bus = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self._bus.set_exit_on_close(False)

    def close(self):
        self._bus.close_sync(None)

    def call(self, name, path, interface, method, arguments=None):
        """The answer's values as Python values, None when there is no answer."""
        try:
            answer = self._bus.call_sync(name, path, interface, method, arguments, None,
                                         Gio.DBusCallFlags.NO_AUTO_START, _TIMEOUT, None)
        except GLib.Error:
            return None
        return answer.unpack()

    def property(self, name, path, interface, key):
        answer = self.call(name, path, "org.freedesktop.DBus.Properties", "Get",
                           GLib.Variant("(ss)", (interface, key)))
        return answer[0] if answer else None

    def has_owner(self, name):
        answer = self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                           "NameHasOwner", GLib.Variant("(s)", (name,)))
        return bool(answer and answer[0])

    def process_of(self, name):
        """The id of the process that owns a name, None when nobody does."""
        answer = self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                           "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))
        return answer[0] if answer else None

    def items(self):
        """The registered status items, as StatusItem."""
        entries = self.property(WATCHER, "/StatusNotifierWatcher", WATCHER,
                                "RegisteredStatusNotifierItems") or []
        return [StatusItem(self, entry) for entry in entries]

    def item_of(self, process):
        """The registered item of a process, None while there is none."""
        return next((item for item in self.items() if item.process() == process), None)


class StatusItem:
    """One registered item; every reading asks the program anew."""

    def __init__(self, session, entry):
        self._session = session
        name, slash, path = entry.replace("@", "").partition("/")  # GNOME puts an @ between the two
        self._name, self._path = name, slash + path or "/StatusNotifierItem"

    def process(self):
        return self._session.process_of(self._name)

    def get(self, key):
        return self._session.property(self._name, self._path, ITEM_INTERFACE, key)

    def label(self):
        return self.get("XAyatanaLabel")

    def percentage(self):
        """The figure of the label; None while it has none."""
        digits = (self.label() or "").strip().rstrip("%")
        return int(digits) if digits.isdigit() else None

    def activate(self, x=0, y=0):
        self._session.call(self._name, self._path, ITEM_INTERFACE, "Activate",
                           GLib.Variant("(ii)", (x, y)))
