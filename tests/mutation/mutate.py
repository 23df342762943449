#!/usr/bin/env python3
"""Changes one operator, constant or condition of a source at a time, and tells which changes its tests do not notice.

usage: tests/mutation/mutate.py [FILE...] [--sample N] [--seed N] [--minutes N]

Without files, all of those that SUBJECTS names are taken. Each mutant is compiled into a library of its own folder, build/mutation (64 bits,
not optimised), and the programs of the file's tests run with it, up to the first that fails. The sources stay as they are. Mutants that
do not compile do not count; those that survive are listed, for somebody to find out whether they are equivalent.
"""
import argparse
import json
import os
import random
import re
import shlex
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
BUILD = ROOT / "build" / "mutation"

# A source, the folders of the tests that are about it, and for a header the sources that have to be compiled anew.
SUBJECTS = {
    "src/datetime/idate.cpp": (["datetime"], []),
    "src/datetime/itime.cpp": (["datetime"], []),
    "src/datetime/texts.cpp": (["datetime"], []),
    "src/datetime/calendar.hpp": (["datetime", "calendar"], ["src/datetime/idate.cpp"]),
    "src/buffers/ibuffer6.cpp": (["buffers", "strings"], []),
    "src/buffers/ibuffer7.cpp": (["buffers", "strings"], []),
    "src/buffers/idbcsb6.cpp": (["multibyte"], []),
    "src/buffers/idbcsb7.cpp": (["multibyte"], []),
    "src/strings/istring8.cpp": (["strings", "multibyte"], []),
    "src/strings/istring9.cpp": (["strings"], []),
    "src/parsing/istparse.cpp": (["parsing"], []),
    "src/parsing/istpdata.cpp": (["parsing"], []),
}
LOCALES = {"multibyte": ["C.UTF-8", "ja_JP.SJIS"], "parsing": ["C", "ja_JP.SJIS"], "datetime": ["C", "de_DE.UTF-8"]}

# The layout has blanks around all binary operators, and around no bracket of a template.
OPERATORS = {
    "<": ["<="], "<=": ["<"], ">": [">="], ">=": [">"], "==": ["!="], "!=": ["=="], "&&": ["||"], "||": ["&&"],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"], "&": ["|"], "|": ["&"], "<<": [">>"], ">>": ["<<"],
    "+=": ["-="], "-=": ["+="],
}
OPERATOR = re.compile(r"(?<= )(" + "|".join(sorted(map(re.escape, OPERATORS), key=len, reverse=True)) + r")(?= )")
NUMBER = re.compile(r"(?<![\w.\"'])(\d+)(?=[uUlL]*\b)(?![\w.]*['\"])")
WORD = re.compile(r"\b(true|false)\b")
STEP = re.compile(r"\+\+|--")
CONDITION = re.compile(r"\b(?:if|while) \((?!const |unsigned |auto |char |IDate )(.*)\)(?: \{)?$")


def blanked(text):
    """The text with comments and literals as blanks, so that no mutant is made of these; lines keep their lengths."""
    pattern = re.compile(r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|'(?:\\.|[^'\\\n])+'", re.DOTALL)
    return pattern.sub(lambda found: re.sub(r"[^\n]", " ", found.group()), text)


def mutants_of(text):
    """All mutants: line, column, what stands there, what comes instead."""
    found = []
    for row, line in enumerate(blanked(text).split("\n")):
        if line.lstrip().startswith(("#", "using ", "namespace ")):
            continue
        for match in OPERATOR.finditer(line):
            found += [(row, match.start(), match.group(), other) for other in OPERATORS[match.group()]]
        for match in NUMBER.finditer(line):
            found.append((row, match.start(), match.group(), str(int(match.group()) + 1)))
        for match in WORD.finditer(line):
            found.append((row, match.start(), match.group(), "false" if match.group() == "true" else "true"))
        for match in STEP.finditer(line):
            found.append((row, match.start(), match.group(), "--" if match.group() == "++" else "++"))
        match = CONDITION.search(line)
        if match:
            whole = text.split("\n")[row][match.start(1):match.end(1)]
            found.append((row, match.start(1), whole, f"!({whole})"))
    return found


def mutated(text, mutant):
    row, column, before, after = mutant
    lines = text.split("\n")
    assert lines[row][column:].startswith(before)
    lines[row] = lines[row][:column] + after + lines[row][column + len(before):]
    return "\n".join(lines)


