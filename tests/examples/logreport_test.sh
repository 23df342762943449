#!/bin/bash
# logreport_test.sh PROGRAM CASE - runs one case against the program.
# shellcheck source=tests/examples/case.sh
source "$(dirname "${BASH_SOURCE[0]}")/case.sh"

# ---- running and judging ----

expect_line() { grep -Fxq -- "$1" "$work/out" || fail "no line '$1'"; }
expect_page() { diff "$data/$1" "$work/out" || fail "the report is not $1"; }
expect_width() {
  local widest
  widest=$(awk '{ if (length($0) > n) n = length($0) } END { print n + 0 }' "$work/out")
  [ "$widest" -le "$1" ] || fail "a line has $widest columns, not $1 at most"
}

# What reaches a terminal is visible ASCII, whatever was in the input.
expect_harmless_output() {
  local file
  for file in out err; do
    [ "$(tr -d ' -~\n' <"$work/$file" | wc -c)" -eq 0 ] || fail "unprintable bytes in std$file"
  done
}

# The number of a line such as "  Lines   42, 3 malformed", or of a row of a chart.
lines_reported() { awk '$1 == "Lines" && $3 ~ /^[0-9]+$/ { print $2 + 0; exit }' "$work/out"; }
malformed_reported() { awk '$1 == "Lines" && $4 == "malformed" { print $3; exit }' "$work/out"; }
expect_lines() {
  [ "$(lines_reported)" = "$1" ] || fail "the report tells of $(lines_reported) lines, not $1"
  [ "$(malformed_reported)" = "$2" ] || fail "the report tells of $(malformed_reported) malformed lines, not $2"
}

# The rows of a section, without its heading.
section() { awk -v heading="$1" 'inside && NF == 0 { exit } inside { print } index($0, heading) == 1 { inside = 1 }' "$work/out"; }
expect_section() {
  section "$1" | diff - "$work/expected" || fail "the section '$1' is not the expected one"
}

# The parts of a chart and of the table of packages, as a few words of awk count them.
count_actions() { cat "$@" | awk '{ ++n[$3] } END { for (a in n) print n[a], a }' | sort -k1,1nr -k2,2; }
count_days() { cat "$@" | awk '{ ++n[$1] } END { for (d in n) print d, n[d] }' | sort; }
count_packages() {
  cat "$@" | awk '$3 == "status" { ++n[$5] } $3 !~ /^(status|startup|conffile)$/ { ++n[$4] }
                  END { for (p in n) { split(p, part, ":"); print n[p], part[1], part[2] } }' | sort -k1,1nr -k2,3
}
expect_counts_of() {
  count_actions "$@" >"$work/expected"
  section "Lines per action" | awk '{ print $2, $1 }' | diff - "$work/expected" || fail "the actions are counted otherwise"
  count_days "$@" >"$work/expected"
  section "Lines per day" | awk '{ print $1, $2 }' | diff - "$work/expected" || fail "the days are counted otherwise"
  count_packages "$@" >"$work/expected"
  section "Packages touched most" | awk 'NR > 1 { print $3, $1, $2 == "-" ? "" : $2 }' | diff - "$work/expected" ||
    fail "the packages are counted otherwise"
}

# ---- the report ----

report_is_the_expected_page() {
  cd "$data" || exit 1
  run sample.log
  expect_status 0
  expect_no_errors
  expect_page sample.expected
}

short_period_is_shown_by_the_hour() {
  cd "$data" || exit 1
  run --width 60 twodays.log
  expect_status 0
  expect_no_errors
  expect_page twodays.expected
}

two_days_are_hours_and_three_are_days() {
  # first day, last day, days covered: over the ends of months and of years, leap or not
  while read -r first last days; do
    printf '%s 00:00:00 startup archives unpack\n%s 23:59:59 startup packages configure\n' "$first" "$last" >"$work/log"
    run "$work/log"
    expect_status 0
    expect_line "  Days    $days"
    if [ "$days" -lt 3 ]; then expect_line "Lines per hour"; else expect_line "Lines per day"; fi
  done <<'END'
2026-05-09 2026-05-09 1
2026-05-09 2026-05-10 2
2026-05-09 2026-05-11 3
2024-02-28 2024-03-01 3
2023-02-28 2023-03-01 2
2100-02-28 2100-03-01 2
2000-02-28 2000-03-01 3
2025-12-31 2026-01-01 2
2025-12-30 2026-01-01 3
2025-01-01 2026-01-01 366
2024-01-01 2025-01-01 367
2026-04-30 2026-05-01 2
2026-07-31 2026-08-31 32
END
}

