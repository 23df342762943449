#!/usr/bin/env bash
# memcheck.sh - runs a selection of the 32-bit tests with valgrind: what is read before it was written, besides what AddressSanitizer
# sees as well. Everything is some thirty times slower, so left out are tests that go through very many or very long texts, those that
# make the heap fail at every allocation in turn (tests/fault) or fill it, and those of several characters to the byte, most of whose
# time is the reference's; the sanitizers run them all.
# usage: memcheck.sh BUILD
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
# shellcheck source=/dev/null
. "$here/environment.sh"

slow='*Random*:*Threads*:*StringConversion*:*StringInputInChunks*:*OfAMillion*:*StringNumbers*:*EditingContract*:*Linear*:*DeathTest*'
slow=$slow:'EngineSort*:*Adversarial*'

run() { # FOLDER
  local start=$SECONDS log
  log=$(mktemp)
  # Test programs with a heap of their own keep it.
  if (cd "$build/tests/$1" && valgrind --quiet --soname-synonyms=somalloc=nouserintercepts --error-exitcode=9 --leak-check=full \
    "--suppressions=$here/memcheck.supp" "./test_$1" "--gtest_filter=-$slow") >"$log" 2>&1; then
    printf '%-12s passed, %d s\n' "$1" $((SECONDS - start))
    rm -f "$log"
    return
  fi
  grep -E '==[0-9]+==|Failure|FAILED' "$log" | head -60
  printf '%-12s FAILED; all of it is in %s\n' "$1" "$log"
  return 1
}
export -f run
export build here slow

printf '%s\n' strings exceptions datetime parsing collections buffers trace foundation | xargs -P "$(nproc)" -I FOLDER bash -c 'run FOLDER'
