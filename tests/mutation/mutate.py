#!/usr/bin/env python3
"""Changes one operator, constant or condition of a source at a time, and tells which changes its tests do not notice.

usage: tests/mutation/mutate.py [FILE...] [--sample N] [--seed N] [--folder FOLDER]

Without files, all that SUBJECTS has tests for are taken. The mutants of a file are compiled together, into a library whose source asks an
environment variable which of them it is (switches.hpp). Those whose place no test comes to in that library, because the compiler knows
what is there, are then compiled alone and tested again; mutants that do not compile do not count.
Everything happens in a copy of the project, build/mutation, at 32 bits and as it is shipped. The survivors are listed, for
somebody to find out whether they are equivalent.
"""
import argparse
import os
import random
import re
import resource
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
SWITCHES = Path(__file__).resolve().parent / "switches.hpp"

# How paths begin, and the tests of such files: a program, the locale it runs in, and the suites. The first beginning that fits counts.
SINGLE_BYTE, STRINGS, ITS_STRINGS = ("buffers", "C", "*"), ("strings", "C", "*"), ("strings", "C.UTF-8", "*")
UTF8, SHIFT_JIS, GB18030 = ("multibyte", "C.UTF-8", "*"), ("multibyte", "ja_JP.SJIS", "*"), ("multibyte", "zh_CN.GB18030", "*")
RADIX = ("strings", "C", "*Conversion*:*Number*:*BytesTo*:*ToBytes*")
RADIX_KERNELS = ("kernels", "C", "*Digit*:*Decimal*:*Limb*:*Power*:*Reciprocal*:*Convolution*")
SUBJECTS = {
    "src/buffers/idbcsb": [UTF8, SHIFT_JIS],
    "src/buffers/character": [UTF8, SHIFT_JIS, GB18030],
    "src/buffers/repair": [UTF8, SHIFT_JIS],
    "src/buffers/forwardsearch": [UTF8, SHIFT_JIS],
    "src/buffers/ibuffer": [SINGLE_BYTE, STRINGS],
    "src/buffers/": [SINGLE_BYTE, STRINGS, UTF8],
    "src/strings/istring8": [STRINGS, UTF8, SHIFT_JIS],
    "src/strings/words": [STRINGS, UTF8, SHIFT_JIS],
    "src/strings/": [STRINGS, ITS_STRINGS],
    "src/parsing/": [("parsing", "C", "*"), ("parsing", "ja_JP.SJIS", "*")],
    "src/datetime/calendar": [("datetime", "C", "*"), ("calendar", "C", "*")],
    "src/datetime/": [("datetime", "C", "*"), ("datetime", "de_DE.UTF-8", "*")],
    "src/kernels/decimal": [RADIX_KERNELS, RADIX],
    "src/kernels/digits": [RADIX_KERNELS, RADIX],
    "src/kernels/limbs": [RADIX_KERNELS, RADIX],
}

# The layout has blanks around all binary operators, and around no bracket of a template. What comes instead of an operator, and the
# switch between the two.
OPERATORS = {
    "<": ("<=", "Less"), "<=": ("<", "LessOrEqual"), ">": (">=", "Greater"), ">=": (">", "GreaterOrEqual"), "==": ("!=", "Equal"),
    "!=": ("==", "Unequal"), "+": ("-", "Plus"), "-": ("+", "Minus"), "*": ("/", "Times"), "/": ("*", "Divided"),
    "%": ("*", "Remainder"), "&": ("|", "BitAnd"), "|": ("&", "BitOr"), "<<": (">>", "ShiftUp"), ">>": ("<<", "ShiftDown"),
    "+=": ("-=", "Adding"), "-=": ("+=", "Subtracting"), "&&": ("||", "Logical"), "||": ("&&", "Logical"),
}
OPERATOR = re.compile(r"(?<= )(" + "|".join(sorted(map(re.escape, OPERATORS), key=len, reverse=True)) + r")(?= )")
NUMBER = re.compile(r"(?<![\w.\"'])(\d+)([uUlL]*)\b(?![.'\"])")
WORD = re.compile(r"\b(true|false)\b")
STEP = re.compile(r"\+\+|--")
CONDITION = re.compile(r"\b(?:if|while) \((?!const |unsigned |auto |char |IDate )(.*)\)(?: \{)?$")


