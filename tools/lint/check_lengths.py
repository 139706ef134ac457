"""No file grows past what can be read in one go."""

import pathlib
import sys

LIMITS = {".cpp": 400, ".h": 400, ".py": 400, ".sh": 400, ".qml": 250}
FOLDERS = ("core", "platform", "ui", "app", "preview", "tests", "bench", "tools")


def too_long(name, lines):
    """What is wrong with a file of so many lines, or None."""
    limit = LIMITS.get(pathlib.PurePath(name).suffix)
    if limit is not None and lines > limit:
        return f"{name}: {lines} lines, at most {limit}"
    return None


def main(root):
    found = []
    for folder in FOLDERS:
        for file in sorted((root / folder).rglob("*")):
            if file.suffix in LIMITS:
                found.append(too_long(file.relative_to(root).as_posix(),
                                      len(file.read_text().splitlines())))
    found = [text for text in found if text]
    print("\n".join(found) if found else "no file is too long")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
