#!/usr/bin/env bash
# shuffle.sh - runs each test program as one process, its tests in an order of chance, and several programs at once: no test may lean
# on what another has done before, or stand in the way of one that runs beside it.
# usage: shuffle.sh BUILD [SEED]
# The seed is that of the day if none is named; GoogleTest prints it, and takes 1 to 99999.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
seed=${2:-$(($(date +%s) / 86400 % 99999 + 1))}
# shellcheck source=/dev/null
. "$here/environment.sh"

run() { # FOLDER
  local log
  log=$(mktemp)
  if (cd "$build/tests/$1" && "./test_$1" --gtest_shuffle "--gtest_random_seed=$seed") >"$log" 2>&1; then
    printf '%-12s passed\n' "$1"
    rm -f "$log"
    return
  fi
  grep -E 'Failure|FAILED' "$log" | head -40
  printf '%-12s FAILED with seed %d; all of it is in %s\n' "$1" "$seed" "$log"
  return 1
}
export -f run
export build seed

for folder in exceptions foundation trace startup kernels buffers strings threads parsing datetime collections abi; do
  echo "$folder"
done | xargs -P "$(nproc)" -I FOLDER bash -c 'run FOLDER'