class Mutant:
    """One change: where it is, what stands there, what comes instead, and the switch between both, if there is one."""

    def __init__(self, row, column, before, after, switch=None):
        self.row, self.column, self.before, self.after, self.switch = row, column, before, after, switch


def blanked(text):
    """The text with comments and literals as blanks, so that no mutant is made of these; lines keep their lengths."""
    pattern = re.compile(r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|'(?:\\.|[^'\\\n])+'", re.DOTALL)
    return pattern.sub(lambda found: re.sub(r"[^\n]", " ", found.group()), text)


def operator_mutant(row, match):
    before = match.group()
    after, name = OPERATORS[before]
    if name == "Logical":
        logical = "quelmcl_mutation::Logical<ID, " + ("true>" if before == "||" else "false>")
        return Mutant(row, match.start(), before, after, f"&& {logical}::taken() || {logical}::needed() &&")
    return Mutant(row, match.start(), before, after, f"{before} quelmcl_mutation::{name}<ID>() {before}")


def step_mutant(row, match, line):
    before = match.group()
    switch = None  # what a postfix operator belongs to is hard to see
    if line[match.end():match.end() + 1].isalpha():
        switch = f"quelmcl_mutation::{'StepUp' if before == '++' else 'StepDown'}<ID>() ->* "
    return Mutant(row, match.start(), before, "--" if before == "++" else "++", switch)


def mutants_of(text):
    found = []
    originals = text.split("\n")
    for row, line in enumerate(blanked(text).split("\n")):
        if line.lstrip().startswith(("#", "using ", "namespace ")):
            continue
        found += [operator_mutant(row, match) for match in OPERATOR.finditer(line)]
        for match in NUMBER.finditer(line):
            after = str(int(match.group(1)) + 1) + match.group(2)
            found.append(Mutant(row, match.start(), match.group(), after, f"quelmcl_mutation::oneMore<ID>({match.group()})"))
        for match in WORD.finditer(line):
            after = "false" if match.group() == "true" else "true"
            found.append(Mutant(row, match.start(), match.group(), after, f"quelmcl_mutation::negated<ID>({match.group()})"))
        found += [step_mutant(row, match, line) for match in STEP.finditer(line)]
        match = CONDITION.search(line)
        if match:
            whole = originals[row][match.start(1):match.end(1)]
            found.append(Mutant(row, match.start(1), whole, f"!({whole})", "quelmcl_mutation::negated<ID>("))
    return found


def with_mutant(text, mutant):
    lines = text.split("\n")
    line = lines[mutant.row]
    assert line[mutant.column:].startswith(mutant.before)
    lines[mutant.row] = line[:mutant.column] + mutant.after + line[mutant.column + len(mutant.before):]
    return "\n".join(lines)


def with_switches(text, numbered):
    """The text with a switch for each mutant."""
    edits = []  # row, column, length, order, what comes there
    for number, mutant in numbered:
        switch = mutant.switch.replace("ID", str(number))
        if switch.endswith("("):  # a condition, in which there may be more
            end = mutant.column + len(mutant.before)
            edits += [(mutant.row, mutant.column, 0, switch), (mutant.row, end, 0, ")")]
        else:
            edits.append((mutant.row, mutant.column, len(mutant.before), switch))
    lines = text.split("\n")
    # From the right; where two begin at the same place, the condition comes to stand before what is in it.
    for row, column, length, switch in sorted(edits, key=lambda edit: (edit[0], edit[1], edit[2]), reverse=True):
        lines[row] = lines[row][:column] + switch + lines[row][column + length:]
    return f'#include "{SWITCHES}"\n#line 1\n' + "\n".join(lines)


