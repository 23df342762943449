#!/usr/bin/env bash
# check_hardening.sh - reads the shared library as an ELF file: what is there to make an attacker's work hard has to be there.
# usage: check_hardening.sh LIBRARY 32|64 optimised|plain OBJECT;OBJECT;...
# The compiler's checks of stack and buffers are asked for in optimised builds only.
set -u
export LC_ALL=C

library=$1
width=$2
build=$3
IFS=';' read -ra objects <<<"$4"
failed=0
fail() {
  printf 'FAIL: %s\n' "$*"
  failed=1
}

dynamic=$(readelf -dW "$library") || { fail "cannot read $library"; exit 1; }
segments=$(readelf -lW "$library") || { fail "cannot read $library"; exit 1; }
symbols=$(readelf -sW --dyn-syms "$library") || { fail "cannot read $library"; exit 1; }

# Addresses of functions are all found while the library is loaded, and then protected from being overwritten.
grep -q 'GNU_RELRO' <<<"$segments" || fail "no part becomes read-only after loading"
grep -Eq '\(FLAGS\).*BIND_NOW' <<<"$dynamic" || fail "functions are bound when they are called, not when it is loaded"

# Nothing can be written and executed, the stack included; without its own segment the stack could be.
stack=$(grep 'GNU_STACK' <<<"$segments") || fail "says nothing about the stack"
read -r _ _ _ _ _ _ stackFlags _ <<<"$stack"
[ "$stackFlags" = RW ] || fail "the stack is $stackFlags, not RW"
! grep -Eq ' RWE ' <<<"$segments" || fail "has a segment that can be written and executed"
! grep -q 'TEXTREL' <<<"$dynamic" || fail "has text relocations, so its code is written to while it is loaded"

# Other libraries are sought where the system says, nowhere else.
! grep -Eq '\((RPATH|RUNPATH)\)' <<<"$dynamic" || fail "brings a search path of its own"

missing() {  # the name of a function that the library takes from others
  awk -v name="$1" '$7 == "UND" && $8 ~ name { found = 1 } END { exit found }' <<<"$symbols"
}
if [ "$build" = optimised ]; then
  ! missing '^__stack_chk_fail(_local)?(@|$)' || fail "no function checks that its stack is whole"
  for function in memcpy snprintf; do
    ! missing "^__${function}_chk(@|\$)" || fail "no $function checks the room it writes to"
  done
fi

if [ "$width" = 64 ]; then
  # The library as a whole is marked only where the C library's own start-up code is, which is not everywhere.
  [ "${#objects[@]}" -gt 10 ] || fail "was given only ${#objects[@]} object files"
  for object in "${objects[@]}"; do
    readelf -nW "$object" | grep -q 'x86 feature: IBT, SHSTK' || fail "${object##*/} is not marked for control-flow protection"
  done
  # Whoever has the address of an exported function jumps to it.
  unmarked=$(objdump -d --no-show-raw-insn "$library" | awk '
    /^[0-9a-f]+ </ { address = $1; sub(/^0+/, "", address); getline; if (!/endbr64/) print address }')
  exported=$(awk '$4 == "FUNC" && $7 != "UND" && $5 != "LOCAL" { address = $2; sub(/^0+/, "", address); print address }' <<<"$symbols" | sort -u)
  [ "$(wc -l <<<"$exported")" -gt 100 ] || fail "found only $(wc -l <<<"$exported") exported functions"
  bare=$(comm -12 <(sort -u <<<"$unmarked") <(printf '%s\n' "$exported"))
  [ -z "$bare" ] || fail "$(wc -l <<<"$bare") exported functions do not begin with a mark, such as the one at $(head -1 <<<"$bare")"
fi

[ "$failed" -eq 0 ] && printf '%s is as hard as it should be\n' "${library##*/}"
[ "$failed" -eq 0 ]
