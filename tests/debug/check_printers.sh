#!/usr/bin/env bash
# check_printers.sh - stops an optimised program in gdb and compares how its objects are shown with expected.txt.
# usage: check_printers.sh live|core|stripped|installed --program FILE --printers FILE --work DIR
#                          [--library FILE] [--cmake PROGRAM] [--build DIR]
#   live       in the running program
#   core       in a core file of it
#   stripped   in the running program, and the library has no debug information
#   installed  in the running program, and gdb finds the printers of the installed library by itself
set -euo pipefail
check=$1
shift
# shellcheck source=tests/debug/debuggers.sh
source "$(dirname "${BASH_SOURCE[0]}")/debuggers.sh"
printers=${given[printers]}
need_gdb

fail() {
  printf 'FAIL: %s\n' "$*"
  exit 1
}

# Each expression of the table with what gdb shows for it, in the same form.
commands_for_table() {
  local line
  while IFS= read -r line; do
    case $line in
      '' | '#'*) ;;
      '['*) at_function "${line//[][]/}" ;;
      '!'*) printf '%s\n' "${line#!}" ;;
      *) printf 'echo %s =>\\040\noutput %s\necho \\n\n' "${line%% => *}" "${line%% => *}" ;;
    esac
  done <"$folder/expected.txt"
}

# The program waits in stopHere, called by look, called by the function.
at_function() { # NAME
  if [ "$check" = core ]; then printf 'core-file %s\n' "$work/core.$1"; else printf 'continue\n'; fi
  printf 'up 2\necho \\n[%s]\\n\n' "$1"
}

start_program() {
  printf 'break stopHere\nbreak main\nrun\n'
}

must_be_as_expected() { # SHOWN
  sed -nE 's/0x[0-9a-f]+/0x.../g; /^\[show/p; /^[^ ].* => /p' "$1" >"$work/shown"
  grep -v '^#\|^!\|^$' "$folder/expected.txt" >"$work/expected"
  [ -s "$work/expected" ] || fail "there is nothing to compare with"
  diff "$work/expected" "$work/shown" || { cat "$work/errors"; fail "gdb shows something else (<: expected, >: shown)"; }
}

if ! { start_program; } | gdb_with "$program" >"$work/started" || ! grep -q '^Breakpoint 2, main' "$work/started"; then
  if grep -qi 'ptrace\|could not trace' "$work/started" "$work/errors"; then skip "gdb may not trace programs here"; fi
  cat "$work/started" "$work/errors"
  fail "gdb could not start the program"
fi

with_printers=(-ex "source $printers" -ex "source $folder/many_dates.py")
case $check in
  live) ;;
  core)
    { start_program
      sed -n 's/^\[\(.*\)\]$/continue\ngenerate-core-file WORK\/core.\1/p' "$folder/expected.txt" | sed "s|WORK|$work|"
    } | gdb_with "$program" >"$work/making-cores"
    ;;
  stripped)
    objcopy --strip-debug "${given[library]}" "$work/libquelmcl.so.310"
    with_printers+=(-ex "set environment LD_LIBRARY_PATH $work")
    ;;
  installed)
    "${given[cmake]}" --install "${given[build]}" --prefix "$work/prefix" >"$work/install.log"
    library=$(readlink -f "$(find "$work/prefix" -name libquelmcl.so)")
    scripts=$work/prefix/share/gdb/auto-load
    with_printers=(-iex "set auto-load scripts-directory $scripts" -iex "set auto-load safe-path $scripts:/usr/share/gdb" -iex 'set auto-load python-scripts on')
    with_printers+=(-ex "source $folder/many_dates.py" -ex "set environment LD_LIBRARY_PATH $(dirname "$library")")
    ;;
  *) fail "there is no check $check" ;;
esac

{ if [ "$check" != core ]; then start_program; fi
  commands_for_table
} | gdb_with "${with_printers[@]}" "$program" >"$work/output" || { cat "$work/output" "$work/errors"; fail "gdb failed"; }
must_be_as_expected "$work/output"
