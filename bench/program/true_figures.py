"""What the list shows beside what the kernel says: true_figures.py BUILD_DIR [--settled SECONDS]

Applications of different makes run as real processes on a virtual desktop. Beside the figure in the
list stands the sum of the proportional sizes (PSS) of their processes, read at the same moment. The
value of a row is the difference in bounds: 10 % of the true figure or 30 MB, whichever is more.
"""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT))
from bench.program.figures import Row, proportional  # noqa: E402
from tools.desktop import desktop_files  # noqa: E402
from tools.desktop.orvane import Orvane  # noqa: E402
from tools.desktop.pointer import Pointer  # noqa: E402
from tools.desktop.processes import descendants, wait_for  # noqa: E402
from tools.desktop.session import Session  # noqa: E402
from tools.desktop.virtual_desktop import VirtualDesktop  # noqa: E402

COPY_ON_WRITE = """
block = bytearray(700 << 20)
block[::4096] = b"x" * len(block[::4096])
work(8, lambda i: None)
"""
SHARED = """
block = mmap.mmap(-1, 2 << 30)
def fill(i):
    for at in range(i << 28, (i + 1) << 28, 4096): block[at] = 1
work(8, fill)
"""
RESPAWNED = """
block = bytearray(300 << 20)
block[::4096] = b"x" * len(block[::4096])
def spawn(seconds):
    if os.fork() == 0: time.sleep(seconds); os._exit(0)
for i in range(6): spawn(3 + i / 2)
open(sys.argv[1], "w").close()
while os.wait(): spawn(6)
"""
PLAIN = """
block = bytearray(300 << 20)
block[::4096] = b"x" * len(block[::4096])
work(0, None)
"""
PROLOGUE = """
import mmap, os, sys, time
def work(count, do):
    for i in range(count):
        if os.fork() == 0:
            do(i); open(sys.argv[1] + str(i), "w").close(); time.sleep(3600)
    open(sys.argv[1], "w").close()
    time.sleep(3600)
"""
LAYERS = """<body><script>
for (let i = 0; i < 40; i++) {
  const layer = document.createElement("div");
  layer.style = "position:absolute;width:2000px;height:2000px;will-change:transform;left:" + i +
    "px;background:linear-gradient(" + i * 9 + "deg,red,blue)";
  document.body.append(layer);
}
</script>"""
BROWSERS = {
    "chromium": ["--no-first-run", "--no-sandbox", "--user-data-dir={home}"],
    "firefox-esr": ["--no-remote", "--profile", "{home}"],
}
READING = 3  # seconds within which the list is read


class Application:
    def __init__(self, desktop, name, program, arguments, ready=()):
        """`name` is what the list calls it; the files `ready` come when it has settled."""
        self.name, self.ready = name, ready
        self.root = desktop.start_program([str(program), *arguments], stderr=subprocess.DEVNULL).pid

    def true_size(self):
        return sum(proportional(pid) for pid in [self.root, *descendants(self.root)])


class Launched(Application):
    """A program of no menu that the panel's button starts."""

    def __init__(self, desktop):
        self.name, self.desktop = "launched", desktop
        self.program = desktop.folder / self.name
        self.ready = [desktop.folder / "launched-ready"]
        script = desktop.folder / "launched.py"
        script.write_text(PROLOGUE + PLAIN)
        shutil.copy(pathlib.Path("/usr/bin/python3").resolve(), self.program)
        desktop_files.add_launcher(desktop.home, f"{self.program} {script} {self.ready[0]}")

    def start(self):
        wait_for("launcher", 20, lambda: self.desktop.screen.colours(2, 2, 24, 24) > 3)
        Pointer(self.desktop.environment["DISPLAY"]).click(14, 14)

    @property
    def root(self):
        return next(pid for pid in descendants(os.getpid())
                    if os.readlink(f"/proc/{pid}/exe") == str(self.program))


