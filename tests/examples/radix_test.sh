#!/bin/bash
# radix_test.sh PROGRAM CASE - runs one case against the program.
# shellcheck source=tests/examples/case.sh
source "$(dirname "${BASH_SOURCE[0]}")/case.sh"

# ---- running and judging ----

expect_lines() { printf '%s\n' "$@" | cmp -s - "$work/out" || fail "the lines are not '$*'"; }
expect_bytes() { printf '%b' "$1" | cmp - "$work/out" || fail "the bytes are not those of '$1'"; }

# expect FROM TO NUMBER EXPECTED
expect() {
  run --from "$1" --to "$2" "$3" </dev/null
  expect_status 0
  expect_no_errors
  expect_lines "$4"
}

# ---- cases ----

digits() {
  expect 10 16 255 FF
  expect 10 2 10 1010
  expect 16 10 ff 255
  expect 16 10 FF 255
  expect 16 2 1ab 110101011
  expect 2 16 101010 2A
  expect 2 10 11111111 255
  expect 10 10 000123 123
  expect 16 16 00ab AB
}

zero_is_one_digit() {
  local from to
  for from in 2 10 16; do
    for to in 2 10 16; do
      expect $from $to 0 0
      expect $from $to 00000000000000000000 0
    done
  done
}

large_numbers_are_not_cut() {
  expect 10 16 4294967295 FFFFFFFF
  expect 10 16 9999999999 2540BE3FF
  expect 10 16 18446744073709551616 10000000000000000
  expect 16 10 FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF 340282366920938463463374607431768211455
}

decimal_and_hexadecimal_are_the_defaults() {
  run 255 256 </dev/null
  expect_status 0
  expect_lines FF 100
  printf '4096\n' | run
  expect_lines 1000
}

standard_input() {
  printf '1\n 10 \t\r\n255' >"$work/in"
  run <"$work/in"
  expect_status 0
  expect_no_errors
  expect_lines 1 A FF
}

empty_input_gives_empty_output() {
  run </dev/null
  expect_status 0
  expect_no_errors
  expect_no_output
}

bytes_in() {
  printf 'A\0B' >"$work/in"
  run --from bytes --to 16 <"$work/in"
  expect_status 0
  expect_lines 410042
  run --from bytes --to 10 <"$work/in"
  expect_lines 4259906
  run --from bytes --to 10 AB </dev/null
  expect_lines 16706
  printf '\0\0\0\0\0\0' >"$work/in"
  run --from bytes --to 10 <"$work/in"
  expect_lines 0
}

bytes_out() {
  run --from 16 --to bytes 410042 </dev/null
  expect_status 0
  expect_no_errors
  expect_bytes 'A\0000B'
  run --to bytes 65 66 </dev/null
  expect_bytes AB
}

bytes_survive() {
  head -c 5000 "$program" >"$work/in"
  run --from bytes --to bytes <"$work/in"
  cmp "$work/in" "$work/out" || fail "the bytes have changed"
}

very_long_numbers() {
  local nines
  nines=$(printf '9%.0s' $(seq 40000))
  printf '%s\n' "$nines" >"$work/in"
  run --from 10 --to 2 <"$work/in"
  expect_status 0
  [ "$(head -c -1 "$work/out" | wc -c)" -eq 132878 ] || fail "10^40000 - 1 has 132878 bits"
  cp "$work/out" "$work/in"
  run --from 2 --to 16 <"$work/in"
  cp "$work/out" "$work/in"
  run --from 16 --to 10 <"$work/in"
  expect_lines "$nines"
}

wrong_digits() {
  run 12a4 </dev/null
  expect_status 1
  expect_no_output
  expect_error "radix: 12a4: 'a' at place 3 is no decimal digit"
  run --from 2 102 </dev/null
  expect_error "radix: 102: '2' at place 3 is no binary digit"
  run --from 16 0x10 </dev/null
  expect_error "radix: 0x10: 'x' at place 2 is no hexadecimal digit"
  run '1 0' </dev/null
  expect_error 'radix: 1 0: byte 0x20 at place 2 is no decimal digit'
  run '' </dev/null
  expect_status 1
  expect_error 'radix: there are no digits'
}

wrong_numbers_leave_the_others() {
  run 1 x 10 </dev/null
  expect_status 1
  expect_lines 1 A
  expect_error "radix: x: 'x' at place 1 is no decimal digit"
  printf '1\n\n1-\n10\n' >"$work/in"
  run <"$work/in"
  expect_status 1
  expect_lines 1 A
  expect_error 'radix: line 2: there are no digits' "radix: line 3: 1-: '-' at place 2 is no decimal digit"
}

long_wrong_numbers_are_shortened() {
  run "$(printf '7%.0s' $(seq 1000))x" </dev/null
  expect_status 1
  expect_error "radix: 77777777777777777777...7777777777777777777x: 'x' at place 1001 is no decimal digit"
}

help() {
  run --help </dev/null
  expect_status 0
  expect_no_errors
  grep -q '^Usage: radix' "$work/out" || fail "no usage"
  [ "$(wc -L <"$work/out")" -le 80 ] || fail "the help is wider than 80 columns"
}

wrong_options() {
  run --from 8 1 </dev/null
  expect_status 2
  expect_error 'radix: --from is followed by 2, 10, 16 or bytes'
  run --to </dev/null
  expect_status 2
  expect_error 'radix: --to is followed by 2, 10, 16 or bytes'
  run -5 </dev/null
  expect_status 2
  expect_no_output
  expect_error 'radix: there is no option -5; --help tells which there are'
}

full_disk() {
  run_with_full_disk 255 </dev/null
  expect_status 1
  expect_error 'radix: the numbers could not be written'
}

directory() {
  run <"$work"
  expect_status 1
  expect_error 'radix: standard input could not be read'
}

run_case
