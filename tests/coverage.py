#!/usr/bin/env python3
"""coverage.py BUILD REPORT - what of src/ and include/ the tests of a build with --coverage have run.

Prints lines, branches and functions of every file, every folder and all together, and below that what no test has run; the numbers of
each line go into the file REPORT. The status is 1 when a goal is missed.

What counts: a function is what begins in one line, however many functions the compiler makes of it (the forms of a constructor, the
instances of a template). A branch is a way on from a place of the program where there are several. The two ways on from a call,
with an exception and without, are none; so are those on lines without code of ours, such as closing brackets. Lines whose comment
says "not reached" are left out. Instances of a template count as one where they have the same branches. gcov's own report is read,
because the text that other tools read does not tell which branches of what was never run are those of exceptions.
"""
import collections
import json
import os
import pathlib
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

GOALS = {"lines": 98.0, "branches": 95.0, "functions": 100.0}
FOLDERS = ("src/", "include/")
LEFT_OUT = re.compile(r"[\s{}();]*(?://.*)?$|.*// not reached")


def place(name, folder):
    """The name of a source beginning here; gcov tells it so, or beginning where the compiler ran."""
    seen_from_here = os.path.relpath(os.path.join(folder, name))
    return seen_from_here if os.path.exists(seen_from_here) else name


def reports(build):
    """What gcov tells of each source in each object file: its name and the counters."""
    def read(counters):
        command = ["gcov", "--json-format", "--stdout", "--branch-probabilities", "--relative-only", "--source-prefix", os.getcwd(), counters]
        result = subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return [(place(file["file"], told["current_working_directory"]), file)
                for told in map(json.loads, result.stdout.splitlines()) for file in told["files"]]

    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for files in pool.map(read, sorted(str(path) for path in pathlib.Path(build).rglob("*.gcda"))):
            yield from files


def decisions(branches):
    """How often each branch was taken, without those of calls: such a pair has the way of an exception in it."""
    left = []
    for branch in branches:
        if branch["throw"] and left and left[-1]["fallthrough"]:
            left.pop()
        elif not branch["throw"]:
            left.append(branch)
    return [branch["count"] for branch in left]


class File:
    """The counters of a source, of all object files that it is in."""

    def __init__(self, name):
        self.text = pathlib.Path(name).read_text(encoding="utf-8").split("\n")
        self.lines = collections.Counter()
        self.functions = collections.Counter()
        self.branches = {}  # of a line and a number of branches in it: the counts

    def add(self, report):
        for function in report["functions"]:
            if not LEFT_OUT.match(self.text[function["start_line"] - 1]):
                self.functions[function["start_line"]] += function["execution_count"]
        for line in report["lines"]:
            number = line["line_number"]
            if LEFT_OUT.match(self.text[number - 1]):
                continue
            self.lines[number] += max(0, line["count"])  # threads that count at once can make a count that is worked out negative
            counts = decisions(line["branches"])
            so_far = self.branches.setdefault((number, len(counts)), [0] * len(counts))
            self.branches[number, len(counts)] = [a + max(0, b) for a, b in zip(so_far, counts)]

    def goals(self):
        """(run, all) for each of the goals."""
        branches = [count for counts in self.branches.values() for count in counts]
        return {
            "lines": (sum(count > 0 for count in self.lines.values()), len(self.lines)),
            "branches": (sum(count > 0 for count in branches), len(branches)),
            "functions": (sum(count > 0 for count in self.functions.values()), len(self.functions)),
        }

    def missed(self):
        """The lines that have something that was not run, and what."""
        for number in sorted(self.lines.keys() | self.functions.keys()):
            if self.functions.get(number) == 0:
                yield number, "function"
            elif self.lines.get(number) == 0:
                yield number, "line"
            else:
                ways = [count for (line, _), counts in self.branches.items() if line == number for count in counts]
                if 0 in ways:
                    yield number, f"{ways.count(0)} of {len(ways)} branches"


def collect(build):
    files = {}
    for name, report in reports(build):
        if name.startswith(FOLDERS):
            files.setdefault(name, File(name)).add(report)
    return files


def percentage(run, all_of_them):
    return 100.0 * run / all_of_them if all_of_them else 100.0


def row(name, numbers):
    cells = [f"{run:6}/{all_of_them:<6}{percentage(run, all_of_them):6.1f}%" for run, all_of_them in numbers.values()]
    return f"{name:44}" + "".join(f"{cell:>22}" for cell in cells)


def sums(numbers):
    return {goal: tuple(map(sum, zip(*(one[goal] for one in numbers)))) for goal in GOALS}


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: coverage.py BUILD REPORT")
    files = collect(sys.argv[1])
    numbers = {name: file.goals() for name, file in sorted(files.items())}
    folders = collections.defaultdict(list)
    for name, one in numbers.items():
        folders[os.path.dirname(name)].append(one)
    total = sums(numbers.values())

    print(f"{'':44}" + "".join(f"{goal:>22}" for goal in GOALS))
    for name, one in [*numbers.items(), *((folder, sums(ones)) for folder, ones in folders.items()), ("all", total)]:
        print(row(name, one))
    print("\nnot run:")
    for name, file in sorted(files.items()):
        for number, what in file.missed():
            print(f"  {name}:{number}: {what}: {file.text[number - 1].strip()}")
    pathlib.Path(sys.argv[2]).write_text(json.dumps({name: file.lines for name, file in files.items()}), encoding="utf-8")

    misses = [goal for goal in GOALS if percentage(*total[goal]) < GOALS[goal]]
    for goal in misses:
        print(f"the goal is missed: {GOALS[goal]:.0f}% of {goal}")
    return 1 if misses else 0


sys.exit(main())
