#!/usr/bin/env python3
"""Which faults in core/ do its tests notice?

Each mutant is core/ with one fault: a constant, a comparison, an operator, a condition or a text
changed, or one step dropped or swapped with the next. The core tests are built and run against it
on a copy in build/mutants. What still passes is printed: a case is missing there. Mutants that
don't compile don't count.
"""

import argparse
import collections
import concurrent.futures
import os
import pathlib
import queue
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
COPIED = ("CMakeLists.txt", "CMakePresets.json", "cmake", "core", "platform", "testing", "tests")
TEST_SECONDS, TEST_BYTES = 20, 2 << 30

# What no test can notice, as patterns of the file, the line and the change, and the reason.
EQUIVALENT = (
    ("memory_boost.h", "ClaimCeiling", "2147483649", "the same number of words"),
    ("memory_history.h", "= 0", "0 -> 1", "every point sets it"),
    ("memory_stats.h", "compressed = 0", "0 -> 1", "every sample sets it"),
    ("process_info.h", "(memoryUsage|pid|threadCount|Memory) = 0", "0 -> 1", "collect() sets it"),
    ("uuid.h", "_ = 0", "0 -> 1", "random() sets it"),
    ("memory_manager.cpp", "resize", "> -> >=", "ten are cut to ten"),
    ("memory_manager.cpp", "selected", "-> services_.mainQueue", "the block runs after both"),
    ("memory_manager.cpp", "lastBoost", "-> performBoost", "the block runs after both"),
    ("memory_manager.cpp", "post", "-> scheduleBoostCheck", "the check comes a second later"),
    ("number_format.cpp", "352", "-> 35", "nothing shows so many digits"),
    ("observable.cpp", "erase_if", "without", "an ended observation is silent all the same"),
    ("pressure_alert.cpp", "message", "-> alert.notificationBody", "two separate texts"),
    ("collection.cpp", "add", "-> records.push_back", "a record moved from keeps its numbers"),
    ("collection.cpp", "figures.virtual", "0 -> 1", "both are below any size listed"),
    ("process_memory_history.cpp", "a.memoryMB", "< -> <=", "of equal figures either will do"),
    ("uuid.cpp", "digits = ", "~", "no digit has this index"),
    ("(uuid|utf8).cpp", "reserve", "", "it is room for the text, not the text"),
)

OPERATORS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
    "==": ("!=",), "!=": ("==",), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("/",),
    "+=": ("-=",), "&&": ("||",), "||": ("&&",), "&": ("|",), "|": ("&",), "<<": (">>",),
    ">>": ("<<",), "&=": ("|=",), "?": ("&& false ?", "|| true ?"),
}
WORDS = {
    "true": "false", "false": "true", "++": "--", "--": "++", "front": "back", "min": "max",
    "min_element": "max_element", "max_element": "min_element", "stable_sort": "sort",
    "std::abs": "", "megabytes": "static_cast<double>",
    "ProcessSortMode::current": "ProcessSortMode::peak",
    "ProcessSortMode::average": "ProcessSortMode::current",
    "ProcessSortMode::peak": "ProcessSortMode::average",
    "ActivationPolicy::regular": "ActivationPolicy::accessory",
}
TOKEN = re.compile(r"""//[^\n]*|^\#[^\n]*|'(?:\\.|[^'\\\n])'|(?P<text>"(?:\\.|[^"\\\n])*")|
    (?P<number>(?<![\w.])(?:0[xX][\dA-Fa-f']+|\d[\d']*(?:\.\d+)?)(?=(?:ULL|U)?(?![\w.])))""",
                   re.VERBOSE | re.MULTILINE)
DECLARATION = re.compile(r"(?:(?:const|constexpr|static|thread_local|auto|using)\b|"
                         r"(?:[\w:]+(?:<[^;=]*>)?[&*\s]+)+\w+\s*[=;{(])")


