"""All that is shown, as assistive technology has it: popover, main window, list, details, dialogs."""

import re

from tests.desktop.window_case import WindowCase

CONTROLS = {"push button", "button", "toggle button", "page tab", "list item", "menu item",
            "check menu item", "text", "entry"}
CONTAINERS = {"frame", "menu bar", "page tab list", "list", "popup menu", "menu", "dialog", "tool bar",
              "chart", "alert"}
PRESSED = CONTROLS - {"text", "entry"}
LEVELS = {"dial", "progress bar", "level bar"}
SIZE = r"\d+\.\d+ GB"


class Accessibility(WindowCase):
    def shown(self):
        """(object, role, name, description) of all that is on screen."""
        found = []
        for node in self.seen.everything(self.orvane.pid):
            if self.seen.has_state(node, "showing"):
                found.append((node, node.get_role_name(), node.get_name(), node.get_description()))
        return found

    def faults(self, texts):
        shown = self.shown()
        told = [text for _, _, name, description in shown for text in (name, description)]
        faults = [f"not in the tree: {text}" for text in texts
                  if not any(re.search(f"(^|\\W){text}($|\\W)", name) for name in told)]
        for node, role, name, description in shown:
            actions = [node.get_action_name(index) for index in range(node.get_n_actions())]
            if role in CONTROLS | CONTAINERS | LEVELS and not name:
                faults.append(f"unnamed {role}")
            if role == "chart" and not re.search(r"lowest \d.*highest \d", description):
                faults.append(f"no summary of {name}: {description}")
            if "Press" in actions[1:] and actions[0] != "Press" or role in PRESSED and not actions:
                faults.append(f"{actions} of {role} {name}")
            if name in ("Show Details", "Hide Details") and (
                    self.seen.has_state(node, "checked") != name.startswith("Hide")):
                faults.append(f"no state of {name}")
            if role in LEVELS and not 0 < node.get_current_value() <= node.get_maximum_value() == 100:
                faults.append(f"no level: {name}")
        focused = [name for node, _, name, _ in shown if self.seen.has_state(node, "focused")]
        return faults + ([f"focus on {focused}"] if len(focused) > 1 else [])

    def check(self, *texts):
        """What was done before may still be moving."""
        try:
            self.wait_for("whole tree", 6, lambda: not self.faults(texts))
        except TimeoutError:
            self.fail("\n".join(self.faults(texts)))

    def focused(self):
        return [(role, name) for node, role, name, _ in self.shown()
                if self.seen.has_state(node, "focused")]

    def test_popover_and_boost(self):
        self.pointer.key("Control_L", "w")  # its main window has the same names
        self.wait_until_gone(self.TAB)
        self.open_popover()
        self.check("Memory Usage", f"{SIZE} / {SIZE}", r"\d+%")
        self.press("Show Details")
        self.check("Hide Details", *(f"{row}: {SIZE}" for row in
                                     ("Free", "Active", "Inactive", "Wired", "Compressed")))
        with self.seen.shows_of("alert") as announced:
            self.press("Boost Memory")
            self.wait_for("announcement", 5, lambda: "Boosting..." in announced())
        self.check("Boosting...")
        self.wait_for_control("Boost Memory", 60)
        self.press("Settings")
        self.check("Show Window", "Quit Orvane")

    def test_main_window(self):
        self.check("Overview", "Processes", r"\d+\.\d%", "Used", f"Total {SIZE}", "Boost Memory")
        self.tab_to("Overview")
        self.assertEqual(self.focused(), [("page tab", "Overview")])
        self.press("Show Details")
        self.check("Hide Details", "Memory Usage History", "100%", "25%")
        self.pointer.key("Right")
        self.wait_for("focus on the other tab", 3,
                      lambda: self.focused() == [("page tab", "Processes")])
        self.pointer.key("Left")
        for name, text in (("About Orvane", "Version"), ("Check for Updates...", "Updates come")):
            self.choose("Orvane", name)
            self.check(text, "OK")
            self.press("OK")
            self.wait_until_gone("OK")

    def test_list_details_and_question(self):
        self.press("Processes")
        self.wait_for("an application", 15, lambda: self.seen.of_role(self.orvane.pid, "list item"))
        self.press("Sort by")
        self.check("Current Memory", "Peak Memory")
        self.pointer.key("Escape")
        self.wait_until_gone("Peak Memory")
        row, name = self.seen.of_role(self.orvane.pid, "list item")[0]
        self.seen.press(row)
        name = re.escape(name.rpartition(",")[0])
        self.wait_for_control("Kill Process")
        self.check("Top Memory Consumers", name, "Cancel")
        self.press("Kill Process")
        self.wait_for_control("Kill")
        self.check("Kill Process\\?", f"kill '\u2068{name}\u2069'")
        self.pointer.key("Escape")
        self.wait_until_gone("Kill")
        self.press("Cancel")
        self.wait_until_gone("Kill Process")
        info = self.wait_for("details", 10, lambda: next(
            (node for node, called in self.seen.of_role(self.orvane.pid, "push button")
             if called.startswith("Show details of")), None))
        self.seen.press(info)
        self.check("PID: \\d+", "Memory Usage Over Time", r"Current: \d+ MB", "Memory Details",
                   r"Physical Memory: \d+\.\d MB", "Active Threads: \\d+", "Application Location", r"/\S+")

    def test_speaks_german(self):
        self.orvane.stop()
        self.orvane = self.start_orvane(environment={"LANGUAGE": "de", "LC_ALL": "de_DE.UTF-8"})
        self.wait_for_control("Prozesse", 10)
        self.check("Übersicht", "Speicher freigeben", "Mehr anzeigen")
        self.orvane.item().activate()
        self.check("Speichernutzung", "Einstellungen")
        self.picture("german")
