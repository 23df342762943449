#!/usr/bin/env bash
# check_lldb.sh - stops a program in lldb and compares how its objects are shown with expected_lldb.txt.
# usage: check_lldb.sh --program FILE --formatters FILE --work DIR
set -euo pipefail
folder=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
export LC_ALL=C.UTF-8

declare -A given
while [ $# -gt 1 ]; do
  given[${1#--}]=$2
  shift 2
done
work=${given[work]}

# shellcheck source=tests/support/ending.sh
source "$folder/../support/ending.sh"

command -v lldb >/dev/null || skip "there is no lldb here"  # which is large, and not among the packages that ./dev installs
# Some distributions build lldb with another place for its modules than they install them to.
for modules in "$(lldb -P)" /usr/lib/llvm-*/lib/python3*/dist-packages; do
  if [ -e "$modules/lldb/__init__.py" ]; then export PYTHONPATH=$modules; fi
done
lldb -b -o 'script print("python " + "works")' 2>&1 </dev/null | grep -q '^python works' || skip "this lldb has no Python"
rm -rf "$work"
mkdir -p "$work"

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
lldb -b -s "$work/commands" "${given[program]}" >"$work/output" 2>"$work/errors" </dev/null || true
if ! grep -q '^\[showStrings\]' "$work/output"; then
  cat "$work/output" "$work/errors"
  skip "lldb could not stop the program here"
fi
grep '^\[show\|^[^(]* => ' "$work/output" >"$work/shown"
grep -v '^#\|^$' "$folder/expected_lldb.txt" >"$work/expected"
diff "$work/expected" "$work/shown" || { cat "$work/errors"; printf 'FAIL: lldb shows something else (<: expected, >: shown)\n'; exit 1; }
