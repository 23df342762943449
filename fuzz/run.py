#!/usr/bin/env python3
"""Runs fuzz targets for a time or a number of inputs, and prints what came of it as a table.

usage: fuzz/run.py PRESET TARGET|all [SECONDS] [--runs N]

The targets are those built in build/PRESET. Each begins with its seeds and with what earlier runs have found worth keeping, in
build/fuzz/corpus. Inputs that crash it, leak, take too long or show a wrong answer are kept in build/fuzz/findings; their outputs are in
build/fuzz/logs. A target that depends on the character set is run once for each, and shares time and number out among them.
"""
import argparse
import os
import re
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "fuzz"
SETTINGS = ("KOLTA MSGFILE", "KOLTA TRACE", "KOLTA TRACETO", "KOLTA TRACEFILE", "KOLTA CHECKSTACK")
SANITIZERS = {
    # No stack of callers for every allocation, and freed blocks kept for a while only: both cost much time.
    "ASAN_OPTIONS": "allocator_may_return_null=1:malloc_context_size=1:quarantine_size_mb=16",
    "UBSAN_OPTIONS": "print_stacktrace=1",
}


def targets(preset):
    """The names of the targets, each with its locales, as fuzz/CMakeLists.txt has them."""
    text = (ROOT / "fuzz" / "CMakeLists.txt").read_text()
    found = {}
    for name, arguments in re.findall(r"^quelmcl_add_fuzz_target\((\w+)([^)]*)\)", text, re.MULTILINE):
        found[name] = arguments.split()[1:] or ["C"]
        if not (ROOT / "build" / preset / "fuzz" / f"fuzz_{name}").exists():
            sys.exit(f"run.py: fuzz_{name} is not built in build/{preset}")
    return found


def unpack_seeds(name):
    """A folder with the seeds as files, as the engine wants them."""
    folder = WORK / "seeds" / name
    folder.mkdir(parents=True, exist_ok=True)
    lines = (ROOT / "fuzz" / "seeds" / f"{name}.txt").read_text().splitlines()
    for number, line in enumerate(line for line in lines if line and not line.startswith("#")):
        (folder / f"{number:03}").write_bytes(bytes.fromhex(line))
    return folder


def environment_for(preset, locale):
    environment = {key: value for key, value in os.environ.items()
                   if key not in SETTINGS and key.replace("_", " ") not in SETTINGS}
    build = ROOT / "build" / preset
    catalogs = build / "share" / "locale"
    environment.update(SANITIZERS, LANG="C", LC_ALL="C", QUELMCL_TEST_LOCALE=locale, LOCPATH=str(build / "locales"),
                       NLSPATH=f"{catalogs}/%l/LC_MESSAGES/%N:{catalogs}/C/LC_MESSAGES/%N")
    return environment


def run_one(preset, name, locale, label, seconds, runs):
    """One process of the engine. The result is a row of the table."""
    corpus = WORK / "corpus" / label
    findings = WORK / "findings" / preset / label
    log = WORK / "logs" / f"{preset}-{label}.log"
    for folder in (corpus, findings, log.parent):
        folder.mkdir(parents=True, exist_ok=True)
    before = set(findings.iterdir())
    command = [str(ROOT / "build" / preset / "fuzz" / f"fuzz_{name}"), str(corpus), str(unpack_seeds(name)),
               # Without entropy: its schedule takes more time than the targets themselves.
               "-entropic=0", "-max_len=96", "-timeout=10", "-rss_limit_mb=1500", "-print_final_stats=1", f"-artifact_prefix={findings}/"]
    command.append(f"-runs={runs}" if runs else f"-max_total_time={seconds}")

    start, start_cpu = time.monotonic(), os.times().children_user
    with open(log, "wb") as output:
        status = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
                                env=environment_for(preset, locale), cwd=WORK, check=False).returncode
    elapsed, cpu = time.monotonic() - start, os.times().children_user - start_cpu

    text = log.read_text(errors="replace")
    counted = re.search(r"^stat::number_of_executed_units: *(\d+)", text, re.MULTILINE)
    done = int(counted.group(1)) if counted else int((re.findall(r"^#(\d+)", text, re.MULTILINE) or [0])[-1])
    new = sorted(set(findings.iterdir()) - before)
    found = max(len(new), 1 if status != 0 else 0)
    return {"label": label, "runs": done, "elapsed": elapsed, "cpu": cpu, "found": found, "files": new, "log": log}


def rate(runs, seconds):
    return f"{runs / seconds:9.0f}" if seconds > 0.5 else "        -"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("preset")
    parser.add_argument("target")
    parser.add_argument("seconds", type=int, nargs="?", default=60)
    parser.add_argument("--runs", type=int, default=0, help="so many inputs instead of so many seconds")
    arguments = parser.parse_args()

    known = targets(arguments.preset)
    if arguments.target != "all" and arguments.target not in known:
        sys.exit(f"run.py: there is no target {arguments.target}; there are: all {' '.join(known)}")
    chosen = list(known) if arguments.target == "all" else [arguments.target]

    print(f"{'target':28} {'inputs':>9} {'seconds':>8} {'a second':>9} {'by CPU':>9} {'findings':>8}", flush=True)
    rows = []
    for name in chosen:
        locales = known[name]
        for locale in locales:
            label = name if len(locales) == 1 else f"{name}-{locale}"
            row = run_one(arguments.preset, name, locale, label, max(1, arguments.seconds // len(locales)),
                          -(-arguments.runs // len(locales)))
            rows.append(row)
            print(f"{label:28} {row['runs']:9} {row['elapsed']:8.0f} {rate(row['runs'], row['elapsed'])} "
                  f"{rate(row['runs'], row['cpu'])} {row['found']:8}", flush=True)
            for file in row["files"]:
                print(f"    {file.relative_to(ROOT)}")
            if row["found"]:
                print(f"    told in {row['log'].relative_to(ROOT)}")

    total = sum(row["found"] for row in rows)
    print(f"{sum(row['runs'] for row in rows)} inputs, {total} findings")
    return 1 if total else 0


if __name__ == "__main__":
    sys.exit(main())
