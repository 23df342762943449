#!/usr/bin/env bash
# check_notices.sh - a page that says what is not so fails: each of these small pages, for the reason beside it.
# usage: check_notices.sh WORK-FOLDER COMMAND... (check_page.py with all but the page)
set -euo pipefail
work=$1
shift
rm -rf "$work"
mkdir -p "$work"
failed=0

must_fail() { # COMMAND..., the page on standard input
  cat >"$work/page.md"
  if "$@" >"$work/said" 2>&1; then
    printf 'FAIL: passed, although there is %s\n' "$reason"
    failed=1
  elif ! grep -q "$expected" "$work/said"; then
    printf 'FAIL: %s was refused for another reason:\n' "$reason"
    cat "$work/said"
    failed=1
  fi
}

command=("${@:1:3}" "$work/page.md" "${@:4}")

reason='a wrong output' expected='but printed is'
must_fail "${command[@]}" <<'PAGE'
```cpp
std::cout << IString("abc").length() << '\n';
```

    4
PAGE

reason='an output that is not shown' expected='but printed is'
must_fail "${command[@]}" <<'PAGE'
```cpp
std::cout << IString("abc").length() << '\n';
```
PAGE

reason='a wrong result in a table' expected='but it is \[3\]'
must_fail "${command[@]}" <<'PAGE'
| expression | result |
|---|---|
| `IString("abc").length()` | `3` |
| `IString("abc").size()` | `2` |
PAGE

reason='an exception that is not thrown' expected='but it is \[a\]'
must_fail "${command[@]}" <<'PAGE'
| expression | result |
|---|---|
| `IString("abc")[1]` | throws |
PAGE

reason='a program that does not compile' expected='does not compile'
must_fail "${command[@]}" <<'PAGE'
```cpp
int main() { return IString("abc").length(); }
```
PAGE

reason='a quote that is not in its file' expected='does not stand in README.md'
must_fail "${command[@]}" <<'PAGE'
<!-- from README.md -->
```
This is not in it.
```
PAGE

exit "$failed"
