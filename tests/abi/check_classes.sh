#!/usr/bin/env bash
# check_classes.sh - compares the size, alignment, bases and virtual operations of every class, as g++ dumps them, with the list
# for this width and with slots.txt. A class that the lists do not name, or no longer there, is a difference, too.
# usage: check_classes.sh FOLDER CLASSES.TXT COMPILER [FLAG...]      (FOLDER holds slots.txt)
set -u
export LC_ALL=C

folder=$1
classes=$2
compiler=$3
shift 3
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT

echo '#include <quelmcl/quelmcl.hpp>' >"$work/all.cpp"
"$compiler" "$@" -fsyntax-only "-fdump-lang-class=$work/dump" "$work/all.cpp" && [ -s "$work/dump" ] ||
  { echo "FAIL: $compiler gives no class dump"; exit 1; }

# One line a class: NAME size=N align=N BASE@OFFSET... ; all of the library's classes begin with I and a capital letter or digit, but one.
awk '
  function flush() { if (name != "") print line; name = "" }
  /^Class (I[A-Z0-9]|KOLTA_)[A-Za-z0-9_:]*$/ { flush(); name = $2; line = name; next }
  /^Class / || NF == 0 { flush(); next }
  name == "" { next }
  /^ +size=/ { line = line " " $1 " " $2; next }
  /^[A-Za-z]/ && $1 != name { line = line " " $1 "@" $3; next }
  END { flush() }' "$work/dump" | sort >"$work/found.classes"
grep -v '^#' "$classes" | sed '/^$/d' | sort >"$work/expected.classes"

awk '
  /^#/ || NF == 0 { next }
  /:$/ { sub(/:$/, ""); count = split($0, names, " "); number = 0; next }
  { ++number; operation = $0; if (operation !~ /^operator /) sub(/\(.*/, "", operation); sub(/ .*/, "", operation)
    for (i = 1; i <= count; ++i) printf "%s %03d %s\n", names[i], number, operation }' "$folder/slots.txt" |
  sort >"$work/expected.slots"

# One line a slot: NAME NUMBER OPERATION, without parameters. The first two words of a table are no slots. Of an abstract class the
# dump leaves the destructor away and does not tell pure operations apart: it is enough that there is one where one is expected.
awk '
  NR == FNR { expected[$1, $2 + 0] = $3; next }
  /^Vtable for (I[A-Z0-9]|KOLTA_)[A-Za-z0-9_:]*$/ { name = $3; words = 0; number = 0; destructors = 0; next }
  NF == 0 { name = "" }
  name == "" || $1 !~ /^[0-9]+$/ || ++words <= 2 { next }
  {
    operation = $0; sub(/^[0-9]+ +(\(int \(\*\)\(\.\.\.\)\))?/, "", operation)
    sub(/^([A-Za-z_0-9]+::)+/, "", operation); sub(/ .*/, "", operation)
    if (operation ~ /^~/ || operation == "0") { if (++destructors == 2) next; operation = "~" }
    ++number
    if (operation == "__cxa_pure_virtual" && (name, number) in expected) operation = expected[name, number]
    printf "%s %03d %s\n", name, number, operation
  }' "$work/expected.slots" "$work/dump" | sort >"$work/found.slots"

failed=0
for list in classes slots; do
  [ -s "$work/expected.$list" ] || { echo "FAIL: nothing to compare the $list with"; failed=1; }
  diff -u --label "expected $list" "$work/expected.$list" --label "$list in the class dump" "$work/found.$list" || failed=1
done
[ "$failed" -eq 0 ] || { echo "FAIL: the classes differ from what older programs were compiled with"; exit 1; }
printf '%s: %d classes and %d slots are in place\n' "$compiler" "$(wc -l <"$work/found.classes")" "$(wc -l <"$work/found.slots")"
