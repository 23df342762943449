#!/usr/bin/env bash
# check_archive.sh - links programs that refer to one thing of the static library each, a different object file every time, and sees
# that all of them start with the library's new-handler in force.
# usage: check_archive.sh ARCHIVE COMPILER [FLAG...]
set -u
export LC_ALL=C

archive=$1
compiler=$2
shift 2
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
failed=0

cat >"$work/main.cpp" <<'END'
#include <new>
int main() { return std::get_new_handler() == nullptr; }
END
"$compiler" "$@" -c -o "$work/main.o" "$work/main.cpp" || { echo "FAIL: the program does not compile"; exit 1; }

"$compiler" "$@" -o "$work/alone" "$work/main.o" || { echo "FAIL: the program does not link"; exit 1; }
"$work/alone" && { echo "FAIL: a program without the library has a new-handler, so this check says nothing"; exit 1; }

# Private parts have no declaration that a program could use: only what names a class or function of the interface counts. Operations
# of buffers need a buffer, and whoever makes one comes by ibuffer0 or idbcsb0.
count=0
while read -r member symbol; do
  count=$((count + 1))
  "$compiler" "$@" -o "$work/program" "$work/main.o" "-Wl,-u,$symbol" "$archive" ||
    { echo "FAIL: $member does not link"; failed=1; continue; }
  "$work/program" || { echo "FAIL: a program that uses $member only has no new-handler"; failed=1; }
done < <(nm -p -A -C --defined-only "$archive" 2>/dev/null | paste -d'\t' - <(nm -p -A --defined-only "$archive" 2>/dev/null) |
  awk -F'\t' '{
    split($1, where, ":"); member = where[2]
    kind = $2; sub(/^[^ ]* */, "", kind); count = split($2, words, " "); symbol = words[count]; kind = words[count - 1]
    if (kind != "T" || $1 ~ /quelmcl::|get_pc_thunk/ || member ~ /^(ibuffer|idbcsb)[1-9]/ || seen[member]++) next
    print member, symbol }')

[ "$count" -ge 18 ] || { echo "FAIL: only $count object files were looked at"; failed=1; }
[ "$failed" -eq 0 ] && echo "$count object files bring the start-up object along"
[ "$failed" -eq 0 ]
