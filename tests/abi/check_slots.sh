#!/usr/bin/env bash
# check_slots.sh - compares the virtual tables that a compiler makes, with the parameters of every operation, with slots.txt.
# usage: check_slots.sh FOLDER COMPILER [FLAG...]      (FOLDER holds slots.txt and slots_probe.cpp)
set -u
export LC_ALL=C

folder=$1
compiler=$2
shift 2
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT

"$compiler" "$@" -S -o "$work/probe.s" "$folder/slots_probe.cpp" || { echo "FAIL: the probe does not compile"; exit 1; }

# A table is a label, the distance to the whole object, the type information, and one word an operation. A destructor has two
# entries, one behind the other; the name of the class that implements an operation is no part of the contract.
c++filt <"$work/probe.s" | awk '
  /^vtable for probe::/ {
    name = $0; sub(/^vtable for probe::/, "", name); sub(/:.*/, "", name); words = 0; destructors = 0; print name ":"; next
  }
  name == "" { next }
  $1 == ".long" || $1 == ".quad" {
    if (++words <= 2) next
    operation = $0; sub(/^[ \t]*\.(long|quad)[ \t]+/, "", operation)
    sub(/^([A-Za-z_0-9]+::)+/, "", operation)
    if (operation ~ /^~/) { if (++destructors == 2) next; operation = "~" }
    print operation; next
  }
  { name = "" }' >"$work/found"

# The same form of what is expected: one block a class, a nested class by its last name.
awk '
  /^#/ || NF == 0 { next }
  /:$/ { sub(/:$/, ""); count = split($0, classes, " "); for (i = 1; i <= count; ++i) order[++total] = classes[i]; next }
  { for (i = 1; i <= count; ++i) slots[classes[i]] = slots[classes[i]] $0 "\n" }
  END { for (i = 1; i <= total; ++i) { name = order[i]; sub(/.*::/, "", name); printf "%s:\n%s", name, slots[order[i]] } }
' "$folder/slots.txt" >"$work/expected"

# Classes in one order, so that the order of the probe does not matter.
blocks() { awk '/:$/ { name = $0; next } { printf "%s %03d %s\n", name, ++n[name], $0 }' "$1" | sort; }
blocks "$work/expected" >"$work/expected.sorted"
blocks "$work/found" >"$work/found.sorted"

[ -s "$work/expected.sorted" ] || { echo "FAIL: slots.txt is empty"; exit 1; }
if ! diff -u --label slots.txt "$work/expected.sorted" --label "what $compiler makes" "$work/found.sorted"; then
  echo "FAIL: the virtual tables differ from slots.txt"
  exit 1
fi
printf '%s: %d slots of %d classes are in place\n' "$compiler" "$(wc -l <"$work/found.sorted")" "$(grep -c ':$' "$work/found")"