class Project:
    """The copy of the project that is changed."""

    def __init__(self, folder):
        self.root = folder
        self.build = folder / "build" / "x86"
        files = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True, capture_output=True, text=True)
        for name in files.stdout.splitlines():
            if (ROOT / name).is_file():
                self.write(name, (ROOT / name).read_bytes())
        subprocess.run(["cmake", "--preset", "x86", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON", "-DQUELMCL_BUILD_EXAMPLES=OFF",
                        "-DQUELMCL_BUILD_BENCH=OFF", "-DQUELMCL_BUILD_FUZZ=OFF"], cwd=folder, check=True, stdout=subprocess.DEVNULL)

    def write(self, name, content):
        """Writes a file that is to be another: what has not changed is not built anew."""
        place = self.root / name
        if not place.exists() or place.read_bytes() != content:
            place.parent.mkdir(parents=True, exist_ok=True)
            place.write_bytes(content)

    def make(self, name, text, programs):
        """Whether it could be built with this text of a file, and what the compiler said."""
        self.write(name, text.encode())
        command = ["cmake", "--build", str(self.build), "-j1", "--target", "quelmcl", *(f"test_{program}" for program in sorted(programs))]
        result = subprocess.run(command, capture_output=True, text=True, errors="replace", check=False)
        return result.returncode == 0, result.stdout

    def test(self, run, names, mutant=0, seconds=1000):
        """Runs tests of a program up to the first that fails. Their status, their output, the processor time they took, and whether the
        mutant's place was come to."""
        def limit():
            resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        program, locale, _ = run
        catalogs, reached = self.build / "share" / "locale", self.build / "reached"
        reached.unlink(missing_ok=True)
        environment = dict(os.environ, LANG="C", LC_ALL="C", QUELMCL_TEST_LOCALE=locale, LOCPATH=str(self.build / "locales"),
                           NLSPATH=f"{catalogs}/%l/LC_MESSAGES/%N:{catalogs}/C/LC_MESSAGES/%N", QUELMCL_MUTANT=str(mutant),
                           QUELMCL_MUTANT_REACHED=str(reached))
        place = next(self.build.glob(f"tests/*/test_{program}"))
        before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
        try:
            done = subprocess.run([str(place), "--gtest_fail_fast", f"--gtest_filter={names}"], env=environment, cwd=place.parent,
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                                  errors="replace", timeout=60 * seconds, preexec_fn=limit, check=False)
            status, output = done.returncode, done.stdout
        except subprocess.TimeoutExpired as late:
            status, output = 1, (late.stdout or b"").decode(errors="replace")
        return status, output, resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before, reached.exists()


class Tests:
    """The tests of a file, in the order that finds most mutants soonest: those that have found one, the quick ones, the others."""

    def __init__(self, project, runs):
        self.project, self.runs, self.found = project, runs, {run: [] for run in runs}
        self.slow, self.limit = {}, {}
        for run in runs:
            status, output, seconds, _ = project.test(run, run[2])
            if status != 0:
                sys.exit(f"mutate: the tests of {run[0]} fail in {run[1]} before anything is changed: {last_begun(output)}")
            times = {name: int(time) for name, time in re.findall(r"\[       OK \] (\S+) \((\d+) ms\)", output)}
            self.slow[run] = [name for name in sorted(times, key=times.get)[-60:] if times[name] > 50]
            quick = 1 - sum(times[name] for name in self.slow[run]) / max(1, sum(times.values()))
            self.limit[run, "quick"], self.limit[run, "slow"] = 3 + int(4 * quick * seconds), 3 + int(4 * seconds)

    def catch(self, mutant=0):
        """Whether one of them fails, or takes far longer than it should; and whether the mutant's place was come to."""
        steps = [(run, ":".join(self.found[run]), "slow") for run in self.runs if self.found[run]]
        steps += [(run, run[2] + "-" + ":".join(self.slow[run]), "quick") for run in self.runs]
        steps += [(run, ":".join(self.slow[run]), "slow") for run in self.runs if self.slow[run]]
        reached, quick_left = False, len(self.runs)
        for run, names, kind in steps:
            if mutant != 0 and not reached and not quick_left:
                break  # it is to be compiled alone anyhow
            quick_left -= kind == "quick"
            status, output, _, reached_now = self.project.test(run, names, mutant, self.limit[run, kind])
            reached = reached or reached_now
            if status not in (0, 77):  # 77: all were skipped
                test = last_begun(output)
                self.found[run] = [test] + [other for other in self.found[run] if other != test][:20]
                return True, True
        return False, reached


