#!/bin/bash
# gallery_test.sh PAGE PROGRAM DATA - runs what the page about an example shows, in a copy of the folder of data, and compares what is
# printed. A session is a block whose commands stand behind "$ ". Status 0: passed, 1: failed.
set -u
export LC_ALL=C

page=$1
program=$2
data=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$data" "$work/data"
PATH=$(dirname "$program"):$PATH
cd "$work/data" || exit 1

# The lines of all sessions.
awk '/^```/ { inSession = !inSession && $0 == "```console"; next } inSession' "$page" >"$work/shown"

commands=0
status=0
while IFS= read -r line; do
  if [[ $line == '$ '* ]]; then
    commands=$((commands + 1))
    printf '%s\n' "$line"
    eval "(exit $status); ${line#\$ }" </dev/null 2>&1  # so that a command may ask how the one before has ended
    status=$?
  fi
done <"$work/shown" >"$work/printed"

[ "$commands" -gt 0 ] || { printf 'FAILED: the page shows no command\n'; exit 1; }
diff -u --label "the page" "$work/shown" --label "the program" "$work/printed"
