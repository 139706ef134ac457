"""The program's options, and what further starts and starts without a display come to."""

import os
import signal
import socket
import subprocess

from tests.desktop.desktop_case import PROGRAM, VERSION, DesktopCase

NOTHING = {"DISPLAY": "", "WAYLAND_DISPLAY": "", "QT_QPA_PLATFORM": ""}


class CommandLine(DesktopCase):
    def start(self, *options, **environment):
        """A further start: its exit status, and what it printed on either stream."""
        own = {name: value for name, value in
               (self.desktop.environment | environment).items() if value != ""}
        done = subprocess.run([PROGRAM, *options], env=own, cwd=self.desktop.folder,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              timeout=20, check=False)
        return done.returncode, done.stdout, done.stderr

    def test_texts_need_no_display(self):
        self.assertEqual(self.start("--version", **NOTHING), (0, f"Orvane {VERSION}\n", ""))
        self.assertEqual(self.start("--fast", **NOTHING),
                         (2, "", "orvane: unknown option '--fast', see orvane --help\n"))
        self.assertEqual(self.start("--quit"), (1, "", "orvane: it doesn't run\n"))

    def test_no_display_is_one_line(self):
        forms = ({}, {"DISPLAY": ":9876"}, {"DISPLAY": "no such screen"},
                 {"WAYLAND_DISPLAY": "wayland-77"}, {"QT_QPA_PLATFORM": "wayland"},
                 {"QT_QPA_PLATFORM": "nothing"},
                 {"WAYLAND_DISPLAY": "wayland-77", "QT_QPA_PLATFORM": "xcb"})
        for form in forms:
            with self.subTest(form):
                status, text, errors = self.start(**(NOTHING | form))
                self.assertEqual((status, text), (1, ""), errors)
                self.assertRegex(errors, r"\Aorvane: no display can be opened \(.*\)\n\Z")

    def test_plasma_on_wayland_is_used_through_xwayland_where_that_answers(self):
        with socket.socket(socket.AF_UNIX) as silent, socket.socket(socket.AF_UNIX) as compositor:
            number = 60000 + os.getpid() % 5000
            silent.bind(f"\0/tmp/.X11-unix/X{number}")
            compositor.bind(str(self.desktop.folder / "runtime/wayland-5"))
            for waiting in (silent, compositor):
                waiting.listen(8)
            plasma = {"XDG_CURRENT_DESKTOP": "KDE", "XDG_SESSION_TYPE": "wayland"}
            orvane = self.start_orvane(environment=plasma | {"WAYLAND_DISPLAY": "wayland-5"})
            orvane.wait_for_item(5)
            status, _, errors = self.start(**plasma, WAYLAND_DISPLAY="wayland-77",
                                           DISPLAY=f":{number}", QT_QPA_PLATFORM="")
            self.assertEqual(status, 1)
            self.assertIn("orvane: ", errors)

    def test_options_reach_the_running_instance(self):
        orvane = self.start_orvane(options=["--hidden"], first_launch=True)
        orvane.wait_for_item()
        self.assertNotIn("Orvane", self.client_windows())
        self.assertEqual(self.start("--hidden"), (0, "", ""))
        for option in ("--popover", "--show"):
            before = self.desktop.screen.everything()
            self.assertEqual(self.start(option), (0, "", ""))
            self.wait_for(option, 10, lambda: self.desktop.screen.everything() != before)
        self.wait_for("window", 5, lambda: "Orvane" in self.client_windows())
        self.assertEqual(self.start("--quit"), (0, "", ""))
        self.assertEqual(orvane.process.wait(timeout=5), 0)

    def test_no_start_is_lost_and_none_runs_beside_a_stopped_one(self):
        first = self.start_orvane()
        first.wait_for_item()
        first.process.send_signal(signal.SIGSTOP)
        starts = [self.start_orvane(home=first.home) for _ in range(8)]
        for start in starts:
            self.assertEqual(start.process.wait(timeout=10), 1)
        status, _, errors = self.start()
        self.assertEqual((status, errors), (
            1, f"orvane: it runs already as process {first.pid}, which is stopped: "
               f"kill -CONT {first.pid}\n"))
        first.process.send_signal(signal.SIGCONT)
        running = first
        for _ in range(12):
            running.process.terminate()
            following = self.start_orvane(home=first.home)
            running.process.wait(timeout=5)
            following.wait_for_item()
            running = following
