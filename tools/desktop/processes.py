"""Starting programs so that none outlives us, and ending all of them."""

import ctypes
import os
import pathlib
import signal
import subprocess
import sys
import time

_PR_SET_PDEATHSIG, _PR_SET_CHILD_SUBREAPER = 1, 36
_libc = ctypes.CDLL(None, use_errno=True)


def adopt_orphans():
    """From now on whatever our children leave behind becomes our child, so that it can be ended."""
    _libc.prctl(_PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def run_alone():
    """Starts the tests again where no other process is to be seen, if the system lets us: what the
    user has running is none of a test's business."""
    if "ORVANE_ALONE" in os.environ:
        return
    unshare = ["unshare", "--pid", "--fork", "--mount-proc", "--kill-child"]
    if os.geteuid() != 0:
        unshare += ["--user", "--map-current-user", "--keep-caps"]
    possible = subprocess.run([*unshare, "true"], stderr=subprocess.DEVNULL, check=False)
    if possible.returncode == 0:
        os.environ["ORVANE_ALONE"] = "1"
        os.execvp("unshare", [*unshare, *sys.orig_argv])


def start(command, own_input=subprocess.DEVNULL, **options):
    """A child in a session of its own that the kernel ends when we die."""
    return subprocess.Popen(command, stdin=own_input, start_new_session=True,
                            preexec_fn=lambda: _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGTERM, 0, 0, 0),
                            **options)


def descendants(root):
    """The ids of all processes below `root`."""
    children = {}
    for entry in pathlib.Path("/proc").iterdir():
        if entry.name.isdigit():
            try:
                parent = int((entry / "stat").read_text().rpartition(")")[2].split()[1])
            except (OSError, IndexError, ValueError):
                continue
            children.setdefault(parent, []).append(int(entry.name))
    found, open_ends = [], [root]
    while open_ends:
        below = children.get(open_ends.pop(), [])
        found += below
        open_ends += below
    return found


def end_descendants(spared=(), patience=3.0):
    """Ends every process below this one but the spared: asks first, insists after `patience` seconds."""
    for end_signal, seconds in ((signal.SIGTERM, patience), (signal.SIGKILL, patience)):
        deadline = time.monotonic() + seconds
        _signal_all(end_signal, spared)
        while _others(spared) and time.monotonic() < deadline:
            _reap()
            time.sleep(0.02)
            if end_signal == signal.SIGTERM:
                _signal_all(end_signal, spared)  # those that started meanwhile


def _others(spared):
    return set(descendants(os.getpid())) - set(spared)


def _signal_all(number, spared):
    for process in _others(spared):
        try:
            os.kill(process, number)
        except ProcessLookupError:
            pass


def _reap():
    try:
        while os.waitpid(-1, os.WNOHANG)[0]:
            pass
    except ChildProcessError:
        pass


def wait_for(what, seconds, check, interval=0.05):
    """Polls until `check()` gives something true, and gives that; names `what` when it never does."""
    deadline = time.monotonic() + seconds
    while True:
        result = check()
        if result:
            return result
        if time.monotonic() > deadline:
            raise TimeoutError(f"no {what} within {seconds} s")
        time.sleep(interval)


def wait_until_still(what, seconds, place):
    """Polls until `place()` is the same three times, and gives that."""
    places = []

    def still():
        places.append(place())
        return len(places) > 2 and places[-1] == places[-2] == places[-3] and places[-1]

    return wait_for(what, seconds, still, 0.1)
