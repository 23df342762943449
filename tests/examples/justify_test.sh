#!/bin/bash
# justify_test.sh PROGRAM CASE - runs one case against the program.
# shellcheck source=tests/examples/case.sh
source "$(dirname "${BASH_SOURCE[0]}")/case.sh"
export LC_ALL=C.UTF-8  # unless a case says otherwise

# ---- running and judging ----

expect_file() { cmp "$1" "$work/out" || fail "the text is not that of ${1##*/}"; }

# expect_text INPUT EXPECTED OPTION...: both are printf's %b, and end with a line feed that is added here.
expect_text() {
  local input=$1 expected=$2
  shift 2
  printf '%b\n' "$input" >"$work/input"
  printf '%b\n' "$expected" >"$work/expected"
  run "$@" "$work/input"
  expect_status 0
  expect_no_errors
  cmp -s "$work/expected" "$work/out" || fail "'$*' of '$input' is not '$expected'"
}

# The widest line, by a counter that is not ours.
expect_width() {
  local widest
  widest=$(wc -L <"$work/out")
  [ "$widest" -le "$1" ] || fail "a line has $widest columns, not $1 at most"
}

# What is left of the bytes when all white space is taken away.
without_white_space() { LC_ALL=C tr -d ' \t\n\v\f\r' <"$1"; }
expect_nothing_lost_of() {
  without_white_space "$1" >"$work/before"
  without_white_space "$work/out" >"$work/after"
  cmp "$work/before" "$work/after" || fail "the bytes are not those of the input"
}

# ---- layouts ----

each_layout_of_a_text_is_the_expected_one() {
  local layout
  for layout in wrap left right center reverse; do
    run --width 40 "--$layout" "$data/justify.txt"
    expect_status 0
    expect_no_errors
    expect_file "$data/justify.$layout.expected"
  done
  run --width 40 "$data/justify.txt"
  expect_file "$data/justify.wrap.expected"
}

wrapping() {
  expect_text 'one two three' 'one two\nthree' --width 7
  expect_text 'one two three' 'one two\nthree' --width 12
  expect_text 'one two three' 'one two three' --width 13
  expect_text '  one\ttwo\v\fthree  ' 'one two three' --width 13
  expect_text 'abcdefgh' 'abc\ndef\ngh' --width 3
  expect_text 'abcdef gh' 'abc\ndef\ngh' --width 3
  expect_text 'a bcdefgh i' 'a\nbcd\nefg\nh i' --width 3
  expect_text 'one\ntwo' 'one\ntwo' --width 40  # each line stays one of its own
}

aligning() {
  expect_text ' one ' 'one' --left --width 7
  expect_text ' one ' '    one' --right --width 7
  expect_text ' one ' '  one' --center --width 7
  expect_text 'one' '  one' --center --width 8  # an odd blank goes to the right, where it is not written
  expect_text '\tone\ttwo\t' '   one two' --right --width 10
  expect_text '\tone\ttwo\t' 'one\ttwo' --left --width 10
  local layout
  for layout in left right center; do  # what has no room stays whole
    expect_text 'one two' 'one two' --$layout --width 7
    expect_text 'one two' 'one two' --$layout --width 6
    expect_text 'one two' 'one two' --$layout --width 2
  done
}

reversing() {
  expect_text 'abc' 'cba' --reverse
  expect_text ' ab  c' 'c  ba ' --reverse
  expect_text 'one\ntwo\n' 'eno\nowt\n' --reverse
  expect_text 'longer than two' 'owt naht regnol' --reverse --width 2
}

last_layout_counts() {
  expect_text ' ab ' ' ba ' --center --right --reverse
  expect_text ' ab ' '  ab' --reverse --width 9 --right --width 4
}

# ---- characters ----

accents_take_one_column() {
  expect_text 'Grüße' '  Grüße' --right --width 7
  expect_text 'Grüße' ' Grüße' --center --width 7
  expect_text 'Grüße aus Köln' 'Grüße aus\nKöln' --width 9
  expect_text 'ééééé' 'éé\néé\né' --width 2
  expect_text 'Grüße' 'eßürG' --reverse
  expect_text '𝄞é' ' 𝄞é' --right --width 3  # four bytes
}

