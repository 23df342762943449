#!/bin/bash
# calendar_test.sh PROGRAM CASE - runs one case against the program.
# shellcheck source=tests/examples/case.sh
source "$(dirname "${BASH_SOURCE[0]}")/case.sh"

# ---- running and judging ----

# The page of these arguments is what comes on standard input.
expect_page() {
  cat >"$work/expected"
  run "$@"
  expect_status 0
  expect_no_errors
  diff "$work/expected" "$work/out" || fail "the page of '$*' is another one"
}

need_cal() {
  command -v cal >/dev/null || end_for_lack_of ncal
}

# Without the blanks at the ends of lines, and without empty lines.
plain() { sed 's/[ \t]*$//; /^$/d' "$@"; }

# ---- pages ----

september_of_1752() {
  expect_page 9 1752 <<'END'
   September 1752
Su Mo Tu We Th Fr Sa
       1  2 14 15 16
17 18 19 20 21 22 23
24 25 26 27 28 29 30
END
}

month_that_begins_with_its_week() {
  expect_page --monday 2 2021 <<'END'
   February 2021
Mo Tu We Th Fr Sa Su
 1  2  3  4  5  6  7
 8  9 10 11 12 13 14
15 16 17 18 19 20 21
22 23 24 25 26 27 28
END
}

first_month_of_all() {
  expect_page --monday 1 -4713 <<'END'
  January 4713 BC
Mo Tu We Th Fr Sa Su
 1  2  3  4  5  6  7
 8  9 10 11 12 13 14
15 16 17 18 19 20 21
22 23 24 25 26 27 28
29 30 31
END
}

leap_day_of_1_BC() {
  expect_page --monday 2 -1 <<'END'
   February 1 BC
Mo Tu We Th Fr Sa Su
                   1
 2  3  4  5  6  7  8
 9 10 11 12 13 14 15
16 17 18 19 20 21 22
23 24 25 26 27 28 29
END
}

# The calendar is the same every 400 years, so this is December 2107.
last_month_of_all() {
  expect_page --sunday 12 11754507 <<'END'
 December 11754507
Su Mo Tu We Th Fr Sa
             1  2  3
 4  5  6  7  8  9 10
11 12 13 14 15 16 17
18 19 20 21 22 23 24
25 26 27 28 29 30 31
END
}

year_of_1752() {
  run 1752
  expect_status 0
  expect_no_errors
  cat >"$work/expected" <<'END'
        July                 August              September
Su Mo Tu We Th Fr Sa  Su Mo Tu We Th Fr Sa  Su Mo Tu We Th Fr Sa
          1  2  3  4                     1         1  2 14 15 16
 5  6  7  8  9 10 11   2  3  4  5  6  7  8  17 18 19 20 21 22 23
12 13 14 15 16 17 18   9 10 11 12 13 14 15  24 25 26 27 28 29 30
19 20 21 22 23 24 25  16 17 18 19 20 21 22
26 27 28 29 30 31     23 24 25 26 27 28 29
                      30 31
END
  sed -n '/July/,/^$/p' "$work/out" | sed '/^$/d' | diff "$work/expected" - || fail "the third row is another one"
  [ "$(head -n 1 "$work/out" | tr -d ' ')" = 1752 ] || fail "the title is not the year"
  [ "$(wc -L <"$work/out")" -le 64 ] || fail "the page is too wide"
}

# ---- an independent calendar ----

months_are_those_of_cal() {
  need_cal
  local month year
  for year in 1 4 100 1582 1600 1700 1751 1752 1753 1800 1900 1970 2000 2024 2100 9999; do
    for month in 1 2 3 9 10 12; do
      cal "$month" "$year" | plain >"$work/expected"
      run --sunday "$month" "$year"
      plain "$work/out" | diff "$work/expected" - || fail "cal has another $month $year"
    done
  done
}

years_are_those_of_cal() {
  need_cal
  local year
  for year in 4 1700 1752 1900 2026; do
    cal "$year" | plain | tail -n +2 >"$work/expected"  # the title stands elsewhere
    run "$year"
    plain "$work/out" | tail -n +2 | diff "$work/expected" - || fail "cal has another $year"
  done
}

every_year_has_its_days() {
  local year days
  while read -r year days; do
    run "$year"
    expect_status 0
    [ "$(tail -n +2 "$work/out" | grep -o '[0-9]\+' | wc -l)" -eq "$days" ] || fail "$year has not $days days"
  done <<'END'
-4713 366
-4712 365
-2 365
-1 366
1 365
4 366
1700 366
1752 355
1800 365
2000 366
2100 365
11754507 365
END
}

