#!/usr/bin/env bash
# check_header_cost.sh - checks that <iostream> and <string>, which most programs include anyway, become at most a quarter longer by
# the include of everything, counted in preprocessed lines; and that it is no longer than that quarter more when it stands alone.
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
  alone=$(lines_of "$standard" quelmcl/quelmcl.hpp)
  both=$(lines_of "$standard" iostream string quelmcl/quelmcl.hpp)
  printf '%s: %d lines, <iostream> and <string> have %d, all three %d\n' "$standard" "$alone" "$usual" "$both"
  # A header that could not be read costs nothing.
  if [ "$usual" -lt 1000 ] || [ "$alone" -lt 1000 ] || [ "$both" -lt $((usual + 500)) ]; then
    echo "FAIL: nothing to count in $standard"
    failures=$((failures + 1))
  elif [ $((4 * both)) -gt $((5 * usual)) ] || [ $((4 * alone)) -gt $((5 * usual)) ]; then
    echo "FAIL: too much in $standard"
    failures=$((failures + 1))
  fi
done
[ "$failures" -eq 0 ]