class Library:
    """The build folder whose library is made of mutants."""

    def __init__(self, folders):
        subprocess.run(["cmake", "--preset", "x64", "-B", str(BUILD), "-DCMAKE_BUILD_TYPE=Debug", "-DQUELMCL_BUILD_EXAMPLES=OFF",
                        "-DQUELMCL_BUILD_BENCH=OFF", "-DQUELMCL_BUILD_FUZZ=OFF"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
        programs = [f"test_{folder}" for folder in folders]
        subprocess.run(["cmake", "--build", str(BUILD), "--target", *programs], check=True, stdout=subprocess.DEVNULL)
        commands = json.loads((BUILD / "compile_commands.json").read_text())
        self.compile = {entry["file"]: entry["command"] for entry in commands if "CMakeFiles/quelmcl.dir" in entry["command"]}
        name = next(BUILD.glob("src/libquelmcl.so.*.*")).relative_to(BUILD)
        shown = subprocess.run(["ninja", "-C", str(BUILD), "-t", "commands", "-s", str(name)], check=True, capture_output=True, text=True)
        self.link = [line for line in shown.stdout.splitlines() if line][-1]

    def make(self, source, text, anew):
        """Whether the mutant could be compiled and linked."""
        overlay = BUILD / "mutant"
        subprocess.run(["rm", "-rf", str(overlay)], check=True)
        place = overlay / Path(source).relative_to("src")
        place.parent.mkdir(parents=True)
        place.write_text(text)
        for unit in anew or [source]:
            command = self.compile[str(ROOT / unit)]
            if not anew:
                command = command.replace(f" -c {ROOT / unit}", f" -c {place}")
            compiler, rest = command.split(" -", 1)
            command = f"{compiler} -I{overlay} -O0 -w -{rest}"
            if subprocess.run(shlex.split(command), cwd=BUILD, capture_output=True, check=False).returncode != 0:
                return False
        return subprocess.run(self.link, shell=True, cwd=BUILD, capture_output=True, check=False).returncode == 0


def passes(folder, locale, seconds):
    """Whether a test program passes with the library as it is now. One that never ends does not."""
    catalogs = BUILD / "share" / "locale"
    environment = dict(os.environ, LANG="C", LC_ALL="C", QUELMCL_TEST_LOCALE=locale, LOCPATH=str(BUILD / "locales"),
                       NLSPATH=f"{catalogs}/%l/LC_MESSAGES/%N:{catalogs}/C/LC_MESSAGES/%N")
    try:
        program = next(BUILD.glob(f"tests/*/test_{folder}"))
        return subprocess.run([str(program), "--gtest_brief=1", "--gtest_fail_fast"],
                              env=environment, cwd=BUILD, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, timeout=seconds, check=False).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def try_file(source, sample, seed, until):
    folders, anew = SUBJECTS[source]
    library = Library(folders)
    text = (ROOT / source).read_text()
    runs = [(folder, locale) for folder in folders for locale in LOCALES.get(folder, ["C"])]
    limits = {}
    for run in runs:
        start = time.monotonic()
        if not library.make(source, text, anew) or not passes(*run, 600):
            sys.exit(f"mutate: the tests of {run[0]} fail in {run[1]} before anything is changed")
        limits[run] = 20 + 5 * (time.monotonic() - start)

    candidates = mutants_of(text)
    random.Random(seed).shuffle(candidates)
    caught, survivors = 0, []
    for mutant in candidates:
        if caught + len(survivors) == sample or time.monotonic() > until:
            break
        if not library.make(source, mutated(text, mutant), anew):
            continue
        if all(passes(*run, limits[run]) for run in runs):
            survivors.append(mutant)
        else:
            caught += 1
    library.make(source, text, anew)
    return len(candidates), caught, survivors


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("files", nargs="*", metavar="FILE")
    parser.add_argument("--sample", type=int, default=60, help="mutants of each file")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--minutes", type=float, default=10000, help="begin no further mutant of a file after this time")
    arguments = parser.parse_args()
    files = arguments.files or list(SUBJECTS)
    for file in files:
        if file not in SUBJECTS:
            sys.exit(f"mutate: no tests are named for {file}; there are some for: {' '.join(SUBJECTS)}")

    print(f"{'file':28} {'possible':>8} {'tried':>6} {'caught':>6} {'':>6}", flush=True)
    for file in files:
        possible, caught, survivors = try_file(file, arguments.sample, arguments.seed, time.monotonic() + 60 * arguments.minutes)
        tried = caught + len(survivors)
        print(f"{file:28} {possible:8} {tried:6} {caught:6} {100 * caught / max(tried, 1):5.0f}%", flush=True)
        lines = (ROOT / file).read_text().split("\n")
        for row, _, before, after in sorted(survivors):
            print(f"    {row + 1:4}: {before} -> {after}    {lines[row].strip()}", flush=True)


if __name__ == "__main__":
    main()
