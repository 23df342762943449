#!/usr/bin/env bash
# make_locales.sh DIRECTORY - compiles the locales that the tests run in, so that no machine needs to have them
# installed. Programs find them with LOCPATH=DIRECTORY. What is there already stays; what is built is named.
set -euo pipefail

if [ $# -ne 1 ]; then
  printf 'usage: %s DIRECTORY\n' "$0" >&2
  exit 2
fi
mkdir -p "$1"
directory=$(cd "$1" && pwd)

die() {
  printf 'make_locales: %s\n' "$*" >&2
  exit 1
}

# A name, the source it is made from, its character set, and the name by which programs see that set.
locales='
ja_JP.SJIS       ja_JP  SHIFT_JIS   SHIFT_JIS
ja_JP.EUC-JP     ja_JP  EUC-JP      EUC-JP
zh_CN.GB18030    zh_CN  GB18030     GB18030
zh_TW.BIG5       zh_TW  BIG5        BIG5
de_DE.UTF-8      de_DE  UTF-8       UTF-8
de_DE.ISO-8859-1 de_DE  ISO-8859-1  ISO-8859-1
C.UTF-8          C      UTF-8       UTF-8
'

# Asks for the one name in LC_ALL: a locale that cannot be used gives the name of the plain character set instead.
works() { # NAME CHARACTER_SET
  [ "$(LOCPATH=$directory LC_ALL=$1 locale charmap 2>/dev/null)" = "$2" ]
}

build() { # NAME SOURCE CHARMAP
  local unfinished=$directory/.$1.$$ status=0
  rm -rf "$unfinished"
  # An exit status of 1 says that there were warnings and the locale is there all the same: in Shift_JIS, two bytes of
  # ASCII stand for other characters. Whether it works is seen afterwards.
  localedef --no-archive --quiet -i "$2" -f "$3" "$unfinished" || status=$?
  if [ "$status" -gt 1 ] || ! [ -e "$unfinished/LC_CTYPE" ]; then
    rm -rf "$unfinished"
    die "localedef could not make $1 (status $status)"
  fi
  rm -rf "${directory:?}/$1"
  mv "$unfinished" "$directory/$1"
}

for tool in localedef locale; do
  command -v "$tool" >/dev/null || die "there is no $tool here; Debian has it in the package libc-bin"
done

while read -r name source charmap seen; do
  if [ -z "$name" ] || { [ -e "$directory/$name/LC_CTYPE" ] && works "$name" "$seen"; }; then
    continue
  fi
  [ -e "/usr/share/i18n/locales/$source" ] || die "the source of $name is missing; Debian has it in the package locales"
  printf 'locale %s\n' "$name"
  build "$name" "$source" "$charmap"
  works "$name" "$seen" || die "$name was made but does not work"
done <<<"$locales"
