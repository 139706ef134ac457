"""What a process costs, read from /proc."""

import dataclasses
import os
import pathlib


def memory(process):
    """(anonymous, resident) memory in MB (2^20 bytes)."""
    return all_memory(process)[:2]


def all_memory(process):
    """(anonymous, resident, proportional) memory in MB."""
    figures = _rollup(process)
    return figures["Anonymous"], figures["Rss"], figures["Pss"]


def proportional(process):
    """Memory in MB, by the process' own part of what it shares; 0 when it has just ended."""
    try:
        return _rollup(process)["Pss"]
    except OSError:
        return 0


def _rollup(process):
    figures = {}
    for line in pathlib.Path(f"/proc/{process}/smaps_rollup").read_text().splitlines()[1:]:
        key, _, value = line.partition(":")
        figures[key] = int(value.split()[0]) / 1024
    return figures


def cpu_seconds(process):
    """Processor time of all threads there are, exact to the nanosecond."""
    return sum(int(figures.split()[0]) for figures in _of_threads(process, "schedstat")) / 1e9


def process_seconds(process):
    """Processor time of all threads so far, also of those that have ended, to a hundredth of a second."""
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def main_thread_seconds(process):
    """Processor time of the main thread so far."""
    return int(pathlib.Path(f"/proc/{process}/task/{process}/schedstat").read_text().split()[0]) / 1e9


def wake_ups(process):
    """How often a thread of the process has gone to sleep so far, to be woken for the next work."""
    return sum(int(line.split()[1]) for status in _of_threads(process, "status")
               for line in status.splitlines() if line.startswith("voluntary_ctxt_switches"))


def _of_threads(process, file):
    for thread in pathlib.Path(f"/proc/{process}/task").iterdir():
        try:
            yield (thread / file).read_text()
        except OSError:
            continue  # it has just ended


HEAD = (f"{'':<46}{'figure':>9} {'':<6}{'bound':>7}       {'empty window':>12}{'ratio':>7}")


@dataclasses.dataclass
class Row:
    """One line of the table; its floor is the same figure of an empty window of Qt Quick."""
    what: str
    value: float
    bound: float
    unit: str
    note: str = ""
    floor: float | None = None

    def __str__(self):
        verdict = "PASS" if self.value <= self.bound else "over"
        floor = "" if self.floor is None else f"{self.floor:.2f}"
        ratio = f"{self.value / self.floor:.2f}" if self.floor else ""
        return (f"{self.what:<46}{self.value:>9.3f} {self.unit:<6}{self.bound:>7.2f}  {verdict} "
                f"{floor:>12}{ratio:>7}  {self.note}".rstrip())
