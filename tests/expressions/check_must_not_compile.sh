#!/usr/bin/env bash
# check_must_not_compile.sh - proves that every doubtful line of must_not_compile.cpp is refused, or warned of.
# usage: check_must_not_compile.sh SOURCE COMPILER [FLAG...]
# First the control compiles without a warning. Then all lines are compiled at once, and each must have a diagnostic of its own;
# a line without one is tried alone before it counts as a failure, and an error on any other line is a failure, too.
set -u
export LC_ALL=C

source_file=$1
compiler=$2
shift 2
flags=("$@" -fsyntax-only)
case $("$compiler" --version) in
  *clang*)
    family=clang++
    flags+=(-ferror-limit=0)
    ;;
  *)
    family=g++
    flags+=(-fmax-errors=0)
    ;;
esac

failures=0
fail() {
  printf 'FAIL: %s\n' "$*"
  failures=$((failures + 1))
}

compile() { # CASE [FLAG...]
  local number=$1
  shift
  "$compiler" "${flags[@]}" "$@" "-DCASE=$number" "$source_file" 2>&1
}

# "LINE NUMBER [OPTION [COMPILER]]" for each line that stands under the given macro.
lines_of() { # MACRO
  awk -v macro="$1" '
    $1 == "#if" && index($2, macro "(") == 1 {
      number = $2; gsub(/[^0-9]/, "", number); option = $4; only = $5; inside = 1; next
    }
    $1 == "#endif" { inside = 0 }
    inside { print NR, number, option, only }' "$source_file"
}

shown() { sed -n "$1{s/^ *//;p;}" "$source_file"; }

# The lines of the source file that have an error, as the text of the compiler's messages tells.
error_lines() { awk -v file="$source_file:" 'index($0, file) == 1 { split(substr($0, length(file) + 1), part, ":")
                                             if (part[3] ~ /^ (fatal )?error$/) print part[1] }' | sort -nu; }

check_refusals() { # STANDARD
  local line number lines count=0 expected=
  lines=$(compile -1 "-std=$1" | error_lines)
  while read -r line number _; do
    count=$((count + 1))
    expected+="$line"$'\n'
    if ! grep -qx "$line" <<<"$lines" && compile "$number" "-std=$1" >/dev/null; then
      fail "$1: case $number compiles: $(shown "$line")"
    fi
  done < <(lines_of FORBID)
  [ "$count" -gt 0 ] || fail "no cases found in $source_file"
  for line in $(grep -vxF -f <(printf %s "$expected") <<<"$lines"); do
    fail "$1: an error outside of the cases: $(shown "$line")"
  done
  printf '%s %s: %d expressions are to be refused\n' "$compiler" "$1" "$count"
}

check_warnings() { # STANDARD
  local line number option only warnings count=0
  warnings=$(compile -2 "-std=$1" -Wall) || fail "$1: an expression that should only warn is an error"
  while read -r line number option only; do
    [ -z "$only" ] || [ "$only" = "$family" ] || continue
    count=$((count + 1))
    grep -F "$source_file:$line:" <<<"$warnings" | grep -qF -- "[$option]" ||
      fail "$1: case $number gives no $option: $(shown "$line")"
  done < <(lines_of MUST_WARN)
  [ "$count" -gt 0 ] || fail "no warning cases found in $source_file"
  printf '%s %s: %d expressions are to be warned of\n' "$compiler" "$1" "$count"
}

for standard in c++11 c++14 c++17 c++20 c++2b; do
  if ! control=$(compile 0 -std=$standard -Wall -Wextra -pedantic-errors -Werror); then
    fail "$standard: the control does not compile, so nothing can be learned from the cases"
    printf '%s\n' "$control"
    continue
  fi
  check_refusals $standard
  check_warnings $standard
done

[ "$failures" -eq 0 ]
