#!/usr/bin/env python3
"""coverage.py BUILD REPORT - what of src/ and include/ the tests of a build with --coverage have run.

Prints lines, branches and functions of every file and of all together, and below that the lines that no test has run; gcovr's whole
report goes into the file REPORT. The edges of the control flow that only exceptions take, and those that the compiler adds without any
code of ours, are no branches here, by gcovr's own options. The status is 1 when a goal is missed.
"""
import json
import pathlib
import subprocess
import sys

GOALS = {"lines": 98.0, "branches": 95.0, "functions": 100.0}


def collect(build, report):
    """Lets gcovr read the counters."""
    command = ["gcovr", "--root", ".", "--filter", "src/", "--filter", "include/",
               "--exclude-throw-branches", "--exclude-unreachable-branches", "--json", report, build]
    subprocess.run(command, check=True, stdin=subprocess.DEVNULL)
    return json.loads(pathlib.Path(report).read_text(encoding="utf-8"))["files"]


def counts(file):
    """(run, all) for each of the goals."""
    lines = [line for line in file["lines"] if not line.get("gcovr/noncode")]
    branches = [branch for line in lines for branch in line.get("branches", []) if not branch.get("throw")]
    functions = file.get("functions", [])
    return {
        "lines": (sum(line["count"] > 0 for line in lines), len(lines)),
        "branches": (sum(branch["count"] > 0 for branch in branches), len(branches)),
        "functions": (sum(function["execution_count"] > 0 for function in functions), len(functions)),
    }


def percentage(run, all_of_them):
    return 100.0 * run / all_of_them if all_of_them else 100.0


def row(name, numbers):
    cells = [f"{run:6}/{all_of_them:<6}{percentage(run, all_of_them):6.1f}%" for run, all_of_them in numbers.values()]
    return f"{name:44}" + "".join(f"{cell:>22}" for cell in cells)


def missed(file):
    """The lines that were not run, neighbours as a range."""
    numbers = [line["line_number"] for line in file["lines"] if not line.get("gcovr/noncode") and line["count"] == 0]
    ranges = []
    for number in numbers:
        if ranges and number == ranges[-1][1] + 1:
            ranges[-1][1] = number
        else:
            ranges.append([number, number])
    return ", ".join(str(first) if first == last else f"{first}-{last}" for first, last in ranges)


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: coverage.py BUILD REPORT")
    files = [file for file in collect(sys.argv[1], sys.argv[2]) if file["lines"]]
    rows = [(file["file"], counts(file)) for file in files]
    total = {goal: tuple(map(sum, zip(*(numbers[goal] for _, numbers in rows)))) for goal in GOALS}

    print(f"{'file':44}" + "".join(f"{goal:>22}" for goal in GOALS))
    for name, numbers in sorted(rows):
        print(row(name, numbers))
    print(row("all", total))
    print("\nlines that were not run:")
    for file in sorted(files, key=lambda one: one["file"]):
        if missed(file):
            print(f"  {file['file']}: {missed(file)}")

    misses = [goal for goal in GOALS if percentage(*total[goal]) < GOALS[goal]]
    for goal in misses:
        print(f"the goal is missed: {GOALS[goal]:.0f}% of {goal}")
    return 1 if misses else 0


sys.exit(main())
