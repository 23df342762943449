#!/usr/bin/env bash
# check_quotes.sh - every block of a page that follows a line "<!-- from FILE -->" stands in that file, line for line.
# usage: check_quotes.sh SOURCE-FOLDER PAGE
set -euo pipefail

cd "$1"
page=$2
failed=0
quotes=0

compare() { # FILE BLOCK
  local content
  content=$(cat "$1"; echo .)
  quotes=$((quotes + 1))
  if [[ $'\n'$content != *$'\n'"$2"* ]]; then
    printf 'FAIL: %s quotes what is not in %s:\n%s' "$page" "$1" "$2"
    failed=1
  fi
}

from='' block='' inside=''
while IFS= read -r line; do
  if [ -n "$inside" ]; then
    if [ "$line" = '```' ]; then
      compare "$from" "$block"
      from='' block='' inside=''
    else
      block+=$line$'\n'
    fi
  elif [[ $line =~ ^'<!-- from '(.*)' -->'$ ]]; then
    from=${BASH_REMATCH[1]}
    [ -f "$from" ] || { printf 'FAIL: %s quotes %s, which is not there\n' "$page" "$from"; exit 1; }
  elif [ -n "$from" ] && [[ $line == '```'* ]]; then
    inside=yes
  fi
done <"$page"

[ -z "$from" ] || { printf 'FAIL: %s does not end its last quote\n' "$page"; exit 1; }
[ "$quotes" -gt 0 ] || { printf 'FAIL: %s quotes nothing\n' "$page"; exit 1; }
printf '%s: %d quotes\n' "$page" "$quotes"
exit "$failed"
