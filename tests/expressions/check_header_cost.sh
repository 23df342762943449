#!/usr/bin/env bash
# check_header_cost.sh - checks that the include of everything costs at most a quarter more preprocessed lines than <iostream> and
# <string>, which most programs include anyway.
# usage: check_header_cost.sh COMPILER [FLAG...]
set -u
export LC_ALL=C

lines_of() { # STANDARD HEADER... ; the compiler and its flags are in `compile`
  local standard=$1
  shift
  printf '#include <%s>\n' "$@" | "${compile[@]}" "-std=$standard" -E -P -x c++ - | wc -l
}

compile=("$@")
failures=0
for standard in c++11 c++14 c++17 c++20 c++2b; do
  usual=$(lines_of "$standard" iostream string)
  ours=$(lines_of "$standard" quelmcl/quelmcl.hpp)
  printf '%s: %d lines, <iostream> and <string> have %d\n' "$standard" "$ours" "$usual"
  # A header that could not be read costs nothing; so does an empty one.
  if [ "$usual" -lt 1000 ] || [ "$ours" -lt 500 ] || [ $((4 * ours)) -gt $((5 * usual)) ]; then
    echo "FAIL: too much in $standard"
    failures=$((failures + 1))
  fi
done
[ "$failures" -eq 0 ]
