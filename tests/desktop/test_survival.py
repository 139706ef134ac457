"""What docs/reliability.md says of the running program under odd conditions."""

import subprocess

from tests.desktop.desktop_case import PROGRAM, DesktopCase, Orvane


class Survival(DesktopCase):
    panel = notifications = False

    def start_through_shell(self, line):
        """The program as `line` starts it, where $0 stands for it."""
        orvane = Orvane(self.desktop, "sh", self.session, options=["-c", line, str(PROGRAM)])
        self.addCleanup(orvane.stop)
        return orvane

    def test_absurd_limits_are_one_line(self):
        for limit in ("--fsize=0", "--nofile=12", f"--stack={1 << 47}"):  # no thread gets the last
            with self.subTest(limit):
                done = subprocess.run(["prlimit", limit, PROGRAM], env=self.desktop.environment,
                                      cwd=self.desktop.folder, capture_output=True, text=True,
                                      timeout=20, check=False)
                self.assertEqual((done.returncode, done.stdout), (1, ""))
                self.assertRegex(done.stderr, r"\Aorvane: .*\n\Z")

    def test_closed_standard_streams_take_no_harm_from_printed_lines(self):
        orvane = self.start_through_shell('exec "$0" --show <&- >&- 2>&-')
        self.wait_for("window", 10, lambda: "Orvane" in self.client_windows())
        self.assertEqual(orvane.stop(), 0)
