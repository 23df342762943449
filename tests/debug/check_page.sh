#!/usr/bin/env bash
# check_page.sh - what docs/debugging.md shows of a debugger is what the debugger says. The page's blocks below a comment that names the
# debugger hold commands behind a prompt and what they print; addresses do not count.
# usage: check_page.sh gdb|core|lldb --program FILE --page FILE --sources DIR --printers FILE --work DIR
#   gdb   the blocks below <!-- gdb -->, in the running program where it reports its failure
#   core  those below <!-- core -->, in a core file of it that gdb made
#   lldb  those below <!-- lldb -->, in the running program
set -euo pipefail

check=$1
shift
# shellcheck source=tests/debug/debuggers.sh
source "$(dirname "${BASH_SOURCE[0]}")/debuggers.sh"
debugger=${check/core/gdb} prompt="(${check/core/gdb}) "
"need_$debugger"

blocks_below() { # COMMENT
  sed -n "/^<!-- $1 -->\$/,/^[^ <]/s/^    //p" "${given[page]}"
}

commands_of_page() {
  local line
  while IFS= read -r line; do
    if [[ $line != "$prompt"* ]]; then continue; fi
    line=${line#"$prompt"}
    case $debugger in
      gdb) printf 'echo %s\n%s\n' "$prompt$line\\n" "$line" ;;
      lldb) if [[ $line != 'command script import '* ]]; then printf '%s\n' "$line"; fi ;;  # it shows each command by itself
    esac
  done < <(blocks_below "$check")
}

gdb_on_page() { # [OPTION...], commands on standard input
  gdb_with -ex 'set filename-display basename' -ex "directory ${given[sources]}" "$@"
}

run_gdb() {
  printf 'break report\nrun\ngenerate-core-file %s\n' "$work/core" | gdb_on_page "$program" >"$work/started" || true
  if ! grep -q '^Breakpoint 1, report' "$work/started"; then
    if grep -qi 'ptrace\|could not trace' "$work/started" "$work/errors"; then skip "gdb may not trace programs here"; fi
    cat "$work/started" "$work/errors"
    return 1
  fi
  { if [ "$check" = core ]; then printf 'core-file %s\n' "$work/core"; else printf 'break report\nrun\n'; fi
    commands_of_page
  } | gdb_on_page -ex "source ${given[printers]}" "$program" >"$work/output"
}

run_lldb() {
  { printf 'command script import %s\nbreakpoint set -n report\nrun\nup\n' "${given[printers]}"
    commands_of_page
  } >"$work/commands"
  lldb -b -s "$work/commands" "$program" >"$work/output" 2>"$work/errors" </dev/null || true
  grep -q 'stop reason = breakpoint' "$work/output" || skip "lldb could not stop the program here"
  sed -i '1,/^(lldb) up/d' "$work/output"
  sed -i '1,/^(lldb) /{/^(lldb) /!d}' "$work/output"  # where it went up to
}

# From the first command on, without addresses, folders and blanks at the ends.
comparable() {
  sed -n "/^$prompt/,\$p" | sed -E '/^\(lldb\) (command|breakpoint|run|up|target|script)/d; s/0x[0-9a-f]+/0x.../g; s|[^ ]*/orders\.cpp|orders.cpp|g; s/ +$//'
}

"run_$debugger" || { printf 'FAIL: %s failed\n' "$debugger"; cat "$work/errors"; exit 1; }
blocks_below "$check" | comparable >"$work/expected"
[ "$(grep -c "^$prompt" "$work/expected")" -gt 0 ] || { printf 'FAIL: the page shows nothing of %s\n' "$check"; exit 1; }
comparable <"$work/output" >"$work/shown"
diff "$work/expected" "$work/shown" || { cat "$work/errors"; printf 'FAIL: %s shows something else (<: the page, >: shown)\n' "$debugger"; exit 1; }
