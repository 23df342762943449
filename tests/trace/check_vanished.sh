#!/usr/bin/env bash
# check_vanished.sh - compiles a source whose trace macros are switched off and looks for what is left of them.
# usage: check_vanished.sh SOURCE COMPILER [FLAG...]
set -u
export LC_ALL=C

source=$1
compiler=$2
shift 2
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT

symbols() { # NAME [FLAG...]
  local name=$1
  shift
  "$compiler" "$@" -c -O1 -o "$work/$name.o" "$work/$name.cpp" || { echo "FAIL: $name does not compile"; exit 1; }
  nm -C "$work/$name.o" | sed 's/^[0-9a-f ]*//'
}

cp "$source" "$work/off.cpp"
sed '/#define QUELMCL_TRACE_OFF/d' "$source" >"$work/on.cpp"
here=-I$(dirname "$source")
symbols on "$@" "$here" | grep -q 'ITrace' || { echo "FAIL: with the macros in place there should be traces"; exit 1; }
left=$(symbols off "$@" "$here" | grep -E 'ITrace|IString')
[ -z "$left" ] || { printf 'FAIL: the macros leave something behind:\n%s\n' "$left"; exit 1; }
strings -a "$work/off.o" | grep -q 'adding' && { echo "FAIL: a name is left behind"; exit 1; }
echo "nothing is left of them"
