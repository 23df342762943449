#!/usr/bin/env bash
# check_lldb.sh - stops a program in lldb and compares how its objects are shown with expected_lldb.txt.
# usage: check_lldb.sh --program FILE --formatters FILE --work DIR
set -euo pipefail
# shellcheck source=tests/debug/debuggers.sh
source "$(dirname "${BASH_SOURCE[0]}")/debuggers.sh"
need_lldb

commands() {
  local line
  printf 'command script import %s\n' "${given[formatters]}" "$folder/show_lldb.py"
  printf 'breakpoint set -n stopHere\nbreakpoint set -n main\nrun\n'
  while IFS= read -r line; do
    case $line in
      '' | '#'*) ;;
      '['*) printf 'continue\nup 2\nscript print("%s")\n' "$line" ;;
      *) printf 'script show_lldb.show("%s")\n' "${line%% => *}" ;;
    esac
  done <"$folder/expected_lldb.txt"
}

commands >"$work/commands"
lldb -b -s "$work/commands" "$program" >"$work/output" 2>"$work/errors" </dev/null || true
if ! grep -q '^\[showStrings\]' "$work/output"; then
  cat "$work/output" "$work/errors"
  skip "lldb could not stop the program here"
fi
grep '^\[show\|^[^(]* => ' "$work/output" >"$work/shown"
grep -v '^#\|^$' "$folder/expected_lldb.txt" >"$work/expected"
diff "$work/expected" "$work/shown" || { cat "$work/errors"; printf 'FAIL: lldb shows something else (<: expected, >: shown)\n'; exit 1; }
