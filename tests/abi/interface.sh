#!/usr/bin/env bash
# interface.sh - compares what the 32-bit library offers to programs (functions, classes, layouts, slots, constants) with the golden
# interface.x86.xml beside this script, down to what no test of ours thinks of.
# usage: interface.sh compare|record [LIBRARY]
# LIBRARY has to have debug information, as the presets give it; build/x86/src/libquelmcl.so if none is named. A change on purpose:
#     cmake --preset x86 && cmake --build --preset x86 --target quelmcl && bash tests/abi/interface.sh record
set -euo pipefail
export LC_ALL=C
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
golden=$here/interface.x86.xml
mode=${1:-}
library=$(readlink -f "${2:-$root/build/x86/src/libquelmcl.so}")

# Types of the public headers only, and no places in the sources: moving a function is no change of the interface.
case $mode in
  record)
    abidw --headers-dir "$root/include/quelmcl" --drop-private-types --drop-undefined-syms --exported-interfaces-only \
      --no-show-locs --no-corpus-path --no-comp-dir-path --no-parameter-names --no-elf-needed --no-write-default-sizes \
      --type-id-style hash --out-file "$golden" "$library"
    sed -i -E "s|^(  <abi-instr .* path=')[^']*/(src/)|\\1\\2|" "$golden"  # the same wherever it was built
    printf 'recorded the interface of %s\n' "${library##*/}"
    ;;
  compare)
    result=0
    difference=$(abidiff --headers-dir2 "$root/include/quelmcl" --drop-private-types --exported-interfaces-only --no-show-locs \
      "$golden" "$library" 2>&1) || result=$?
    if [ "$result" -ne 0 ]; then
      printf '%s\nThe interface is another than recorded. If that is the purpose: bash tests/abi/interface.sh record\n' "$difference"
      exit 1
    fi
    printf '%s offers what is recorded\n' "${library##*/}"
    ;;
  *)
    sed -n 's/^# usage: /usage: /p' "$0" >&2
    exit 2
    ;;
esac
