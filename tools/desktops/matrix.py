"""The installed package on whole desktops: matrix.py PACKAGES PICTURES [NAME...]

PACKAGES holds orvane_*_SUITE.deb. Prints a row for each desktop with what was seen there; what went
wrong is a row, too, and the status 1.
"""

import json
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2]))
from tools.desktops.whole import WHOLE  # noqa: E402

TRIAL = pathlib.Path(__file__).with_name("trial.py")
LIMIT = 240  # s, of one trial
CLICKS = {"menu": 'menu; "Show Details" there', "popover": "popover"}


def row(title, seen):
    place = {"item": "at the item", "middle": "mid-screen"}.get(
        seen["place"] if isinstance(seen["place"], str) else None, f"around {seen['place']}")
    ways = {"elsewhere": "a click elsewhere", "Escape": "Escape"}
    closes = " and ".join(ways[way] for way in seen["closes"]) or "nothing"
    width, height = seen["item"][2:]
    return (f"| {title} | {width} x {height} | {CLICKS[seen['click']]} | {place}; "
            f"{closes} closes it |")


def trial(name, pictures):
    tried = subprocess.run([sys.executable, TRIAL, name, "/usr/bin/orvane", pictures],
                           capture_output=True, text=True, timeout=LIMIT, check=False)
    if tried.returncode != 0:
        raise RuntimeError(tried.stderr.strip().rpartition("\n")[2])
    return json.loads(tried.stdout)


def main(packages, pictures, *names):
    print("| desktop | item, pixels | click | popover |\n|---|---|---|---|", flush=True)
    failed = False
    for name in names or WHOLE:
        whole = WHOLE[name]
        title = f"{whole.title} ({whole.suite})"
        try:
            whole.install(next(pathlib.Path(packages).glob(f"orvane_*_{whole.suite}.deb")))
            print(row(title, trial(name, pictures)), flush=True)
        except (RuntimeError, subprocess.TimeoutExpired) as error:
            print(f"| {title} | not seen: {error} | | |", flush=True)
            failed = True
    return failed


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
