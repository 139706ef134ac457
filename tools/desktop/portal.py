"""A desktop's settings portal: portal.py ADDRESS

Reads lines from standard input, GROUP KEY VALUE with the value in GVariant's notation, announces each
and answers with the latest. Ends with its input.
"""

import sys

from gi.repository import Gio, GLib

SETTINGS = "org.freedesktop.portal.Settings"
DESCRIPTION = f"""<node><interface name="{SETTINGS}">
  <method name="ReadAll"><arg type="as" direction="in"/><arg type="a{{sa{{sv}}}}" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""
PATH = "/org/freedesktop/portal/desktop"


def main(address):
    bus = Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
    said = {}

    def answer(_bus, _sender, _path, _interface, _method, arguments, invocation):
        wanted = {group: said[group] for group in arguments.unpack()[0] if group in said}
        invocation.return_value(GLib.Variant("(a{sa{sv}})", (wanted,)))

    loop = GLib.MainLoop()

    def read(_channel, _condition):
        line = sys.stdin.readline()
        if not line:
            loop.quit()
            return False
        group, key, text = line.split(maxsplit=2)
        value = GLib.Variant.parse(None, text, None, None)
        said.setdefault(group, {})[key] = value
        bus.emit_signal(None, PATH, SETTINGS, "SettingChanged",
                        GLib.Variant("(ssv)", (group, key, value)))
        return True

    bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0], answer)
    Gio.bus_own_name_on_connection(bus, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE,
                                   None, None)
    GLib.io_add_watch(sys.stdin.fileno(), GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, read)
    loop.run()


if __name__ == "__main__":
    main(sys.argv[1])
