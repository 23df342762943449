# shellcheck shell=bash
# case.sh - what the tests of the example programs share. A script that sources it is started with the program first and the name of
# one case last, defines a function for each case, and ends with run_case. Status 0: passed, 1: failed, 77: cannot be told here.
set -u
export LC_ALL=C  # bytes are bytes, for the tools of the scripts too; a case may say otherwise

folder=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tests/support/ending.sh
source "$folder/../support/ending.sh"

program=$1
case=${!#}
# shellcheck disable=SC2034  # some of the scripts read files there
data=$folder/data
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
status=none
touch "$work/out" "$work/err"

run_case() {
  if [ "$(type -t "$case")" != function ]; then
    echo "there is no case '$case'"
    exit 1
  fi
  "$case"
  [ "$failures" -eq 0 ]
}

# ---- running ----

# Runs the program and keeps its standard output, standard error and status. Its input is that of the caller.
run() {
  "$program" "$@" >"$work/out" 2>"$work/err"
  status=$?
}

# The same, but nothing can be written to standard output.
run_with_full_disk() {
  [ -c /dev/full ] || skip "there is no /dev/full"
  "$program" "$@" >/dev/full 2>"$work/err"
  status=$?
  : >"$work/out"
}

# The same, with a file that this user may not read.
run_with_unreadable() { # FILE
  chmod 000 "$1"
  local drop_privileges=()
  if [ -r "$1" ]; then  # root reads everything, unless it gives that up
    drop_privileges=(setpriv --inh-caps=-all --bounding-set=-all)
    "${drop_privileges[@]}" true || skip "this user may read everything and cannot give that up"
    "${drop_privileges[@]}" test -r "$1" && skip "this user may read everything whatever he gives up"
  fi
  "${drop_privileges[@]}" "$program" "$1" >"$work/out" 2>"$work/err"
  status=$?
}

# use_locale NAME SOURCE CHARACTER_SET [THE SET'S NAME AMONG PROGRAMS]: from here on programs run in this locale, compiled for this case.
use_locale() {
  mkdir -p "$work/locales"
  localedef --no-archive --quiet -i "$2" -f "$3" "$work/locales/$1" >/dev/null 2>&1
  export LOCPATH=$work/locales LC_ALL=$1
  [ "$(locale charmap 2>/dev/null)" = "${4:-$3}" ] || end_for_lack_of locales
}

# Bytes of every value, the same in every run: printf %b makes them of the octal escapes that a small generator writes.
write_random_bytes() { # SEED COUNT
  printf '%b' "$(awk -v seed="$1" -v count="$2" 'BEGIN {
    for (i = 0; i < count; ++i) {
      seed = (seed * 16807) % 2147483647
      printf "\\0%03o", int(seed / 64) % 256
    }
  }')"
}

# ---- judging ----

fail() { # REASON
  failures=$((failures + 1))
  printf 'FAILED: %s\n' "$1"
  printf -- '--- status %s\n--- standard output\n' "$status"
  head -c 4000 "$work/out" | LC_ALL=C cat -v
  printf -- '--- standard error\n'
  head -c 4000 "$work/err" | LC_ALL=C cat -v
}

expect_status() { [ "$status" -eq "$1" ] || fail "the status is $status, not $1"; }
expect_no_output() { [ ! -s "$work/out" ] || fail "something on standard output"; }
expect_no_errors() { [ ! -s "$work/err" ] || fail "something on standard error"; }
expect_error() { printf '%s\n' "$@" | cmp -s - "$work/err" || fail "standard error is not '$*'"; }