counts_agree_with_a_count_of_words() {
  run --top 1000 "$data/sample.log"
  expect_status 0
  expect_lines "$(wc -l <"$data/sample.log")" 0
  expect_counts_of "$data/sample.log"
}

own_machines_log() {
  if ! [ -s /var/log/dpkg.log ] || ! [ -r /var/log/dpkg.log ]; then skip "this machine has no package log to read"; fi
  cat /var/log/dpkg.log >"$work/log"  # a copy, since the log may grow meanwhile
  [ "$(tail -c 1 "$work/log" | wc -l)" -eq 1 ] || sed -i '$d' "$work/log"  # and its last line may be half written
  run --top 1000000 --width 200 "$work/log"
  expect_status 0
  expect_no_errors
  expect_width 200
  expect_lines "$(wc -l <"$work/log")" 0
  if section "Lines per hour" | grep -q .; then
    count_actions "$work/log" >"$work/expected"
    section "Lines per action" | awk '{ print $2, $1 }' | diff - "$work/expected" || fail "the actions are counted otherwise"
  else
    expect_counts_of "$work/log"
  fi
}

no_file_named_means_the_own_machines_log() {
  run --top 3 </dev/null
  if [ -r /var/log/dpkg.log ] && [ -s /var/log/dpkg.log ]; then
    expect_line "  Source  /var/log/dpkg.log"
  else
    expect_status 1
    grep -q '^logreport: /var/log/dpkg.log: ' "$work/err" || fail "the log is not named in the message"
  fi
}

