"""The man page says what --help says: check_man_page.py PROGRAM MAN_PAGE"""

import pathlib
import re
import subprocess
import sys


def told(program, option):
    return subprocess.run([program, option], capture_output=True, text=True, check=True).stdout


def described(text, pattern):
    """[(option, explanation)] in their order."""
    return re.findall(pattern, text, re.MULTILINE)


def main(program, page):
    text = pathlib.Path(page).read_text().replace("\\-", "-")
    usage = told(program, "--help")
    description = " ".join(usage.split("\n\n")[1].split())
    problems = []
    if described(text, r"^\.TP\n\.B (--\w+)\n(.*)$") != described(usage, r"^  (--\w+) +(.*)$"):
        problems.append("its options are not those of --help")
    if description not in " ".join(text.split()):
        problems.append("its description lacks that of --help")
    if f'"{told(program, "--version").strip()}"' not in text.splitlines()[0]:
        problems.append("its version is not that of --version")
    for problem in problems:
        print(f"{page}: {problem}")
    return bool(problems)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
