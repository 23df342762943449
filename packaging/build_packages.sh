#!/usr/bin/env bash
# build_packages.sh - builds the Debian packages of this tree, for amd64 and for i386, on an amd64 machine.
# usage: build_packages.sh FOLDER [--check]      (the packages get into FOLDER; --check also judges them, which takes twice the time)
#
# packaging/debian/ is the usual folder debian/ but for its changelog, which would state the version once more.
set -euo pipefail
export LC_ALL=C
tree=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
folder=$1
check=${2:-}
case $check in '' | --check) ;; *) printf 'build_packages.sh: unknown option %s\n' "$check" >&2; exit 2 ;; esac
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)
architectures='amd64 i386'

# Caches of compilers may write folders into the debug information that are others than the compiler's own, and a build that is to be
# compared with another has to be one.
unset CMAKE_CXX_COMPILER_LAUNCHER
export CCACHE_DISABLE=1

say() {
  printf '==> %s\n' "$*"
}

die() {
  printf 'build_packages.sh: %s\n' "$*" >&2
  exit 1
}

[ "$(dpkg --print-architecture)" = amd64 ] || die "this needs an amd64 machine, whose compiler makes 32-bit programs too"

version_part() { # MAJOR|MINOR
  sed -n "s/^#define QUELMCL_VERSION_$1 \([0-9]*\)$/\1/p" "$tree/include/quelmcl/idefs.hpp"
}
version=$(version_part MAJOR).$(version_part MINOR)
source_name=quelmcl-$version

# The time that files in the packages bear: that of the last commit where git tells it.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -C "$tree" log -1 --format=%ct 2>/dev/null || stat -c %Y "$tree/CHANGELOG.md")}
export SOURCE_DATE_EPOCH

# What a package is made of, in a folder of its own: building leaves the tree alone, and the tree's leftovers stay out.
lay_out_sources() { # FOLDER
  local sources=$1/$source_name
  rm -rf "$1"
  mkdir -p "$sources"
  (cd "$tree" && tar -cf - CMakeLists.txt README.md LICENSE CHANGELOG.md cmake debug docs examples include messages src) | tar -C "$sources" -xf -
  cp -r "$tree/packaging/debian" "$sources/debian"
  cat >"$sources/debian/changelog" <<TEXT
quelmcl ($version-1) unstable; urgency=medium

  * Packages of version $version.

 -- $(sed -n 's/^Maintainer: //p' "$sources/debian/control")  $(date -u -R -d "@$SOURCE_DATE_EPOCH")
TEXT
  find "$sources" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
}

# The documentation is the same for all; it is built along with the amd64 packages.
build_for() { # ARCHITECTURE FOLDER
  local log=$2/build.log options=(--no-sign)
  say "Building the packages for $1 in $2"
  lay_out_sources "$2"
  if [ "$1" = amd64 ]; then
    options+=('--build=any,all')
  else
    options+=(--build=any "--host-arch=$1" --no-check-builddeps)  # not with a cross compiler: debian/rules
  fi
  (cd "$2/$source_name" && DEB_BUILD_OPTIONS="parallel=$(nproc)" dpkg-buildpackage "${options[@]}") >"$log" 2>&1 </dev/null ||
    { tail -n 40 "$log" >&2; die "could not build the packages for $1; see $log"; }
}

# ---- what --check looks at ----

check_policy() {
  say "Asking lintian"
  local packages=("$folder"/*.deb)
  lintian --fail-on error,warning --allow-root "${packages[@]}" || die "lintian has found something"
}

# dpkg refuses to install a package beside itself for the other width if they do not have the same content in files with the same name.
check_widths_agree() {
  say "Comparing what both widths share"
  local package file common work
  work=$(mktemp -d)
  for package in libquelmcl310 libquelmcl-dev; do
    for architecture in $architectures; do
      dpkg-deb -x "$folder/${package}_$version-1_$architecture.deb" "$work/$package-$architecture"
    done
    common=$(comm -12 <(cd "$work/$package-amd64" && find . ! -type d | sort) <(cd "$work/$package-i386" && find . ! -type d | sort))
    [ "$(wc -l <<<"$common")" -gt 10 ] || die "the two packages $package have too little in common"
    while read -r file; do
      cmp "$work/$package-amd64/$file" "$work/$package-i386/$file" || die "$package: $file differs from one width to the other"
    done <<<"$common"
    printf '%s: %d files are the same\n' "$package" "$(wc -l <<<"$common")"
  done
  rm -rf "$work"
}

# The same sources in a folder of another name give the same packages, bit by bit: libraries,
# debug information and documents.
check_reproducible() {
  say "Building all of it once more elsewhere, and comparing"
  local elsewhere architecture file
  elsewhere=$(mktemp -d)
  for architecture in $architectures; do
    build_for "$architecture" "$elsewhere/under-a-longer-name/$architecture"
  done
  for file in "$folder"/*.deb; do
    cmp "$file" "$elsewhere"/*/*/"${file##*/}" || die "${file##*/} differs from one build to the next"
  done
  rm -rf "$elsewhere"
}

rm -rf "$folder"/*.deb
for architecture in $architectures; do
  build_for "$architecture" "$folder/$architecture"
  mv "$folder/$architecture"/*.deb "$folder"
done
if [ -n "$check" ]; then
  check_policy
  check_widths_agree
  check_reproducible
fi
(cd "$folder" && ls -l ./*.deb)
