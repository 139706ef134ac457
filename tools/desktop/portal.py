"""A desktop's settings portal that knows one setting, light or dark: portal.py ADDRESS

Reads numbers from standard input (1 dark, 2 light, 0 no wish), announces each and answers with the
latest. Ends with its input.
"""

import sys

from gi.repository import Gio, GLib

SETTINGS = "org.freedesktop.portal.Settings"
GROUP, KEY = "org.freedesktop.appearance", "color-scheme"
DESCRIPTION = f"""<node><interface name="{SETTINGS}">
  <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="v" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""
PATH = "/org/freedesktop/portal/desktop"


def main(address):
    bus = Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
    scheme = GLib.Variant("u", 0)

    def answer(_bus, _sender, _path, _interface, _method, arguments, invocation):
        if arguments.unpack() == (GROUP, KEY):
            # Wrapped twice, as real portals do.
            value = GLib.Variant("v", scheme)
            invocation.return_value(GLib.Variant.new_tuple(GLib.Variant.new_variant(value)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")

    loop = GLib.MainLoop()

    def read(_channel, _condition):
        nonlocal scheme
        line = sys.stdin.readline()
        if not line:
            loop.quit()
            return False
        scheme = GLib.Variant("u", int(line))
        bus.emit_signal(None, PATH, SETTINGS, "SettingChanged",
                        GLib.Variant("(ssv)", (GROUP, KEY, scheme)))
        return True

    bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0], answer)
    Gio.bus_own_name_on_connection(bus, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE,
                                   None, None)
    GLib.io_add_watch(sys.stdin.fileno(), GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, read)
    loop.run()


if __name__ == "__main__":
    main(sys.argv[1])