no_line_is_wider_than_the_page() {
  write_random_bytes 7 3000 >"$work/rubbish-with-quite-a-long-name-that-will-not-fit-into-a-narrow-page.log"
  printf '2026-05-09 08:15:02 install %s:%s <none> %s\n' \
    "a-package-with-a-very-long-name-$(printf '%0200d' 0)" some-long-architecture "1:$(printf '%0300d' 0)" >"$work/long.log"
  local width
  for width in 40 41 42 59 60 79 80 81 120 200 999 1000; do
    run --width "$width" "$data/sample.log" "$data/twodays.log" "$work"/*.log
    expect_status 1
    expect_width "$width"
    run --width "$width" "$data/twodays.log"
    expect_status 0
    expect_width "$width"
    head -n 1 "$work/out" | awk -v width="$width" '{ exit length($0) != width }' || fail "the title does not fill $width columns"
    section "Lines per hour" | head -n 1 | awk -v width="$width" '{ exit length($0) != width }' ||
      fail "the longest bar does not reach column $width"
  done
}

top_limits_the_packages() {
  local top
  for top in 1 2 4 5; do
    run --top "$top" "$data/sample.log"
    expect_status 0
    expect_line "Packages touched most, $top of 5"
    [ "$(section "Packages touched most" | wc -l)" -eq $((top + 1)) ] || fail "not $top packages"
  done
  run --top 6 "$data/sample.log"
  expect_line "Packages touched most, 5 of 5"
}

order_of_files_does_not_matter() {
  head -n 18 "$data/sample.log" >"$work/older"  # ends before the upgrade of a package
  tail -n +19 "$data/sample.log" >"$work/newer"
  run "$work/newer" "$work/older"
  expect_status 0
  tail -n +3 "$work/out" >"$work/backwards"
  (cd "$data" && exec "$program" sample.log) | tail -n +3 | diff - "$work/backwards" || fail "two files give another report than one"
  run "$data/sample.log" "$data/sample.log"
  expect_status 0
  expect_lines 84 0
}

latest_version_is_shown() {
  cat >"$work/log" <<'END'
2026-05-09 08:15:02 install installed:amd64 <none> 1.1
2026-05-09 08:15:02 upgrade upgraded:amd64 1.1 1.2
2026-05-09 08:15:02 configure configured:amd64 1.3 <none>
2026-05-09 08:15:02 status unpacked unpacked:amd64 1.4
2026-05-09 08:15:02 status half-configured same-second:amd64 1.5
2026-05-09 08:15:02 status unpacked same-second:amd64 1.6
2026-05-09 08:15:02 status unpacked same-second:amd64 1.10
2026-05-09 08:15:02 purge purged:amd64 1.7 <none>
2026-05-09 08:15:03 status not-installed purged:amd64 <none>
2026-05-09 08:15:03 status installed two-widths:amd64 1.8
2026-05-09 08:15:03 status installed two-widths:i386 1.9
2026-05-09 08:15:03 status not-installed never:amd64 <none>
END
  cat >"$work/expected" <<'END'
configured amd64 1.3
installed amd64 1.1
never amd64
purged amd64 1.7
same-second amd64 1.10
two-widths amd64 1.8
two-widths i386 1.9
unpacked amd64 1.4
upgraded amd64 1.2
END
  run "$work/log"
  expect_status 0
  section "Packages touched most" | awk 'NR > 1 { print $1, $2 (NF > 3 ? " " $4 : "") }' | sort |
    diff - "$work/expected" || fail "other versions"
}

what_is_rare_has_a_mark_too() {
  { # one line on one day, 300 on another: less than half a mark to scale
    echo '2026-05-09 08:15:02 startup archives unpack'
    printf '2026-05-19 08:15:02 status unpacked package%s:amd64 1.0\n' $(seq 300)
  } >"$work/log"
  run "$work/log"
  expect_status 0
  expect_line "  startup    1  #"
  expect_line "  2026-05-09    1  #"
}

standard_input() {
  run - <"$data/sample.log"
  expect_status 0
  expect_line "  Source  -"
  tail -n +3 "$work/out" >"$work/piped"
  tail -n +3 "$data/sample.expected" | diff - "$work/piped" || fail "standard input gives another report than the file"
  run "$data/twodays.log" - <"$data/sample.log"
  expect_status 0
  expect_lines 51 0
}

# ---- rubbish ----

malformed_lines_are_counted_and_shown() {
  {
    echo '2026-05-09 08:15:02 startup archives unpack'
    echo 'no log at all'
    echo
    echo '2026-05-09 08:15:02 explode libgdbm6:amd64 <none> 1.23-3'
    echo '2026-05-09 08:15:02 install libgdbm6:amd64 <none>'
    echo '2026-05-09 08:15:02 install libgdbm6:amd64 <none> 1.23-3 1.24'
    printf '2026-05-09 08:15:02 install libgdbm6\033[31m:amd64 <none> 1.23-3\n'
    echo '2026-05-09 08:15:03 install libgdbm6:amd64 <none> 1.23-3'
  } >"$work/dpkg.log"
  run "$work/dpkg.log"
  expect_status 1
  expect_no_errors
  expect_harmless_output
  expect_lines 8 6
  expect_line '  From    2026-05-09 08:15:02'
  expect_line '  To      2026-05-09 08:15:03'
  cat >"$work/expected" <<'END'
  dpkg.log:2: no date and time in front: no log at all
  dpkg.log:3: no date and time in front:
  dpkg.log:4: unknown action: 2026-05-09 08:15:02 explode libgdbm6:amd64 <none..
  dpkg.log:5: too few words: 2026-05-09 08:15:02 install libgdbm6:amd64 <none>
  dpkg.log:6: too many words: 2026-05-09 08:15:02 install libgdbm6:amd64 <none..
END
  expect_section "Malformed lines, 5 of 6"

  sed -n 7p "$work/dpkg.log" >"$work/escape.log"
  run --width 120 "$work/escape.log"
  expect_status 1
  expect_line '  escape.log:1: unprintable bytes: 2026-05-09 08:15:02 install libgdbm6\x1B[31m:amd64 <none> 1.23-3'
  [ "$(grep -c 'Lines per\|Packages' "$work/out")" -eq 0 ] || fail "charts of nothing"

  # dates and times that are none, each alone in a file; then the outermost ones that are
  local moment
  for moment in '2026-00-09 08:15:02' '2026-13-09 08:15:02' '2026-05-00 08:15:02' '2026-05-32 08:15:02' '2026-05-09 24:15:02' \
    '2026-05-09 08:60:02' '2026-05-09 08:15:61' '26-05-09 08:15:02' '2026-05-09 08:15' '2026/05/09 08:15:02' \
    '2026-05-09T08:15:02 x' '2026-05-0x 08:15:02' '08:15:02 2026-05-09' '12026-05-09 08:15:02' '2026-05-09 08:15:02Z'; do
    echo "$moment startup archives unpack" >"$work/log"
    run "$work/log"
    expect_status 1
    expect_lines 1 1
  done
  for moment in '2026-01-01 00:00:00' '2026-12-31 23:59:60' '0000-01-01 00:00:00' '9999-12-31 23:59:59'; do
    echo "$moment startup archives unpack" >"$work/log"
    run "$work/log"
    expect_status 0
    expect_lines 1 0
    expect_line "  From    $moment"
  done
}

lines_cut_at_any_place() {
  awk '{ for (i = 1; i <= length($0); ++i) print substr($0, 1, i) }' "$data/sample.log" >"$work/cut"
  # A cut line is a line of the log again as soon as no word is missing.
  local whole
  whole=$(awk '$3 ~ /^(startup|conffile)$/ && NF >= 5 || NF == 6' "$work/cut" | wc -l)
  run "$work/cut"
  expect_status 1
  expect_lines "$(wc -l <"$work/cut")" $(($(wc -l <"$work/cut") - whole))
}

nul_bytes() {
  printf '2026-05-09 08:15:02 install lib\0x:amd64 <none> 1.23-3\n\0\0\0\n2026-05-09 08:15:02\0 startup archives unpack\n' >"$work/log"
  run "$work/log"
  expect_status 1
  expect_harmless_output
  expect_lines 3 3
  expect_line '  log:1: unprintable bytes: 2026-05-09 08:15:02 install lib\x00x:amd64 <none> ..'
  expect_line '  log:2: no date and time in front: \x00\x00\x00'
  expect_line '  log:3: no date and time in front: 2026-05-09 08:15:02\x00 startup archives u..'
}

random_bytes() {
  local seed
  for seed in 1 2 3; do
    write_random_bytes "$seed" 60000 >"$work/rubbish"
    [ "$(tr -dc '\000' <"$work/rubbish" | wc -c)" -gt 0 ] || fail "the generator made no NUL bytes"
    echo >>"$work/rubbish"
    run "$work/rubbish"
    expect_status 1
    expect_no_errors
    expect_harmless_output
    expect_width 80
    expect_lines "$(wc -l <"$work/rubbish")" "$(wc -l <"$work/rubbish")"
    cat "$work/rubbish" "$data/sample.log" "$work/rubbish" >"$work/mixed"
    run - <"$work/mixed"
    expect_status 1
    expect_harmless_output
    expect_lines "$(wc -l <"$work/mixed")" $((2 * $(wc -l <"$work/rubbish")))
    expect_counts_of "$data/sample.log"
  done
}

very_long_lines() {
  local million words
  million=$(printf '%01000000d' 0)
  words=$(printf ' x%.0s' $(seq 500000))
  printf '%s\n%1000000s\n%s\n' "$million" ' ' "$words" >"$work/log"
  {
    printf '2026-05-09 08:15:02 startup archives %s\n' "$million"
    printf '2026-05-09 08:15:02 install %s:amd64 <none> %s\n' "$million" "$million"
    printf '2026-05-09 08:15:02 conffile /etc/%s keep\n' "$words"
  } >>"$work/log"
  run "$work/log"
  expect_status 1
  expect_no_errors
  expect_width 80
  expect_lines 6 3
  [ "$(section "Lines per action" | wc -l)" -eq 3 ] || fail "not three actions"
  [ "$(section "Packages touched most" | grep -c ' 0000000')" -eq 1 ] || fail "the package with the long name is missing"
}

last_line_without_its_end() {
  printf '2026-05-09 08:15:02 startup archives unpack\n2026-05-09 08:15:04 startup packages configure' >"$work/log"
  run "$work/log"
  expect_status 0
  expect_lines 2 0
  expect_line '  To      2026-05-09 08:15:04'
}

carriage_returns() {
  sed 's/$/\r/' "$data/sample.log" >"$work/log"
  run "$work/log"
  expect_status 0
  expect_harmless_output
  tail -n +3 "$work/out" >"$work/converted"
  tail -n +3 "$data/sample.expected" | diff - "$work/converted" || fail "carriage returns change the report"
}

# ---- inputs that cannot be read ----

empty_input() {
  : >"$work/empty"
  run "$work/empty"
  expect_status 1
  expect_no_output
  expect_error "logreport: $work/empty: there is not a single line in it"
  run - </dev/null
  expect_status 1
  expect_no_output
  expect_error "logreport: -: there is not a single line in it"
}

missing_file() {
  run "$work/none"
  expect_status 1
  expect_no_output
  expect_error "logreport: $work/none: No such file or directory"
  run ""
  expect_status 1
  expect_error "logreport: : No such file or directory"
  run "$(printf 'a\033[2Jb')"
  expect_status 1
  expect_error 'logreport: a\x1B[2Jb: No such file or directory'
}

directory() {
  run "$work"
  expect_status 1
  expect_no_output
  expect_error "logreport: $work: Is a directory"
  run - <"$work"
  expect_status 1
  expect_no_output
  expect_error "logreport: -: Is a directory"
}

unreadable_file() {
  cp "$data/sample.log" "$work/secret"
  run_with_unreadable "$work/secret"
  expect_status 1
  expect_no_output
  expect_error "logreport: $work/secret: Permission denied"
}

trouble_with_one_file_leaves_the_others() {
  cd "$data" || exit 1
  run "$work/none" sample.log "$work" /dev/null
  expect_status 1
  expect_error "logreport: $work/none: No such file or directory" "logreport: $work: Is a directory" \
    "logreport: /dev/null: there is not a single line in it"
  tail -n +3 "$work/out" >"$work/rest"
  tail -n +3 sample.expected | diff - "$work/rest" || fail "the report is not about the file that could be read"
}

# ---- options ----

help() {
  run --help
  expect_status 0
  expect_no_errors
  expect_width 80
  local word
  for word in Usage: --help --top --width FILE /var/log/dpkg.log 'Exit status'; do
    grep -Fq -- "$word" "$work/out" || fail "the help does not tell of $word"
  done
  run --width 100 --help "$work/none"
  expect_status 0
  expect_no_errors
}

expect_wrong_usage() {
  local rule=$1
  shift
  run "$@" </dev/null
  expect_status 2
  expect_no_output
  [ "$(wc -l <"$work/err")" -eq 1 ] || fail "not one line on standard error"
  grep -Fq -- ": $rule" "$work/err" || fail "the message does not tell that $rule"
}

wrong_options() {
  local number
  for number in 0 -1 1000001 99999999999999999999 x 3x ' 3' 1.5 0x10 ''; do
    expect_wrong_usage '--top is followed by a number from 1 to 1000000' --top "$number" "$data/sample.log"
  done
  for number in 0 39 1001 4294967336 eighty -80 '80 '; do
    expect_wrong_usage '--width is followed by a number from 40 to 1000' --width "$number" "$data/sample.log"
  done
  expect_wrong_usage '--top is followed by a number' --top
  expect_wrong_usage '--width is followed by a number' "$data/sample.log" --width
  expect_wrong_usage '--top is followed by a number' --top --width 80
  local option
  for option in --frob -x -h --top=5 --helpme -- ---; do
    expect_wrong_usage "$option is one of --help, --top, --width" "$option" "$data/sample.log"
  done
  expect_wrong_usage '--a\x07b is one of' "$(printf -- '--a\ab')"
  expect_wrong_usage '--frob is one of' --help --frob
  grep -Fq 'Unable to load' "$work/err" && fail "the text is not the catalog's"
}

wrong_option_without_a_catalog() {
  NLSPATH="$work/%N" run --frob
  expect_status 2
  expect_no_output
  expect_error 'logreport: --frob is one of --help, --top, --width'
}

full_disk() {
  run_with_full_disk "$data/sample.log"
  expect_status 1
  expect_error 'logreport: the report could not be written'
}

run_case
