#!/usr/bin/env python3
"""Prints the results of Google Benchmark as a table: the library beside its best peer, the limit and the goal.

usage: table.py RESULTS.json...
"""
import json
import sys

OURS, LIMIT = "quelmcl", "memcpy"


def duration(nanoseconds):
    for limit, unit, divisor in ((1e3, "ns", 1), (1e6, "us", 1e3), (1e9, "ms", 1e6)):
        if nanoseconds < limit:
            return "%.3g %s" % (nanoseconds / divisor, unit)
    return "%.3g s" % (nanoseconds / 1e9)


def medians(paths):
    """Times by workload and size, {(workload, size): {who: nanoseconds}} and the goals."""
    times, goals = {}, {}
    for path in paths:
        with open(path) as results:
            for run in json.load(results)["benchmarks"]:
                if run.get("aggregate_name") != "median":
                    continue
                workload, who, size = run["run_name"].split("/")[:3]
                key = (workload[len("BM_"):], int(size))
                scale = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[run["time_unit"]]
                times.setdefault(key, {})[who] = run["cpu_time"] * scale
                goals[key] = run["goal"]
    return times, goals


def main(paths):
    times, goals = medians(paths)
    rows = [("workload", "size", "ours", "best peer", "", "ratio", "limit", "goal", "")]
    missed = 0
    for (workload, size), whos in sorted(times.items()):
        peers = {who: time for who, time in whos.items() if who not in (OURS, LIMIT)}
        if OURS not in whos or not peers:
            continue
        best = min(peers, key=peers.get)
        ratio, goal = whos[OURS] / peers[best], goals[workload, size]
        missed += ratio > goal
        limit = duration(whos[LIMIT]) if LIMIT in whos else "-"
        rows.append((workload, str(size), duration(whos[OURS]), duration(peers[best]), best, "%.2f" % ratio, limit,
                     "%g" % goal, "met" if ratio <= goal else "NOT MET"))
    widths = [max(len(row[column]) for row in rows) for column in range(len(rows[0]))]
    for row in rows:
        cells = (cell.ljust(width) if column in (0, 4, 8) else cell.rjust(width)
                 for column, (cell, width) in enumerate(zip(row, widths)))
        print("  ".join(cells).rstrip())
    print("%d of %d goals met (ratio: ours to the best peer's; limit: memcpy of the data)" % (len(rows) - 1 - missed, len(rows) - 1))
    return 0 if len(rows) > 1 else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