wide_characters_take_two_columns() {
  expect_text '日本語' ' 日本語' --right --width 7
  expect_text '日本語' ' 日本語' --center --width 8
  expect_text '日本語' '日本\n語' --width 5
  expect_text '日本語' '日本\n語' --width 4
  expect_text '日本語' '日\n本\n語' --width 3
  expect_text '日本語' '日\n本\n語' --width 2
  expect_text 'a日本' 'a日\n本' --width 4
  expect_text '日本語 text' 'txet 語本日' --reverse
}

combining_marks_take_no_column() {
  expect_text 'e\0314\0201te\0314\0201' '  e\0314\0201te\0314\0201' --right --width 5
  expect_text 'e\0314\0201e\0314\0201e\0314\0201' 'e\0314\0201e\0314\0201\ne\0314\0201' --width 2  # it stays with its letter
  expect_text 'e\0314\0201t' 't\0314\0201e' --reverse  # a character by itself
  expect_text '\0314\0201' '\0314\0201' --center
}

control_characters_take_one_column() {
  expect_text 'a\0033b' '  a\0033b' --right --width 5
  expect_text 'a\0302\0205b' '  a\0302\0205b' --right --width 5
}

wrapped_lines_fit() {
  local width
  for width in 2 3 4 5 7 10 39 40 41 72 116 117 118; do
    run --width "$width" "$data/justify.txt"
    expect_status 0
    expect_width "$width"
    expect_nothing_lost_of "$data/justify.txt"
    "$program" --width "$width" "$work/out" | cmp - "$work/out" || fail "what fits is wrapped again"
  done
}

aligned_lines_reach_the_edge() {
  local width
  for width in 120 121 200; do
    run --width "$width" --right "$data/justify.txt"
    while IFS= read -r line; do
      [ -z "$line" ] || [ "$(printf '%s\n' "$line" | wc -L)" -eq "$width" ] || fail "not $width columns: $line"
    done <"$work/out"
    run --width "$width" --center "$data/justify.txt"
    sed 's/[^ ].*//' "$work/out" | awk '{ print length($0) }' >"$work/indents"
    "$program" --left "$data/justify.txt" | tr '\t' ' ' | while IFS= read -r line; do
      [ -z "$line" ] && echo 0 || echo $(((width - $(printf '%s\n' "$line" | wc -L)) / 2))
    done | diff - "$work/indents" || fail "not in the middle of $width columns"
  done
}

words_are_broken_as_late_as_possible() {
  awk 'BEGIN { seed = 3; for (i = 1; i <= 3000; ++i) { seed = (seed * 16807) % 2147483647
    printf "%s%s", substr("abcdefghijklmnopqrstuvwxyz", 1, 1 + int(seed / 64) % 9), i % 50 ? " " : "\n" } }' >"$work/input"
  local width
  for width in 9 10 23 60; do
    run --width "$width" "$work/input"
    awk -v width="$width" '{ line = $1
      for (i = 2; i <= NF; ++i)
        if (length(line) + 1 + length($i) <= width) line = line " " $i; else { print line; line = $i }
      print line }' "$work/input" | cmp - "$work/out" || fail "other lines of $width columns"
  done
}

reversing_twice_gives_the_text() {
  run --reverse "$data/justify.txt"
  "$program" --reverse "$work/out" | cmp - "$data/justify.txt" || fail "twice reversed is another text"
  if command -v rev >/dev/null; then rev "$data/justify.txt" | cmp - "$work/out" || fail "rev says otherwise"; fi
}

# ---- rubbish ----

broken_bytes_are_characters_of_one_column() {
  expect_text 'a\0377b' '  a\0377b' --right --width 5                      # never part of a character
  expect_text 'a\0251b' '  a\0251b' --right --width 5                      # a later byte without its first
  expect_text 'a\0303' '   a\0303' --right --width 5                       # cut off at the end
  expect_text '\0346\0227x' '  \0346\0227x' --right --width 5              # cut off in the middle
  expect_text '\0303 x' '\0303\nx' --width 2
  expect_text '\0355\0240\0200' '  \0355\0240\0200' --right --width 5      # half of a pair of surrogates
  expect_text '\0300\0200' '   \0300\0200' --right --width 5               # a NUL in two bytes
  expect_text '\0377\0377\0377\0377\0377' '\0377\0377\n\0377\0377\n\0377' --width 2
  expect_text 'é\0377日' '日\0377é' --reverse
}