class Source:
    """A file's faults, each as (start, end, replacement)."""

    def __init__(self, text):
        self.text = text
        self.faults = []
        self.code = TOKEN.sub(self._mask, text)
        self._operators()
        self._conditions()
        self._initializers()
        self._statements()

    def _mask(self, match):
        """Blanks comments and texts, and notes what numbers and texts become."""
        token, start, end = match.group(), *match.span()
        if match["number"]:
            digits = token.replace("'", "")
            number = float(digits) if "." in digits else int(digits, 0)
            for other in (number + 1, number - 1) if number > 0 else (number + 1,):
                self.faults.append((start, end, str(other)))
            return token.replace("'", "0")
        if match["text"]:
            self.faults.append((start, end, token[:-1] + '~"'))
            return '"' + "_" * (len(token) - 2) + '"'
        return re.sub(r"[^\n]", " ", token)

    def _operators(self):
        for match in re.finditer(r"(?<=\s)[-<>=!+*/%&|?]{1,2}(?=\s)", self.code):
            for other in OPERATORS.get(match.group(), ()):
                self.faults.append((*match.span(), other))
        names = "|".join(re.escape(word) for word in WORDS)
        for match in re.finditer(rf"\+\+|--|(?<!\w)(?<!double )(?:{names})(?![\w:])", self.code):
            self.faults.append((*match.span(), WORDS[match.group()]))
        self.faults += [(*match.span(), "") for match in re.finditer(r"!(?=[\w(])", self.code)]

    def _closing(self, start):
        """Where the bracket ends that opens at `start`."""
        depth = 0
        for index in range(start, len(self.code)):
            depth += {"(": 1, "{": 1, "[": 1, ")": -1, "}": -1, "]": -1}.get(self.code[index], 0)
            if depth == 0:
                return index
        raise ValueError("a bracket stays open")

    def _conditions(self):
        for match in re.finditer(r"\bif \(", self.code):
            end = self._closing(match.end() - 1)
            start = max(match.end(), self.code.rfind(";", match.end(), end) + 1)
            if not self.code[start:end].startswith("const "):
                self.faults += [(start, end, " true"), (start, end, " false")]

    def _initializers(self):
        """Drops the designated initializers one by one."""
        for match in re.finditer(r"(?<=[{,\s])\.\w+ = ", self.code):
            end = match.end()
            while self.code[end] not in ",}":
                end = self._closing(end) + 1 if self.code[end] in "({[" else end + 1
            self.faults.append((match.start(), end + (self.code[end] == ","), ""))

    def _statements(self):
        """Drops the steps of functions one by one, and swaps neighbours."""
        open_brackets = []  # [is a function's block, start of the statement, the step before]
        for index, char in enumerate(self.code):
            if char in "({[":
                before = self.code[:index].rstrip()
                is_block = char == "{" and bool(re.search(r"(?:[)\]]|\b(?:const|else))$", before))
                open_brackets.append([is_block, index + 1, None])
            elif char in ")}]":
                closed_block = open_brackets.pop()[0]
                if closed_block and open_brackets and open_brackets[-1][0]:
                    open_brackets[-1][1:] = index + 1, None
            elif char == ";" and open_brackets and open_brackets[-1][0]:
                _, start, previous = open_brackets[-1]
                start += len(self.code[start:index]) - len(self.code[start:index].lstrip())
                open_brackets[-1][1:] = index + 1, self._step(start, index + 1, previous)

    def _step(self, start, end, previous):
        step = self.code[start:end]
        is_jump = step in ("return;", "break;", "continue;")
        covered = step.startswith("if (") and not step.startswith("if (const ")
        if not is_jump and (re.match(r"(?:return|else|case)\b", step) or
                            DECLARATION.match(step) and not step.startswith("if (")):
            return None
        if not covered:
            self.faults.append((start, end, ";"))
        if previous and not is_jump:
            first, between = self.text[previous[0]:previous[1]], self.text[previous[1]:start]
            self.faults.append((previous[0], end, self.text[start:end] + between + first))
        return None if is_jump else (start, end)


class Mutant:
    def __init__(self, name, text, fault):
        start, end, replacement = fault
        self.name, self.original = name, text
        self.text = text[:start] + replacement + text[end:]
        self.number = text.count("\n", 0, start) + 1
        self.line = text.splitlines()[self.number - 1].strip()
        was, now = (" ".join(part.split()) for part in (text[start:end], replacement))
        self.change = f"{was} -> {now}" if now not in ("", ";") else f"without {was}"

    def is_equivalent(self):
        return any(re.search(name, self.name) and re.search(piece, self.line) and
                   re.search(change, self.change) for name, piece, change, _ in EQUIVALENT)


class Copy:
    """A copy of what core/ and its tests need, with a build of its own."""

    def __init__(self, number):
        self.root = ROOT / "build" / "mutants" / str(number)
        self.build = self.root / "build" / "core"
        self.environment = dict(os.environ, CCACHE_BASEDIR=str(self.root))
        shutil.rmtree(self.root, ignore_errors=True)
        self.root.mkdir(parents=True)
        subprocess.run(["cp", "-r", *(ROOT / name for name in COPIED), self.root], check=True)
        self._run("cmake", "--preset", "core", "-DCMAKE_CXX_FLAGS=-w",
                  "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST").check_returncode()
        if self.outcome() != "survived":
            sys.exit("the core tests fail as they are")

    def _run(self, *command, **options):
        return subprocess.run(command, cwd=self.root, env=self.environment, check=False,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)

    def outcome(self):
        if self._run("ninja", "-C", str(self.build), "-j1", "core_tests").returncode != 0:
            return "no program"
        try:
            tests = self._run("prlimit", f"--as={TEST_BYTES}", self.build / "tests/unit/core_tests",
                              timeout=TEST_SECONDS)
        except subprocess.TimeoutExpired:
            return "noticed"
        return "survived" if tests.returncode == 0 else "noticed"

    def test(self, mutant):
        file = self.root / mutant.name
        file.write_text(mutant.text)
        outcome = self.outcome()
        file.write_text(mutant.original)
        return outcome


def mutants(name):
    text = (ROOT / name).read_text()
    return [Mutant(name, text, fault) for fault in sorted(set(Source(text).faults))]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--jobs", type=int, default=2, metavar="N")
    parser.add_argument("--only", metavar="FILE", action="append", help="as core/utf8.cpp")
    options = parser.parse_args()
    files = sorted(file.relative_to(ROOT).as_posix() for file in (ROOT / "core").glob("*.[ch]*"))
    every = [mutant for name in options.only or files for mutant in mutants(name)]
    wanted = [mutant for mutant in every if not mutant.is_equivalent()]
    copies = queue.SimpleQueue()
    for number in range(options.jobs):
        copies.put(Copy(number))

    def test(mutant):
        copy = copies.get()
        try:
            return copy.test(mutant)
        finally:
            copies.put(copy)

    counts = collections.Counter()
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for mutant, outcome in zip(wanted, pool.map(test, wanted)):
            counts[outcome] += 1
            if outcome == "survived":
                print(f"{mutant.name}:{mutant.number}: {mutant.change}", flush=True)
    noticed, tested = counts["noticed"], counts["noticed"] + counts["survived"]
    print(f"{noticed} of {tested} mutants noticed ({100 * noticed / max(tested, 1):.1f} %); "
          f"{counts['no program']} don't compile, {len(every) - len(wanted)} are equivalent")
    return 0 if noticed >= 0.9 * tested else 1


if __name__ == "__main__":
    sys.exit(main())
