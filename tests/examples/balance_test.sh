#!/bin/bash
# balance_test.sh PROGRAM SOURCE PAGE CASE - runs one case against the program, or compares it with the page that shows what it
# prints.
# shellcheck source=tests/examples/case.sh
source "$(dirname "${BASH_SOURCE[0]}")/case.sh"
source=$2
page=$3

printf 'rent 500\nbread 12\n' >"$work/list"
printf 'rent 500\nbread twelve\n' >"$work/wrong"

# Runs the program with a list and a setting of the trace. The number of the process becomes that of the page, and the source file,
# which is named as the compiler was given it, loses what depends on the build.
run() { # LIST SETTING
  env "$2" "$program" "$work/$1" >"$work/out" 2>"$work/err"
  status=$?
  sed -i -e 's/^\([0-9]\{8\}\) [0-9]\{6,\}:/\1 004711:/' -e 's|file: .*examples/balance|file: examples/balance|' "$work/out"
}

# The block of the page below a comment.
block() { # COMMENT
  awk -v comment="<!-- $1 -->" '$0 == comment { found = 1; next } found && /^```/ { if (inside) exit; inside = 1; next } inside' "$page"
}

expect_block() { # COMMENT FILE
  block "$1" >"$work/block"
  [ -s "$work/block" ] || fail "the page has no block \"$1\""
  diff -u --label "the page: $1" "$work/block" --label "the program" "$2" || fail "the page shows something else"
}

page_shows_what_is_printed() {
  run list KOLTA_TRACE=on
  expect_status 0
  expect_block 'printed: balance list, KOLTA_TRACE=on' "$work/out"
  run wrong KOLTA_TRACE=noprefix
  expect_status 1
  expect_block 'printed: balance wrong, KOLTA_TRACE=noprefix' "$work/out"
  expect_block 'said: balance wrong, KOLTA_TRACE=noprefix' "$work/err"
}

# Every piece of the source that the page shows stands in the source, line for line.
page_shows_the_source() {
  local shown
  shown=$(awk -v source="$source" '
    function look() { if (piece != "") { ++count; if (!index(whole, "\n" piece)) { print "not in the source:\n" piece; bad = 1 } } piece = "" }
    BEGIN { whole = "\n"; while ((getline line <source) > 0) whole = whole line "\n" }
    /^<!-- from examples\/balance\/main.cpp -->$/ { next_is = 1; next }
    next_is && /^```cpp$/ { inside = 1; next_is = 0; next }
    inside && /^```$/ { inside = 0; look(); next }
    inside { piece = piece $0 "\n" }
    END { if (bad) exit 1; print count }' "$page") || { fail "$shown"; return; }
  [ "$shown" -eq 3 ] || fail "the page shows $shown pieces, not 3"
}

no_trace_unless_it_is_wanted() {
  run list NOTHING=on
  [ "$(cat "$work/out")" = 512 ] || fail "standard output is $(cat "$work/out")"
  expect_no_errors
}

failures_are_told() {
  run wrong NOTHING=on
  expect_status 1
  expect_no_output
  printf 'balance: in the line: bread twelve\n  because: an amount has digits only\n' | diff - "$work/err" || fail "standard error"
  run none NOTHING=on
  expect_status 1
  echo 'balance: open:No such file or directory' | diff - "$work/err" || fail "standard error"
  run . NOTHING=on
  expect_status 1
  expect_no_output
  echo 'balance: read:Is a directory' | diff - "$work/err" || fail "standard error"
}

help() {
  local text
  text=$("$program" --help 2>"$work/err") || fail "the status is not 0"
  expect_no_errors
  [[ $text == 'Usage: balance [--help] FILE'* ]] || fail "no usage: $text"
  [[ $text == *'Exit status: '* ]] || fail "no word on the status"
}

wrong_options() {
  local arguments
  for arguments in '' '--sum' "$work/list $work/list" '--help --help'; do
    # Words for the program.
    # shellcheck disable=SC2086
    "$program" $arguments >"$work/out" 2>"$work/err"
    status=$?
    expect_status 2
    expect_no_output
    expect_error 'usage: balance FILE'
  done
}

full_disk() {
  run_with_full_disk "$work/list"
  expect_status 1
  expect_error 'balance: write:No space left on device'
}

run_case