random_bytes_pass_through() {
  local seed layout
  for seed in 1 2 3; do
    write_random_bytes "$seed" 60000 >"$work/rubbish"
    [ "$(LC_ALL=C tr -dc '\000' <"$work/rubbish" | wc -c)" -gt 0 ] || fail "the generator made no NUL bytes"
    for layout in wrap left right center; do
      for width in 2 17 300; do
        run --$layout --width $width "$work/rubbish"
        expect_status 0
        expect_no_errors
        expect_nothing_lost_of "$work/rubbish"
      done
    done
    run --reverse "$work/rubbish"
    expect_status 0
    # The same bytes in each line, in another order.
    without_white_space "$work/rubbish" | od -An -v -tx1 -w1 | sort >"$work/before"
    without_white_space "$work/out" | od -An -v -tx1 -w1 | sort | cmp - "$work/before" || fail "other bytes"
  done
}

nul_bytes_pass_through() {
  expect_text 'a\0000b c' 'a\0000b\nc' --width 2
  expect_text 'a\0000b' '   a\0000b' --right --width 5  # a NUL takes no column
  expect_text 'a\0000b' 'b\0000a' --reverse
}

empty_lines_stay() {
  local layout
  for layout in wrap left right center; do
    expect_text '\n\none\n\n   \n\t' '\n\none\n\n\n' --$layout --width 3
  done
  expect_text '\n\n   \n' '\n\n   \n' --reverse
}

empty_input_gives_empty_output() {
  run /dev/null
  expect_status 0
  expect_no_errors
  expect_no_output
  run - </dev/null
  expect_status 0
  expect_no_output
}

last_line_without_its_end() {
  printf 'one\ntwo' >"$work/input"
  printf '  one\n  two\n' >"$work/expected"
  run --right --width 5 "$work/input"
  expect_status 0
  expect_file "$work/expected"
}

carriage_returns_are_left_out() {
  expect_text 'one\r\ntwo\r\r' 'eno\nowt' --reverse
  expect_text 'one\rtwo\r' 'owt\reno' --reverse
  expect_text 'one\r' '  one' --right --width 5
}

very_long_words() {
  printf 'é%.0s' $(seq 200001) >"$work/word"
  { printf 'x '; cat "$work/word"; printf ' y\n'; } >"$work/input"
  { echo x; for ((i = 0; i < 20000; ++i)); do echo éééééééééé; done; echo 'é y'; } >"$work/expected"
  run --width 10 "$work/input"
  expect_status 0
  expect_file "$work/expected"
  run --right --width 10000 "$work/input"
  expect_status 0
  expect_file "$work/input"
}

very_long_lines() {
  awk 'BEGIN { for (i = 1; i <= 300000; ++i) printf "%s ", i % 3 ? "naïve" : "日本"; print "end" }' >"$work/input"
  run --width 60 "$work/input"
  expect_status 0
  expect_width 60
  expect_nothing_lost_of "$work/input"
  [ "$(wc -w <"$work/out")" -eq 300001 ] || fail "not every word"
}

# ---- other locales ----

plain_locale_counts_bytes() {
  export LC_ALL=C
  expect_text 'Gr\0303\0274n' ' Gr\0303\0274n' --right --width 6
  expect_text 'Gr\0303\0274n' 'n\0274\0303rG' --reverse
  expect_text '\0303\0274\0303\0274' '\0303\0274\0303\n\0274' --width 3
}

one_byte_locale() {
  use_locale de_DE.ISO-8859-1 de_DE ISO-8859-1
  expect_text 'Gr\0374\0337e' '  Gr\0374\0337e' --right --width 7
  expect_text 'Gr\0374\0337e' 'e\0337\0374rG' --reverse
  expect_text 'Gr\0303\0274n' ' Gr\0303\0274n' --right --width 6  # two letters, as far as this locale knows
  write_random_bytes 4 60000 >"$work/rubbish"
  run --center "$work/rubbish"
  expect_status 0
  expect_nothing_lost_of "$work/rubbish"
}