this_month() {
  local before after
  before=$(date +'%B %Y')
  run
  after=$(date +'%B %Y')
  expect_status 0
  expect_no_errors
  local title
  title=$(head -n 1 "$work/out" | sed 's/^ *//')
  [ "$title" = "$before" ] || [ "$title" = "$after" ] || fail "the title is not $after"
  [ "$(tail -n 1 "$work/out" | grep -o '[0-9]\+' | tail -n 1)" = "$(date -d "$(date +%Y-%m-01) +1 month -1 day" +%-d)" ] ||
    [ "$before" != "$after" ] || fail "the last day is another one"
}

# ---- arguments ----

months_have_names() {
  local name
  run 3 2026
  cp "$work/out" "$work/march"
  for name in March march MAR mar 03; do
    expect_page "$name" 2026 <"$work/march"
  done
  run 5 2026
  cp "$work/out" "$work/may"
  expect_page may 2026 <"$work/may"
}

weeks_begin_as_wanted() {
  run --sunday 9 2026
  [ "$(sed -n 2p "$work/out")" = 'Su Mo Tu We Th Fr Sa' ] || fail "not from Sunday"
  run --monday 9 2026
  [ "$(sed -n 2p "$work/out")" = 'Mo Tu We Th Fr Sa Su' ] || fail "not from Monday"
  run --monday --sunday 9 2026  # the last one counts
  [ "$(sed -n 2p "$work/out")" = 'Su Mo Tu We Th Fr Sa' ] || fail "not from Sunday"
}

help() {
  run --help
  expect_status 0
  expect_no_errors
  [ "$(wc -L <"$work/out")" -le 80 ] || fail "too wide"
  local word
  for word in Usage: --help --monday --sunday MONTH YEAR 1752 11754507 4713 'Exit status'; do
    grep -Fq -- "$word" "$work/out" || fail "the help does not tell of $word"
  done
  run --help 3 2026
  expect_status 0
  grep -q Usage: "$work/out" || fail "no help"
}

expect_wrong_usage() {
  local message=$1
  shift
  run "$@"
  expect_status 2
  [ ! -s "$work/out" ] || fail "something on standard output"
  expect_error "calendar: $message"
}

wrong_arguments() {
  local year month option
  for year in 0 -0 -4714 11754508 99999999999999999999 -99999999999999999999 x 20x6 '' ' 5' 1.5 2026- 20-26; do
    expect_wrong_usage 'the year is a number from -4713 to -1 or from 1 to 11754507' "$year"
    expect_wrong_usage 'the year is a number from -4713 to -1 or from 1 to 11754507' 3 "$year"
  done
  for month in 0 13 4294967297 -1 '' J Ju M x marchy; do
    expect_wrong_usage "the month is a number from 1 to 12 or the beginning of one name: $month" "$month" 2026
  done
  for option in --frob -x -h --help=5 -- --- -12x --5; do
    expect_wrong_usage "there is no option $option; --help tells which there are" "$option"
  done
  expect_wrong_usage 'there is more than a month and a year' 1 2 3
}

full_disk() {
  run_with_full_disk 2026
  expect_status 1
  expect_error 'calendar: the calendar could not be written'
}

# ---- locales ----

german() {
  use_locale de_DE.UTF-8 de_DE UTF-8
  cat >"$work/page" <<'END'
     März 2026
Mo Di Mi Do Fr Sa So
                   1
 2  3  4  5  6  7  8
 9 10 11 12 13 14 15
16 17 18 19 20 21 22
23 24 25 26 27 28 29
30 31
END
  expect_page 3 2026 <"$work/page"
  expect_page mär 2026 <"$work/page"
  run 2026
  [ "$(sed -n 3p "$work/out")" = '       Januar               Februar                 März' ] || fail "the names are not in the middle"
}

german_of_one_byte_characters() {
  use_locale de_DE.ISO-8859-1 de_DE ISO-8859-1
  run 3 2026
  printf '     M\344rz 2026\n' | cmp -s - <(head -n 1 "$work/out") || fail "the title is another one"
}

japanese() {
  use_locale ja_JP.EUC-JP ja_JP EUC-JP
  run 3 2026
  expect_status 0
  expect_no_errors
  # Sunday to Saturday, each of two columns and two bytes; the title has a character of two columns
  printf '      3\267\356 2026\n\306\374 \267\356 \262\320 \277\345 \314\332 \266\342 \305\332\n' |
    cmp -s - <(head -n 2 "$work/out") || fail "the names are others"
}

locale_that_is_not_there() {
  export LC_ALL=xx_XX.nowhere
  run 9 1752
  expect_status 0
  expect_error 'calendar: there is no locale as the environment names it; the names are English'
  [ "$(head -n 1 "$work/out")" = '   September 1752' ] || fail "the title is another one"
}

run_case