def python_application(desktop, name, script, workers):
    program = desktop.folder / name
    shutil.copy(pathlib.Path("/usr/bin/python3").resolve(), program)
    entries = desktop.home / ".local/share/applications"
    entries.mkdir(parents=True, exist_ok=True)
    (entries / f"{name}.desktop").write_text(
        f"[Desktop Entry]\nType=Application\nName={name}\nExec={program}\n")
    ready = desktop.folder / f"{name}-ready"
    return Application(desktop, name, program, ["-c", PROLOGUE + script, str(ready)],
                       [ready, *(pathlib.Path(f"{ready}{i}") for i in range(workers))])


def browser(desktop, command):
    page, home = desktop.folder / "layers.html", desktop.folder / f"{command}-home"
    page.write_text(LAYERS)
    home.mkdir()
    options = [option.format(home=home) for option in BROWSERS[command]]
    entry = pathlib.Path(f"/usr/share/applications/{command}.desktop").read_text()
    name = re.search("^Name=(.*)$", entry, re.MULTILINE)[1]
    return Application(desktop, name, shutil.which(command), [*options, page.as_uri()])


def shown_sizes(seen, process):
    """{name: MB} of the list's rows."""
    rows = {}
    for _, row in seen.of_role(process, "list item"):
        name, _, size = row.rpartition(", ")
        rows[name] = float(size.removesuffix(" MB"))
    return rows


def used_memory():
    figures = dict(line.split(":") for line in pathlib.Path("/proc/meminfo").read_text().splitlines())
    return sum(sign * int(figures[key].split()[0]) for key, sign in
               (("MemTotal", 1), ("MemAvailable", -1))) / 1024


def rows(desktop, build, settled, launched):
    launched.start()
    applications = [launched,
                    python_application(desktop, "copy-on-write", COPY_ON_WRITE, 8),
                    python_application(desktop, "shared-memory", SHARED, 8),
                    python_application(desktop, "respawned", RESPAWNED, 0),
                    python_application(desktop, "plain", PLAIN, 0)]
    applications += [browser(desktop, command) for command in BROWSERS if shutil.which(command)]
    for each in applications:
        wait_for(each.name, 60, lambda each=each: all(file.exists() for file in each.ready))
    from tools.desktop import accessibility as seen
    session = Session(desktop.bus_address)
    orvane = Orvane(desktop, build / "orvane", session, first_launch=True, home=desktop.home)
    tab = wait_for("tab", 20, lambda: seen.find(orvane.pid, "Processes"))
    seen.press(tab)
    first = wait_for("list", 10, lambda: shown_sizes(seen, orvane.pid))
    yield sum_row("sum of the list, first sight", first)
    time.sleep(settled)
    begun = time.monotonic()
    shown = shown_sizes(seen, orvane.pid)
    true = {each.name: each.true_size() for each in applications}
    if time.monotonic() - begun > READING:
        print("note: the figures are further apart than they should be")
    for name, size in true.items():
        error = abs(shown.get(name, 0) - size) / max(size / 10, 30)
        yield Row(name, error, 1, "bounds", f"shown {shown.get(name, 0):.0f} MB, true {size:.0f} MB, "
                                            f"at first sight {first.get(name, 0):.0f} MB")
    yield sum_row(f"sum of the list, {settled:.0f} s later", shown)
    orvane.stop()


def sum_row(what, shown):
    used = used_memory()
    return Row(what, sum(shown.values()) / used, 1.05, "of used", f"used {used:.0f} MB")


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("build", type=pathlib.Path)
    arguments.add_argument("--settled", type=float, default=60, help="seconds before the comparison")
    options = arguments.parse_args()
    with VirtualDesktop() as desktop:
        os.environ.update(desktop.environment)
        desktop.start_window_manager()
        launched = Launched(desktop)
        desktop.start_panel()
        for row in rows(desktop, options.build.resolve(), options.settled, launched):
            print(row, flush=True)


if __name__ == "__main__":
    main()
