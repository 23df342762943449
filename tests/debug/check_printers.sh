#!/usr/bin/env bash
# check_printers.sh - stops an optimised program in gdb and compares how its objects are shown with expected.txt.
# usage: check_printers.sh live|core|stripped|installed --program FILE --printers FILE --work DIR
#                          [--library FILE] [--cmake PROGRAM] [--build DIR]
#   live       in the running program
#   core       in a core file of it
#   stripped   in the running program, and the library has no debug information
#   installed  in the running program, and gdb finds the printers of the installed library by itself
set -euo pipefail
folder=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
export LC_ALL=C.UTF-8  # so that gdb shows characters beyond ASCII
unset LD_LIBRARY_PATH DEBUGINFOD_URLS

check=$1
shift
declare -A given
while [ $# -gt 1 ]; do
  given[${1#--}]=$2
  shift 2
done
program=${given[program]} work=${given[work]} printers=${given[printers]}

# shellcheck source=tests/support/ending.sh
source "$folder/../support/ending.sh"

fail() {
  printf 'FAIL: %s\n' "$*"
  exit 1
}

command -v gdb >/dev/null || end_for_lack_of gdb
rm -rf "$work"
mkdir -p "$work"
work=$(cd "$work" && pwd -P)  # gdb knows files by their real paths

options=(-nx -batch -iex 'set debuginfod enabled off' -iex 'set auto-load python-scripts off' -ex 'set width 0' -ex 'set confirm off')

debug() { # [OPTION...], commands on standard input
  cat >"$work/commands"
  gdb "${options[@]}" "$@" -x "$work/commands" 2>"$work/errors" </dev/null
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

if ! { start_program; } | debug "$program" >"$work/started" || ! grep -q '^Breakpoint 2, main' "$work/started"; then
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
    } | debug "$program" >"$work/making-cores"
    ;;
  stripped)
    objcopy --strip-debug "${given[library]}" "$work/libquelmcl.so.310"
    with_printers+=(-ex "set environment LD_LIBRARY_PATH $work")
    ;;
  installed)
    "${given[cmake]}" --install "${given[build]}" --prefix "$work/prefix" >"$work/install.log"
    library=$(readlink -f "$(find "$work/prefix" -name libquelmcl.so)")
    scripts=$work/prefix/share/gdb/auto-load
    options+=(-iex "set auto-load scripts-directory $scripts" -iex "set auto-load safe-path $scripts:/usr/share/gdb" -iex 'set auto-load python-scripts on')
    with_printers=(-ex "source $folder/many_dates.py" -ex "set environment LD_LIBRARY_PATH $(dirname "$library")")
    ;;
  *) fail "there is no check $check" ;;
esac

{ if [ "$check" != core ]; then start_program; fi
  commands_for_table
} | debug "${with_printers[@]}" "$program" >"$work/output" || { cat "$work/output" "$work/errors"; fail "gdb failed"; }
must_be_as_expected "$work/output"
