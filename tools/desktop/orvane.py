"""Starting the real program on a virtual desktop and watching it from outside."""

import os
import pathlib
import shlex

from . import processes

MEMINFO = """MemTotal:       {total} kB
MemFree:        {free} kB
MemAvailable:   {available} kB
Buffers:               0 kB
Cached:         {cached} kB
Unevictable:           0 kB
SUnreclaim:            0 kB
KernelStack:           0 kB
PageTables:            0 kB
Percpu:                0 kB
"""


def meminfo(used_percent, total=16_000_000):
    """A /proc/meminfo that says so many percent are used."""
    available = round(total * (100 - used_percent) / 100)
    return MEMINFO.format(total=total, free=available // 2, available=available,
                          cached=available - available // 2)


class Orvane:
    """One run of the program, with files of its own."""

    def __init__(self, desktop, program, session=None, first_launch=False, meminfo_file=None,
                 accessible=True, environment=None, errors=None, home=None, options=()):
        """For the program alone `meminfo_file` takes the place of /proc/meminfo. Standard error goes
        to `errors`. `home` is that of an earlier run, whose files this one finds."""
        self.session = session
        self.home = home or desktop.folder / f"orvane-{len(list(desktop.folder.glob('orvane-*')))}"
        self.configuration = self.home / ".config"
        self._output = self.home / "output"
        self._prepare(first_launch)
        command = [str(program), *options]
        if meminfo_file:
            command = in_mount_namespace([["--bind", str(meminfo_file), "/proc/meminfo"]], command)
        own = self._environment(accessible) | (environment or {})
        with open(self._output, "ab") as output:
            self.process = desktop.start_program(command, environment=own, stdout=output,
                                                 stderr=errors)

    @property
    def pid(self):
        return self.process.pid

    @property
    def autostart_entry(self):
        return self.configuration / "autostart/orvane.desktop"

    def preferences(self):
        file = self.configuration / "orvane/orvane.conf"
        return file.read_text() if file.exists() else ""

    def lines(self):
        """What the program has printed so far."""
        return self._output.read_text().splitlines()

    def is_running(self):
        return self.process.poll() is None

    def item(self):
        """Its status item as registered in a panel, None while there is none."""
        return self.session.item_of(self.pid) if self.session else None

    def wait_for_item(self, seconds=10):
        return processes.wait_for("status item", seconds, self.item, interval=0.01)

    def stop(self):
        if self.is_running():
            self.process.terminate()
        return self.process.wait(timeout=5)

    def _prepare(self, first_launch):
        settings = self.configuration / "orvane"
        settings.mkdir(parents=True, exist_ok=True)
        if not first_launch and not (settings / "orvane.conf").exists():
            (settings / "orvane.conf").write_text("[General]\nhasLaunchedBefore=true\n")

    def _environment(self, accessible):
        environment = {
            "HOME": str(self.home), "XDG_CONFIG_HOME": str(self.configuration),
            "XDG_DATA_HOME": str(self.home / ".local/share"),
            "XDG_CACHE_HOME": str(self.home / ".cache"),
            "XDG_STATE_HOME": str(self.home / ".local/state"),
        }
        return environment | ({"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"} if accessible else {})


def in_mount_namespace(mounts, command):
    """`command` as it runs, by the same user, where the given mounts were made for it alone."""
    unshare = ["unshare", "--mount"]
    if os.geteuid() != 0:
        unshare += ["--map-current-user", "--keep-caps"]
    steps = [shlex.join(["mount", *mount]) for mount in mounts] + ["exec " + shlex.join(command)]
    return unshare + ["sh", "-c", " && ".join(steps)]


def replace_in_place(file, text):
    """New content for a file that somebody holds open."""
    with open(pathlib.Path(file), "r+b") as held:
        held.write(text.encode())
        held.truncate()