def last_begun(output):
    return (re.findall(r"\[ RUN      \] (\S+)", output) or ["*"])[-1]


def make_switched(project, source, text, numbered, programs):
    """Builds all mutants into one library, and tells which are in it: what the compiler does not take is left out."""
    wrong = re.compile(re.escape(Path(source).name) + r":(\d+):\d+:\s+(?:error|required|in )")
    numbered = [(number, mutant) for number, mutant in numbered if mutant.switch]
    while numbered:
        made, output = project.make(source, with_switches(text, numbered), programs)
        rows = {int(row) - 1 for row in wrong.findall(output)} if not made else set()
        if made or not rows:
            return numbered if made else []
        numbered = [(number, mutant) for number, mutant in numbered if mutant.row not in rows]
    return []


def try_file(project, source, sample, seed):
    """How many mutants there could be, how many were caught, and the survivors."""
    runs = next(runs for beginning, runs in SUBJECTS.items() if source.startswith(beginning))
    programs = {program for program, _, _ in runs}
    text = (project.root / source).read_text()
    if not project.make(source, text, programs)[0]:
        sys.exit("mutate: the project does not compile before anything is changed")

    candidates = mutants_of(text)
    random.Random(seed).shuffle(candidates)
    numbered = list(enumerate(candidates, 1))
    switched = make_switched(project, source, text, numbered[:sample], programs)
    tests = Tests(project, runs)
    results = {}  # of those that compile: whether they were caught
    for number, _ in switched:
        caught, reached = tests.catch(number)
        if reached:
            results[number] = caught
    for number, mutant in numbered:
        if len(results) == sample:
            break
        if number not in results and project.make(source, with_mutant(text, mutant), programs)[0]:
            results[number] = tests.catch()[0]
    project.make(source, text, programs)
    return len(candidates), sum(results.values()), [mutant for number, mutant in numbered if results.get(number) is False]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("files", nargs="*", metavar="FILE")
    parser.add_argument("--sample", type=int, default=60, help="mutants of each file")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--folder", type=Path, default=ROOT / "build" / "mutation", help="the copy of the project, of this run alone")
    arguments = parser.parse_args()
    everything = (str(file.relative_to(ROOT)) for file in sorted(ROOT.glob("src/*/*.?pp")))
    files = arguments.files or [file for file in everything if file.startswith(tuple(SUBJECTS))]
    for file in files:
        if not file.startswith(tuple(SUBJECTS)):
            sys.exit(f"mutate: no tests are named for {file}; there are some for: {' '.join(SUBJECTS)}")

    project = Project(arguments.folder.resolve())
    print(f"{'file':34} {'possible':>8} {'tried':>6} {'caught':>6}", flush=True)
    for file in files:
        possible, caught, survivors = try_file(project, file, arguments.sample, arguments.seed)
        tried = caught + len(survivors)
        print(f"{file:34} {possible:8} {tried:6} {caught:6} {100 * caught / max(tried, 1):5.0f}%", flush=True)
        lines = (project.root / file).read_text().split("\n")
        for mutant in sorted(survivors, key=lambda one: (one.row, one.column)):
            print(f"    {mutant.row + 1:4}: {mutant.before} -> {mutant.after}    {lines[mutant.row].strip()}", flush=True)


if __name__ == "__main__":
    main()
