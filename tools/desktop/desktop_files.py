"""The files a virtual desktop starts from: panel, bus and notification settings, so that nothing asks
a question at its first start."""

import re

SERVICE_FOLDER = "/usr/share/dbus-1/services"
# What the parts of the desktop need the bus to start. No notification daemon, no file manager: a
# test that wants one starts it.
NEEDED_SERVICES = ("org.a11y.Bus.service", "org.xfce.Xfconf.service",
                   "org.mate.panel.applet.NotificationAreaAppletFactory.service")

PANEL = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="true"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="28"/>
      <property name="icon-size" type="uint" value="22"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
        <value type="int" value="3"/>
        <value type="int" value="4"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="tasklist"/>
    <property name="plugin-2" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-3" type="string" value="systray">
      <property name="square-icons" type="bool" value="true"/>
      <property name="icon-size" type="int" value="22"/>
      <property name="hide-new-items" type="bool" value="false"/>
    </property>
    <property name="plugin-4" type="string" value="clock"/>
  </property>
</channel>
"""

SETTINGS = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xsettings" version="1.0">
  <property name="Net" type="empty">
    <property name="IconThemeName" type="string" value="Adwaita"/>
  </property>
</channel>
"""

DUNST = """[global]
    width = 320
    origin = top-right
    offset = 16x44
    font = DejaVu Sans 10
    frame_width = 1
    notification_limit = 5
"""

BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
  "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={folder}/runtime/bus</listen>
  <auth>EXTERNAL</auth>
  {services}
  <policy context="default">
    <allow user="root"/>
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


def add_launcher(home, command):
    """A button at the panel's left end that starts a command, which no menu knows."""
    panel = next(home.rglob("xfce4-panel.xml"))
    plugin = """<property name="plugin-9" type="string" value="launcher">
      <property name="items" type="array"><value type="string" value="command.desktop"/></property>
    </property>
  """
    text = panel.read_text().replace('<value type="int" value="1"/>\n        <value type="int" value="2"/>',
                                     '<value type="int" value="9"/>\n        <value type="int" value="2"/>')
    panel.write_text(text.replace('<property name="plugin-1"', plugin + '<property name="plugin-1"'))
    folder = home / ".config/xfce4/panel/launcher-9"
    folder.mkdir(parents=True)
    (folder / "command.desktop").write_text(
        f"[Desktop Entry]\nType=Application\nName=Command\nIcon=system-run\nExec={command}\n")


def make_private(folder):
    folder.mkdir(parents=True, mode=0o700, exist_ok=True)
    return folder


def write_home(home):
    """A home with the settings above; gives its path."""
    channels = home / ".config/xfce4/xfconf/xfce-perchannel-xml"
    channels.mkdir(parents=True)
    (channels / "xfce4-panel.xml").write_text(PANEL)
    (channels / "xsettings.xml").write_text(SETTINGS)
    (home / "dunstrc").write_text(DUNST)
    for folder in (".local/share", ".local/state", ".cache"):
        (home / folder).mkdir(parents=True)
    return home


def write_bus_configuration(folder, all_services):
    services = "<standard_session_servicedirs/>"
    if not all_services:
        own = make_private(folder / "services")
        for name in NEEDED_SERVICES:
            link = own / name
            if not link.is_symlink():
                link.symlink_to(f"{SERVICE_FOLDER}/{name}")
        services = f"<servicedir>{own}</servicedir>"
    file = folder / "bus.conf"
    file.write_text(BUS.format(folder=folder, services=services))
    return file


def parse_notifications(log):
    """(title, body) of each notification that `dunst -print` wrote."""
    titles = re.findall(r"summary: '(.*?)'$", log, re.MULTILINE)
    bodies = re.findall(r"body: '(.*?)'$", log, re.MULTILINE | re.DOTALL)
    return list(zip(titles, bodies))
