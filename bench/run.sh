#!/usr/bin/env bash
# run.sh - runs the benchmark programs of one build and prints their table. `./dev bench` builds them and calls this.
# usage: bench/run.sh PRESET FILTER [--record]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset=$1 filter=$2 record=${3:-}
programs=build/$preset/bench logs=build/logs

results=()
mkdir -p "$logs"
for topic in bench/*.cpp; do
  topic=$(basename "$topic" .cpp) program=$programs/bench_$topic
  log=$logs/bench-$topic-$preset
  # A round without timing: compares the results, counts allocations, and tells which benchmarks the filter chooses.
  LD_PRELOAD=$PWD/$programs/libbench_allocations.so QUELMCL_BENCH_COUNTS=$log.counts.txt \
    "$program" --benchmark_list_tests --benchmark_filter="$filter" >"$log.log" 2>&1 </dev/null ||
    { [ ! -s "$log.log" ] || ! grep -v '^Failed to match any' "$log.log" >&2; }
  if ! grep -q '^BM_' "$log.log"; then continue; fi

  printf '==> %s: %d benchmarks\n' "$topic" "$(grep -c '^BM_' "$log.log")"
  # Several rounds in turns, so that what else the machine does falls on all of them; the medians count.
  "$program" --benchmark_filter="$filter" --benchmark_repetitions=5 --benchmark_enable_random_interleaving=true \
    --benchmark_min_time=0.05 --benchmark_report_aggregates_only=true --benchmark_out="$log.json" \
    >"$log.log" 2>&1 </dev/null || { tail -n 5 "$log.log" >&2; printf 'bench_%s failed\n' "$topic" >&2; exit 1; }
  results+=("$log.counts.txt" "$log.json")
done
[ ${#results[@]} -gt 0 ] || { printf 'no benchmark matches %s\n' "$filter" >&2; exit 1; }
python3 bench/table.py ${record:+--record docs/benchmarks.md} "${results[@]}"
