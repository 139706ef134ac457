"""No file grows past what can be read in one go, and no folder past what can be looked over."""

import pathlib
import sys

LIMITS = {".cpp": 400, ".h": 400, ".py": 400, ".sh": 400, ".qml": 250}
MOST_UNITS = 20  # of a folder; a .cpp with its .h is one, and tests may be more
UNITS = {".cpp", ".h", ".qml", ".py", ".sh"}
FOLDERS = ("core", "platform", "ui", "app", "preview", "tests", "bench", "fuzz", "tools")


def too_long(name, lines):
    """What is wrong with a file of so many lines, or None."""
    limit = LIMITS.get(pathlib.PurePath(name).suffix)
    if limit is not None and lines > limit:
        return f"{name}: {lines} lines, at most {limit}"
    return None


def too_full(folder, names):
    """What is wrong with a folder that holds files of these names, or None."""
    units = {pathlib.PurePath(name).stem for name in names if pathlib.PurePath(name).suffix in UNITS}
    if len(units) > MOST_UNITS and not folder.startswith("tests"):
        return f"{folder}: {len(units)} units, at most {MOST_UNITS}"
    return None


def main(root):
    found = [too_full(folder.relative_to(root).as_posix(), [file.name for file in folder.iterdir()])
             for layer in FOLDERS for folder in [root / layer, *(root / layer).rglob("*")]
             if folder.is_dir()]
    for folder in FOLDERS:
        for file in sorted((root / folder).rglob("*")):
            if file.suffix in LIMITS:
                found.append(too_long(file.relative_to(root).as_posix(),
                                      len(file.read_text().splitlines())))
    found = [text for text in found if text]
    print("\n".join(found) if found else "no file is too long and no folder too full")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
