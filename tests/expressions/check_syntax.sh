#!/usr/bin/env bash
# check_syntax.sh - compiles a file, without making an object of it, in every language version and without a warning.
# usage: check_syntax.sh SOURCE COMPILER [FLAG...]
set -u
export LC_ALL=C

source_file=$1
compiler=$2
shift 2

printf '%s\n' c++11 c++14 c++17 c++20 c++2b | xargs -P 2 -I STANDARD "$compiler" "$@" -std=STANDARD -fsyntax-only \
  -Wall -Wextra -pedantic-errors -Werror "$source_file" ||
  { printf 'FAIL: %s does not compile without a warning in every language version\n' "$source_file"; exit 1; }
