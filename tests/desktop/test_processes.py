"""The list of applications of the running program, with real ones in it."""

from tests.desktop.window_case import WindowCase

from tools.desktop.processes import run_alone

# With enough lines to scroll back to that it is high up in the list.
TERMINAL = ["xterm", "-geometry", "40x10+0+600", "-sl", "60000", "-e", "sh", "-c",
            "seq 60000; exec sleep 600"]
setUpModule = run_alone


class Processes(WindowCase):
    def setUp(self):
        self.terminals = [self.desktop.start_program(TERMINAL) for _ in range(2)]
        for terminal in self.terminals:
            self.addCleanup(terminal.wait)
            self.addCleanup(terminal.kill)
        super().setUp()
        self.press("Processes")
        self.wait_for("terminals in the list", 30, lambda: len(self.rows("XTerm")) == 2)
        self.focus_window()  # theirs may have come later

    def rows(self, name=""):
        """The list's rows of an application, from the top."""
        return [row for row, called in self.seen.of_role(self.orvane.pid, "list item")
                if called.startswith(name)]

    def selected(self):
        return [index for index, row in enumerate(self.rows())
                if self.seen.has_state(row, "selected")]

    def select_terminal(self):
        """By key, from the top; the applications above depend on the desktop's own."""
        for index in range(10):
            self.pointer.key("Down")
            self.wait_for("next selection", 3, lambda: self.selected() == [index])
            if self.rows()[index].get_name().startswith("XTerm"):
                return self.wait_for_control("Kill Process")
        return self.fail(f"no terminal among {self.seen.names(self.orvane.pid)}")

    def is_active(self, window):
        node = self.seen.find(self.orvane.pid, window, role="frame")
        return node and self.seen.has_state(node, "active")

    def test_kill_by_key_and_cancel(self):
        self.select_terminal()
        self.picture("selected")
        self.pointer.key("Return")
        self.wait_for_control("Kill")
        self.picture("question")
        self.click("Overview")  # the window below gives the keyboard back
        self.wait_for("keyboard in the question", 3, lambda: self.is_active("Kill Process?"))
        self.pointer.key("Return")  # on Cancel, for safety
        self.wait_until_gone("Kill")
        self.assertEqual([terminal.poll() for terminal in self.terminals], [None, None])

        self.wait_for("keyboard in the list", 3, lambda: self.is_active("Orvane"))
        self.pointer.key("Return")
        self.wait_for_control("Kill")
        self.pointer.key("Tab")
        self.wait_for("keyboard on Kill", 3, lambda: self.has_keyboard("Kill"))
        self.pointer.key("Return")
        self.wait_for("end of one terminal", 3, lambda: any(
            terminal.poll() == -9 for terminal in self.terminals))
        self.wait_until_gone("Kill Process")
        self.wait_for("shorter list", 8, lambda: len(self.rows("XTerm")) == 1)
        self.assertEqual(sum(terminal.poll() is None for terminal in self.terminals), 1)

    def test_file_manager_shows_the_program(self):
        manager = self.desktop.start_program(["thunar", "--daemon"])
        self.addCleanup(manager.wait)
        self.addCleanup(manager.kill)
        self.wait_for("file manager", 10,
                      lambda: self.session.has_owner("org.freedesktop.FileManager1"))
        self.press("Show details of XTerm")
        self.wait_for_control("Reveal")
        self.picture("details")
        self.click("Reveal")
        # Its folder alone would be what comes when the file manager doesn't answer.
        self.wait_for("selected program", 10, lambda: any(
            text.startswith('"xterm"') for _, text in self.seen.of_role(manager.pid, "status bar")))
        self.wait_until_gone("Reveal")
        self.picture("file-manager")
