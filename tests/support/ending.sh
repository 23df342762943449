# shellcheck shell=bash
# ending.sh - how a script that is a test ends when the test cannot be made on this machine. To be sourced.

# skip REASON: the machine does not have, or does not allow, what no package could bring.
skip() {
  printf 'SKIPPED: %s\n' "$*"
  exit 77
}

# end_for_lack_of PACKAGE: ./dev installs the package, so in CI (the environment variable CI is not empty) a test that lacks it fails:
# otherwise it could vanish there unnoticed.
end_for_lack_of() {
  if [ -n "${CI:-}" ]; then
    printf 'FAILED: the Debian package %s is not installed\n' "$1"
    exit 1
  fi
  skip "the Debian package $1 is not installed"
}
