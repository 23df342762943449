#!/usr/bin/env bash
# check_exports.sh - checks what the shared library offers and asks of others: names of its own classes and functions only,
# the type information of every class that is thrown, caught or derived from, its version in its name, and no library but the
# language's and C's.
# usage: check_exports.sh LIBRARY SONAME CLASSES.TXT SLOTS.TXT
set -u
export LC_ALL=C

library=$1
soname=$2
classes=$3
slots=$4
failed=0
fail() {
  printf 'FAIL: %s\n' "$*"
  failed=1
}

dynamic=$(readelf -d "$library") || { fail "cannot read $library"; exit 1; }
grep -qF "Library soname: [$soname]" <<<"$dynamic" || fail "the soname is not $soname"
while read -r needed; do
  case $needed in
    libc.so.* | libm.so.* | libstdc++.so.* | libgcc_s.so.*) ;;
    *) fail "needs $needed" ;;
  esac
done < <(sed -n 's/.*Shared library: \[\(.*\)\]/\1/p' <<<"$dynamic")
! grep -q 'TEXTREL' <<<"$dynamic" || fail "has text relocations"

symbols=$(nm -DC --defined-only "$library" | sed 's/^[0-9a-f]* *[A-Za-z] //; s/@@*[A-Za-z_0-9.]*$//')
count=$(grep -c . <<<"$symbols")
[ "$count" -gt 100 ] || fail "only $count symbols are exported"

# A name is the library's own when it is a member of one of its classes, belongs to the run-time type information of one, is one of
# the throw functions, or is an operator that takes one.
class_names=$(grep -v '^#' "$classes" | awk 'NF { print $1 }' | sort -u)
foreign=$(awk '
  NR == FNR { own[$1] = 1; next }
  /^(vtable|typeinfo|typeinfo name) for / { name = $0; sub(/.* for /, "", name); if (!(name in own)) print; next }
  /^IExcept__[A-Za-z]+\(/ || /^QUELMCL_[0-9.]+$/ { next }
  /^operator[^ A-Za-z]+\(/ { if ($0 !~ /[(, ]I[A-Z0-9][A-Za-z0-9]*( const)?&/ || /std::__cxx11|string_view/) print; next }
  {
    name = $0; sub(/\[abi:.*/, "", name)
    if (name !~ / operator/ && name !~ /::operator/) sub(/\(.*/, "", name); else sub(/::operator.*/, "::operator", name)
    sub(/::[^:]*$/, "", name)
    if (!(name in own) || /std::__cxx11|string_view|quelmcl::/) print
  }' <(printf '%s\n' "$class_names") - <<<"$symbols")
[ -z "$foreign" ] || fail "exports what is not its own:"$'\n'"$foreign"

for class in $(grep -v '^#' "$slots" | sed -n 's/:$//p'); do
  for what in vtable typeinfo 'typeinfo name'; do
    grep -qxF "$what for $class" <<<"$symbols" || fail "does not export the $what of $class"
  done
done

[ "$failed" -eq 0 ] && printf '%s: %d symbols, all its own\n' "${library##*/}" "$count"
[ "$failed" -eq 0 ]
