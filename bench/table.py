#!/usr/bin/env python3
"""Prints the results of the benchmarks as a table: the library beside its best peer, the limit and the goal.

usage: table.py [--record PAGE.md] RESULTS.json|COUNTS.txt...

RESULTS.json is what Google Benchmark writes, COUNTS.txt what a program notes while its allocations are counted.
"""
import json
import os
import re
import sys

OURS, LIMITS = "quelmcl", ("memcpy", "memchr")


def duration(nanoseconds):
    for limit, unit, divisor in ((1e3, "ns", 1), (1e6, "us", 1e3), (1e9, "ms", 1e6)):
        if nanoseconds < limit:
            return "%.3g %s" % (nanoseconds / divisor, unit)
    return "%.3g s" % (nanoseconds / 1e9)


def storage(size):
    for limit, unit, divisor in ((1e4, "", 1), (1e7, " K", 1024), (1e13, " M", 1024 * 1024)):
        if size < limit:
            return "%d%s" % (round(size / divisor), unit)


class Measured:
    """Everything that was measured of one workload at one size, by who was measured."""

    def __init__(self):
        self.times, self.heap, self.missing, self.goal = {}, {}, {}, 0.0

    def isComplete(self):
        return OURS in self.times and any(who not in LIMITS + (OURS,) for who in self.times)

    def best(self):
        peers = {who: time for who, time in self.times.items() if who not in LIMITS + (OURS,)}
        return min(peers, key=peers.get)

    def ratio(self):
        return self.times[OURS] / self.times[self.best()]

    def isMet(self):
        return self.ratio() <= self.goal

    def limit(self):
        return next(("%s %s" % (duration(self.times[who]), who) for who in LIMITS if who in self.times), "-")

    def row(self, workload, size):
        best = self.best()
        ours, peers = self.heap.get(OURS), self.heap.get(best)
        blocks, peak = ("%s / %s" % (ours[i], peers[i]) if ours and peers else "-" for i in range(2))
        return [workload, str(size), "%.2f" % self.ratio(), "%g" % self.goal, "met" if self.isMet() else "NOT MET",
                duration(self.times[OURS]), duration(self.times[best]), best, self.limit(), blocks, peak]


HEADINGS = ["workload", "size", "ratio", "goal", "", "ours", "peer", "best peer", "limit", "blocks", "peak bytes"]
RIGHT = (1, 2, 3, 5, 6, 8, 9, 10)


def keyOf(name):
    workload, who, size = name[len("BM_"):].split("/")[:3]
    return (workload, int(size)), who


def readTimes(path, measured):
    with open(path) as results:
        document = json.load(results)
    for run in document["benchmarks"]:
        if run.get("aggregate_name") != "median":
            continue
        key, who = keyOf(run["run_name"])
        scale = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[run["time_unit"]]
        entry = measured.setdefault(key, Measured())
        entry.times[who], entry.goal = run["cpu_time"] * scale, run["goal"]
    return document["context"]


def readCounts(path, measured):
    with open(path) as counts:
        for line in counts:
            if line.startswith("missing "):
                _, name, why = line.rstrip("\n").split(" ", 2)
                key, who = keyOf(name)
                measured.setdefault(key, Measured()).missing[who] = why
            else:
                name, blocks, peak = line.rsplit(" ", 2)
                key, who = keyOf(name)
                measured.setdefault(key, Measured()).heap[who] = (blocks, storage(int(peak)))


def read(paths):
    """All that was measured, in the order of the topics, and what the programs say about themselves."""
    measured, context = {}, {}
    for path in sorted(paths, key=lambda path: path.endswith(".json")):  # the counts first: they stand in order
        if path.endswith(".json"):
            context = readTimes(path, measured)
        else:
            readCounts(path, measured)
    return {key: entry for key, entry in measured.items() if entry.isComplete()}, context


def missingPeers(measured):
    reasons = {}
    for (workload, _), entry in measured.items():
        for who, why in entry.missing.items():
            reasons.setdefault((who, why), []).append(workload)
    return ["%s could not be measured (%s): %s" % (who, why, ", ".join(dict.fromkeys(workloads)))
            for (who, why), workloads in reasons.items()]


def summary(measured):
    met = sum(entry.isMet() for entry in measured.values())
    return "%d of %d goals met" % (met, len(measured))


EXPLANATION = ("ratio: our time to the best peer's; goal: what the ratio may be; limit: one copy of the data, or one pass over "
               "it; blocks and peak bytes: taken from the heap by one operation, ours / the best peer's")


def printTable(measured):
    rows = [HEADINGS] + [entry.row(*key) for key, entry in measured.items()]
    widths = [max(len(row[column]) for row in rows) for column in range(len(HEADINGS))]
    for row in rows:
        cells = (cell.rjust(width) if column in RIGHT else cell.ljust(width)
                 for column, (cell, width) in enumerate(zip(row, widths)))
        print("  ".join(cells).rstrip())
    for line in missingPeers(measured):
        print(line)
    print("%s (%s)" % (summary(measured), EXPLANATION))


# ---- the page of recorded figures ----

INTRODUCTION = """# Recorded figures

One run of `./dev bench --record` for each width; the medians of its rounds. Ratios hold on other machines, times do not.
What they mean, and what was tried: [performance.md](performance.md).

- ratio: our time to that of the best peer. Goal: what the ratio may be.
- limit: one copy of the data by `memcpy`, or one pass over it by `memchr`.
- blocks and peak bytes: what one operation takes from the heap, ours / the best peer's.
"""


def processor():
    with open("/proc/cpuinfo") as lines:
        names = [line.split(":", 1)[1].strip() for line in lines if line.startswith("model name")]
    return "%s, %d of them" % (names[0], len(names)) if names else os.uname().machine


def section(measured, context):
    lines = ["## %s bits" % context.get("bits", "?"), "",
             "%s; %s; %s." % (processor(), context.get("compiler", "?"), summary(measured)), "",
             "| " + " | ".join(HEADINGS) + " |",
             "|" + "|".join("--:" if column in RIGHT else "---" for column in range(len(HEADINGS))) + "|"]
    lines += ["| " + " | ".join(entry.row(*key)) + " |" for key, entry in measured.items()]
    missing = missingPeers(measured)
    if missing:
        lines += [""] + ["- " + line for line in missing]
    return "\n".join(lines) + "\n"


def record(page, measured, context):
    """Puts the section of this width into the page; that of the other width stays."""
    sections = {}
    if os.path.exists(page):
        with open(page) as old:
            for part in re.split(r"(?m)^(?=## )", old.read())[1:]:
                sections[part.split("\n", 1)[0]] = part.strip() + "\n"
    new = section(measured, context)
    sections[new.split("\n", 1)[0]] = new
    with open(page, "w") as out:
        out.write("\n".join([INTRODUCTION] + [sections[heading] for heading in sorted(sections)]))


def main(arguments):
    page = None
    if arguments[:1] == ["--record"]:
        page, arguments = arguments[1], arguments[2:]
    measured, context = read(arguments)
    if not measured:
        print("table.py: no workload was measured for the library and for a peer", file=sys.stderr)
        return 1
    printTable(measured)
    if page is not None:
        record(page, measured, context)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