# In Shift_JIS the second byte of a character may be one that alone is a letter or a backslash.
japanese_locale() {
  use_locale ja_JP.SJIS ja_JP SHIFT_JIS
  expect_text '\0225\0134a' ' \0225\0134a' --right --width 4  # two columns and one
  expect_text 'a\0225\0134\0203Ab' 'b\0203A\0225\0134a' --reverse
  expect_text '\0225\0134\0203A' '\0225\0134\n\0203A' --width 3
  expect_text '\0261\0262' '  \0261\0262' --right --width 4  # narrow ones, of one byte
  expect_text '\0225\0134\0225' ' \0225\0134\0225' --right --width 4  # the last one is cut off
  write_random_bytes 5 60000 >"$work/rubbish"
  local layout
  for layout in wrap left right center; do
    run --$layout "$work/rubbish"
    expect_status 0
    expect_nothing_lost_of "$work/rubbish"
  done
}

locale_that_is_not_there() {
  export LC_ALL=xx_XX.nowhere
  printf 'Gr\303\274n\n' >"$work/input"
  printf ' Gr\303\274n\n' >"$work/expected"
  run --right --width 6 "$work/input"
  expect_status 0
  expect_file "$work/expected"
  expect_error 'justify: there is no locale as the environment names it; every byte is taken for a character'
}

# ---- inputs ----

standard_input() {
  run --width 40 <"$data/justify.txt"
  expect_status 0
  expect_file "$data/justify.wrap.expected"
  run --width 40 - <"$data/justify.txt"
  expect_status 0
  expect_file "$data/justify.wrap.expected"
  cat "$data/justify.txt" | "$program" --width 40 | cmp - "$data/justify.wrap.expected" || fail "a pipe gives another text"
}

several_files() {
  printf 'one\n' >"$work/1"
  printf 'two' >"$work/2"
  printf '  in\n two\n one\n' >"$work/expected"
  run --right --width 4 - "$work/2" "$work/1" <<<'in'
  expect_status 0
  expect_file "$work/expected"
  run --right --width 4 "$work/1" --width 5 "$work/2"  # options count for all files, wherever they stand
  printf '  one\n  two\n' >"$work/expected"
  expect_file "$work/expected"
}

missing_file() {
  run "$work/none"
  expect_status 1
  expect_no_output
  expect_error "justify: $work/none: No such file or directory"
  run ''
  expect_status 1
  expect_error 'justify: : No such file or directory'
  run "$work/Größe"
  expect_status 1
  expect_error "justify: $work/Größe: No such file or directory"
}

directory() {
  run "$work"
  expect_status 1
  expect_no_output
  expect_error "justify: $work: Is a directory"
  run - <"$work"
  expect_status 1
  expect_error 'justify: -: Is a directory'
}

unreadable_file() {
  echo secret >"$work/secret"
  run_with_unreadable "$work/secret"
  expect_status 1
  expect_no_output
  expect_error "justify: $work/secret: Permission denied"
}

trouble_with_one_file_leaves_the_others() {
  run --width 40 "$work/none" "$data/justify.txt" "$work"
  expect_status 1
  expect_error "justify: $work/none: No such file or directory" "justify: $work: Is a directory"
  expect_file "$data/justify.wrap.expected"
}

# ---- options ----

help() {
  run --help
  expect_status 0
  expect_no_errors
  expect_width 80
  local word
  for word in Usage: --help --width --wrap --left --right --center --reverse FILE locale 'Exit status'; do
    grep -Fq -- "$word" "$work/out" || fail "the help does not tell of $word"
  done
  run --width 100 --help "$work/none"
  expect_status 0
  expect_no_errors
}

expect_wrong_usage() {
  local message=$1
  shift
  run "$@" </dev/null
  expect_status 2
  expect_no_output
  expect_error "justify: $message"
}

wrong_options() {
  local number option
  for number in 0 1 -1 10001 4294967298 99999999999999999999 x 3x ' 3' 1.5 0x10 '' '２'; do
    expect_wrong_usage '--width is followed by a number from 2 to 10000' --width "$number" "$data/justify.txt"
  done
  expect_wrong_usage '--width is followed by a number from 2 to 10000' "$data/justify.txt" --width
  expect_wrong_usage '--width is followed by a number from 2 to 10000' --width --left
  for option in --frob -x -h --width=5 --lefty -- --- --größe; do
    expect_wrong_usage "there is no option $option; --help tells which there are" "$option" "$data/justify.txt"
    expect_wrong_usage "there is no option $option; --help tells which there are" --help "$option"
  done
}

full_disk() {
  run_with_full_disk "$data/justify.txt"
  expect_status 1
  expect_error 'justify: the text could not be written'
}

[ "$(locale charmap 2>/dev/null)" = UTF-8 ] || end_for_lack_of libc-bin
run_case
