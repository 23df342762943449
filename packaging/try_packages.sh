#!/usr/bin/env bash
# try_packages.sh - installs the packages on this machine, uses them as somebody would who has nothing else of the library, at 32 and at
# 64 bits, and purges them again. It is meant for a machine that can be thrown away: compilers, CMake, pkg-config and gdb, which it
# installs too, stay.
# usage (as root): try_packages.sh FOLDER       (the folder with the packages)
set -euo pipefail
export LC_ALL=C DEBIAN_FRONTEND=noninteractive
unset NLSPATH LD_LIBRARY_PATH PKG_CONFIG_PATH PKG_CONFIG_LIBDIR CMAKE_PREFIX_PATH quelmcl_DIR
tree=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
folder=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
checks=0

fail() {
  printf 'FAIL: %s\n' "$*"
  exit 1
}

# Runs a command; shows what it printed only if it fails.
quietly() { # COMMAND...
  "$@" >"$work/log" 2>&1 </dev/null && return
  cat "$work/log"
  fail "$*"
}

passed() { # CLAIM
  checks=$((checks + 1))
  printf 'passed: %s\n' "$*"
}

version=$(basename "$folder"/libquelmcl310_*_amd64.deb)
version=${version#*_} version=${version%%-*}

triplet_of() { # WIDTH
  if [ "$1" = 32 ]; then echo i386-linux-gnu; else echo x86_64-linux-gnu; fi
}

# ---- a program of somebody else ----

# It prints a text, the library's version, a message from the catalog, and one that only the library's start-up object makes possible.
must_work() { # PROGRAM shared|static WIDTH
  local output needed
  output=$("$1") || fail "$1 ended with status $?"
  printf '%s\n' 'HELLO 5' "version $version" '1011: A character was asked for at a position outside of the text.' \
    '4: The memory is exhausted: there is no room for what was to be stored.' | diff - <(printf '%s\n' "$output") || fail "$1 printed something else"
  output=$(LC_ALL='' LANG=de_DE.UTF-8 "$1")
  grep -qF '1011: Es wurde ein Zeichen an einer Stelle außerhalb des Textes verlangt.' <<<"$output" || fail "$1 in German printed: $output"

  needed=$(readelf -hd "$1")
  case $2:$(grep -c 'Shared library: \[libquelmcl.so.310\]' <<<"$needed" || true) in
    shared:1 | static:0) ;;
    *) fail "$1 is not linked with the $2 library" ;;
  esac
  grep -q "Class: *ELF$3" <<<"$needed" || fail "$1 is no program of $3 bits"
}

with_cmake() { # WIDTH shared|static STANDARD
  local build=$work/cmake-$1-$2-$3
  quietly cmake -S "$tree/tests/install/consumer" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS=-m$1" \
    "-DCMAKE_CXX_STANDARD=$3" "-DQUELMCL_COMPONENT=$2"
  quietly cmake --build "$build"
  must_work "$build/consumer" "$2" "$1"
  passed "CMake, $1 bits, $2, C++$3"
}

with_pkg_config() { # WIDTH shared|static STANDARD
  local program=$work/pkg-config-$1-$2-$3 options=(--cflags --libs) words
  if [ "$2" = static ]; then options+=(--static); fi
  words=$(PKG_CONFIG_LIBDIR=/usr/lib/$(triplet_of "$1")/pkgconfig pkg-config "${options[@]}" quelmcl) || fail "pkg-config does not know quelmcl"
  if [ "$2" = static ]; then words+=' -static'; fi  # the linker would rather take the shared library, which is there too
  # Words for the shell, without quotes in them.
  # shellcheck disable=SC2086
  quietly g++ "-m$1" "-std=c++$3" -g -o "$program" "$tree/tests/install/consumer/main.cpp" $words
  must_work "$program" "$2" "$1"
  passed "pkg-config, $1 bits, $2, C++$3"
}

# ---- what else a developer has of it ----

examples_build() { # WIDTH
  local build=$work/examples-$1 example
  cp -r /usr/share/doc/libquelmcl-dev/examples "$work/sources-$1"
  for example in "$work/sources-$1"/*/; do
    example=$(basename "$example")
    quietly cmake -S "$work/sources-$1/$example" -B "$build/$example" -G Ninja "-DCMAKE_CXX_FLAGS=-m$1"
    quietly cmake --build "$build/$example"
    quietly "$build/$example/$example" --help
  done
  [ "$("$build/radix/radix" 3735928559)" = DEADBEEF ] || fail "the example radix at $1 bits"
  passed "the examples, copied and built at $1 bits"
}

# The formatters load themselves: nothing here names them.
gdb_shows_strings() { # WIDTH
  local shown
  shown=$(gdb -nx -batch -ex 'break IBase::version' -ex run -ex up -ex 'print s' "$work/cmake-$1-shared-11/consumer" 2>&1 </dev/null)
  # shellcheck disable=SC2016  # gdb's name for the first value
  grep -qF '$1 = "HELLO" = {length = 5, sharers = 1' <<<"$shown" || fail "gdb at $1 bits showed: $shown"
  passed "gdb shows a string, $1 bits"
}

debug_symbols_are_found() { # WIDTH
  local shown
  shown=$(gdb -nx -batch -ex 'info line IString::lineFrom' "/usr/lib/$(triplet_of "$1")/libquelmcl.so.310" 2>&1 </dev/null)
  grep -q '^Line [0-9]* of ".*istring0.cpp"' <<<"$shown" || fail "the debug symbols at $1 bits: $shown"
  passed "debug symbols, $1 bits"
}

wrong_wishes_are_refused() {
  local output
  if output=$(cmake -S "$tree/tests/install/consumer" -B "$work/wrong" -G Ninja -DQUELMCL_WANTED_VERSION=311 2>&1); then fail "CMake finds a version 311"; fi
  grep -qF "version: $version" <<<"$output" || fail "CMake refuses a version 311 for another reason: $output"
  passed "another version is refused"
}

nothing_is_left() {
  local left
  left=$(find / -xdev \( -path /proc -o -path /sys -o -path /dev -o -path /root -o -path /home -o -path /tmp -o -path "$tree" -o -path "$folder" -o -path "$work" \) -prune \
    -o -iname '*quelmcl*' -print)
  [ -z "$left" ] || fail "purging left: $left"
  passed "purging leaves nothing"
}

[ "$(id -u)" -eq 0 ] || fail "this needs root: it installs packages"
dpkg --add-architecture i386
apt-get -q update >"$work/log" 2>&1 || printf 'warning: apt-get update failed; going on with what there is\n'
# The library alone first: what it needs, it brings along.
quietly apt-get -q -y install --no-install-recommends "$folder"/libquelmcl310_*.deb
passed "both widths of the library install side by side"
quietly apt-get -q -y install --no-install-recommends "$folder"/*.deb g++ g++-multilib cmake ninja-build pkgconf gdb
passed "all packages install"

for width in 64 32; do
  for kind in shared static; do
    for standard in 11 20; do
      with_cmake $width $kind $standard
      with_pkg_config $width $kind $standard
    done
  done
  examples_build $width
  gdb_shows_strings $width
  debug_symbols_are_found $width
done
wrong_wishes_are_refused

mapfile -t packages < <(dpkg-query -W -f '${db:Status-Status} ${binary:Package}\n' '*quelmcl*' | sed -n 's/^installed //p')
quietly apt-get -q -y purge "${packages[@]}"
nothing_is_left
printf '%d checks passed\n' "$checks"
