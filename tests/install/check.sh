#!/usr/bin/env bash
# check.sh - installs the library and uses it as a stranger would: with CMake, with pkg-config, moved elsewhere, as a part of another
# project, and in the ways that must be refused.
# usage: check.sh CHECK --source DIR --build DIR --work DIR --kind shared|static --width 32|64 --libdir DIR
#                 --version MAJOR.MINOR --cmake PROGRAM --generator NAME --compiler PROGRAM --flags "FLAG..."
set -euo pipefail
export LC_ALL=C
# An installed library must be found by what it installed, not by what the caller's shell happens to say.
unset NLSPATH LD_LIBRARY_PATH PKG_CONFIG_PATH CMAKE_PREFIX_PATH quelmcl_DIR DESTDIR

check=$1
shift
# shellcheck source=tests/support/options.sh
source "$(dirname "${BASH_SOURCE[0]}")/../support/options.sh"
read_options "$@"
source=${given[source]} build=${given[build]} work=${given[work]} kind=${given[kind]} width=${given[width]}
version=${given[version]} major=${given[version]%%.*} minor=${given[version]#*.}
cmake=${given[cmake]} compiler=${given[compiler]} flags=${given[flags]}
consumer=$source/tests/install/consumer
prefix=$work/prefix

fail() {
  printf 'FAIL: %s\n' "$*"
  exit 1
}

# Runs a command; shows what it printed only if it fails.
quietly() { # COMMAND...
  local log=$work/last-command.log
  "$@" >"$log" 2>&1 && return
  cat "$log"
  fail "$*"
}

must_fail_saying() { # TEXT COMMAND...
  local text=$1 output
  shift
  if output=$("$@" 2>&1); then fail "this should have been refused: $*"; fi
  grep -qF -- "$text" <<<"$output" || fail "refused for another reason than \"$text\": $* said: $output"
}

install_to() { # PREFIX [BUILD]
  quietly "$cmake" --install "${2:-$build}" --prefix "$1"
}

configure() { # BUILD SOURCE FLAGS [OPTION...]
  local folder=$1 from=$2 with=$3
  shift 3
  "$cmake" -S "$from" -B "$folder" -G "${given[generator]}" -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_COMPILER=$compiler" \
    "-DCMAKE_CXX_FLAGS=$with" "$@"
}

# The program prints a text, its length, the library's version, and the ids of two errors with their messages from the catalog. The
# second is one only if the library's start-up object is there, which a static link must not have lost.
expected_output="HELLO 5
version $version
1011: A character was asked for at a position outside of the text."
exhausted_line='4: The memory is exhausted: there is no room for what was to be stored.'

# An address sanitizer brings an operator new of its own, which calls no new-handler.
expected_of() { # PROGRAM
  printf '%s\n' "$expected_output"
  if ! ldd "$1" | grep -F libasan >/dev/null; then printf '%s\n' "$exhausted_line"; fi
}

must_print_the_expected() { # PROGRAM NLSPATH
  local output expected
  expected=$(expected_of "$1")
  output=$(NLSPATH=$2 "$1" 2>"$work/stderr") || fail "$1 ended with status $?: $(cat "$work/stderr")"
  [ "$output" = "$expected" ] || fail "$1 printed: $output"
  # A language without a catalog gets the English texts; so do those that have no translation yet.
  local lang
  for lang in xx_YY.UTF-8 POSIX en_GB.UTF-8; do
    output=$(LC_ALL='' LANG=$lang NLSPATH=$2 "$1" 2>/dev/null)
    [ "$output" = "$expected" ] || fail "$1 with LANG=$lang printed: $output"
  done
  output=$(LC_ALL='' LANG=de_AT.UTF-8 NLSPATH=$2 "$1" 2>/dev/null)
  grep -qF '1011: Es wurde ein Zeichen an einer Stelle außerhalb des Textes verlangt.' <<<"$output" || fail "$1 in German printed: $output"
}

needs_shared_library() { # PROGRAM
  readelf -d "$1" | grep -qF "Shared library: [libquelmcl.so.$major]"
}

must_be_of_kind() { # PROGRAM shared|static
  if [ "$2" = shared ]; then
    needs_shared_library "$1" || fail "$1 does not use the shared library"
  elif needs_shared_library "$1"; then
    fail "$1 uses the shared library"
  fi
}

with_cmake() { # PREFIX KIND [OPTION...]
  local from=$1 wanted=$2 folder
  shift 2
  folder=$work/with-cmake-$wanted
  quietly configure "$folder" "$consumer" "$flags" "-DCMAKE_PREFIX_PATH=$from" "$@"
  quietly "$cmake" --build "$folder"
  must_be_of_kind "$folder/consumer" "$wanted"
  grep -q "^$from/" "$folder/catalog_dir.txt" || fail "quelmcl_CATALOG_DIR is not in $from: $(cat "$folder/catalog_dir.txt")"
  must_print_the_expected "$folder/consumer" "$(cat "$folder/nlspath.txt")"
}

with_pkg_config() { # PREFIX KIND
  local program=$work/with-pkg-config-$2 options=(--cflags --libs) words
  export PKG_CONFIG_PATH=$1/${given[libdir]}/pkgconfig
  [ "$2" = shared ] || options+=(--static)
  [ "$(pkg-config --modversion quelmcl)" = "$version" ] || fail "pkg-config knows another version"
  words=$(pkg-config "${options[@]}" quelmcl) || fail "pkg-config does not know quelmcl"
  # Both lists are words for the shell, without quotes in them.
  # shellcheck disable=SC2086
  quietly "$compiler" $flags -o "$program" "$consumer/main.cpp" $words
  must_be_of_kind "$program" "$2"
  LD_LIBRARY_PATH=$1/${given[libdir]} must_print_the_expected "$program" "$(pkg-config --variable=nlspath quelmcl)"
}

# ---- the checks ----

# The tree holds what it should, the headers are those of the source, and no file but the libraries' own debug information knows
# where it was built or installed.
check_tree() {
  install_to "$prefix"
  local lib=$prefix/${given[libdir]} file
  diff -r "$source/include/quelmcl" "$prefix/include/quelmcl" || fail "the installed headers differ from the source"
  for file in share/locale/{C,POSIX,en,it,zh}/LC_MESSAGES/quelmcl.cat share/doc/quelmcl/{README.md,LICENSE,CHANGELOG.md} \
    share/quelmcl/debug/quelmcl_{gdb,lldb}.py; do
    [ -s "$prefix/$file" ] || fail "not installed: $file"
  done
  for file in "$source"/messages/quelmcl.*.msg; do
    file=${file##*/quelmcl.}
    [ -s "$prefix/share/locale/${file%.msg}/LC_MESSAGES/quelmcl.cat" ] || fail "not installed: the catalog for ${file%.msg}"
  done
  if grep -rlF -e "$prefix" -e "$source" -e "$build" "$lib/cmake" "$lib/pkgconfig" "$prefix/share"; then
    fail "these files name the folder they were made in"
  fi
  [ "$kind" = shared ] || { [ -s "$lib/libquelmcl.a" ] || fail "not installed: libquelmcl.a"; return 0; }

  [ "$(readlink "$lib/libquelmcl.so")" = "libquelmcl.so.$major" ] || fail "libquelmcl.so is not a link to libquelmcl.so.$major"
  [ "$(readlink "$lib/libquelmcl.so.$major")" = "libquelmcl.so.$version" ] ||
    fail "libquelmcl.so.$major is not a link to libquelmcl.so.$version"
  local dynamic
  dynamic=$(readelf -dW "$lib/libquelmcl.so")
  for file in "soname: \\[libquelmcl.so.$major\\]" 'NODELETE' 'BIND_NOW'; do
    grep -q "$file" <<<"$dynamic" || fail "the shared library lacks: $file"
  done
  if grep -E 'R(UN)?PATH' <<<"$dynamic"; then fail "the shared library carries a search path"; fi

  # gdb looks under the full path of the library.
  file=$prefix/share/gdb/auto-load$lib/libquelmcl.so.310.2-gdb.py
  cmp "$file" "$source/debug/quelmcl_gdb.py" || fail "gdb would not find its formatters in $file"
}

# One of each kind of build; the order of the two does not matter, so neither does which kind finds its headers warm.
check_consumers() {
  install_to "$prefix"
  with_cmake "$prefix" "$kind"
  with_pkg_config "$prefix" "$kind"
}

check_moved_consumers() {
  install_to "$prefix"
  mv "$prefix" "$work/moved here"
  # A blank in the path is for CMake's package only: pkg-config's output is words for a shell.
  with_cmake "$work/moved here" "$kind" "-DQUELMCL_COMPONENT=$kind"
  mv "$work/moved here" "$work/moved-again"
  with_pkg_config "$work/moved-again" "$kind"
}

check_refusals() {
  install_to "$prefix"
  local other_width=$((96 - width)) other_kind=shared
  [ "$kind" = static ] || other_kind=static
  local here=("-DCMAKE_PREFIX_PATH=$prefix")

  local wanted
  for wanted in $((major - 1)) $((major + 1)) "$major.$((minor + 1))"; do
    must_fail_saying "$prefix/${given[libdir]}/cmake/quelmcl/quelmcl-config.cmake, version: $version" \
      configure "$work/version-$wanted" "$consumer" "$flags" "${here[@]}" "-DQUELMCL_WANTED_VERSION=$wanted"
  done
  must_fail_saying "version: $version (${width}bit)" \
    configure "$work/other-width" "$consumer" "-m$other_width" "${here[@]}"
  must_fail_saying "component \"$other_kind\" is not installed" \
    configure "$work/other-kind" "$consumer" "$flags" "${here[@]}" "-DQUELMCL_COMPONENT=$other_kind"
}

# As a subproject we bring the library and nothing else. The parent here wants it static and installed, which also gives the static
# package; put into one prefix with this build's own, a consumer gets the kind it asks for.
check_subproject() {
  local folder=$work/parent-build
  quietly configure "$folder" "$consumer/parent" "$flags" "-DQUELMCL_SOURCE=$source"
  quietly "$cmake" --build "$folder" --parallel 2
  must_print_the_expected "$folder/parent_program" "$(cat "$folder/nlspath.txt")"
  must_be_of_kind "$folder/parent_program" static
  if find "$folder" -name '*gtest*' -o -name 'test_*' -o -name 'logreport*' | grep .; then fail "the subproject builds more than it should"; fi

  install_to "$prefix" "$folder"
  install_to "$prefix"
  with_cmake "$prefix" static -DQUELMCL_COMPONENT=static
  if [ "$kind" = shared ]; then
    with_cmake "$prefix" shared -DQUELMCL_COMPONENT=shared
    must_fail_saying 'exclude each other' \
      configure "$work/both-kinds" "$consumer" "$flags" "-DCMAKE_PREFIX_PATH=$prefix" "-DQUELMCL_COMPONENT=shared;static"
    rm "$prefix/${given[libdir]}"/libquelmcl.so*  # else the linker prefers it, and --static asks for the private libraries only
  fi
  with_pkg_config "$prefix" static
}

# Each example, copied out of the tree, is a project of its own that needs the installed library only.
check_examples() {
  local example program status count=0
  install_to "$prefix"
  cp -r "$source/examples" "$work/copied"
  for example in "$work"/copied/*/; do
    example=$(basename "$example") program=$work/with-$(basename "$example")/$(basename "$example")
    quietly configure "$work/with-$example" "$work/copied/$example" "$flags" "-DCMAKE_PREFIX_PATH=$prefix" -DCMAKE_BUILD_TYPE=Debug
    quietly "$cmake" --build "$work/with-$example"
    must_be_of_kind "$program" "$kind"
    "$program" --help | grep "^Usage: $example " >/dev/null || fail "$example --help does not tell its usage"
    status=0
    NLSPATH=$prefix/share/locale/%l/LC_MESSAGES/%N "$program" --no-such-option >"$work/out" 2>"$work/err" || status=$?
    [ "$status" -eq 2 ] || fail "$example ends with status $status after a wrong option"
    [ ! -s "$work/out" ] || fail "$example tells a wrong option on standard output"
    [ -s "$work/err" ] || fail "$example says nothing about a wrong option"
    count=$((count + 1))
  done
  [ "$count" -ge 5 ] || fail "there are only $count examples"
}

rm -rf "$work"
mkdir -p "$work"
"check_$check"
printf '%s: as it should be\n' "$check"
