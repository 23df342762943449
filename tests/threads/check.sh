#!/usr/bin/env bash
# check.sh - runs the tests of threads with as many operations as they are meant for, watched by a checker.
# usage: check.sh tsan|helgrind PROGRAM [OPERATIONS]
# PROGRAM is test_threads, built with ThreadSanitizer or plainly. OPERATIONS are for each of the eight threads: 100000, and for helgrind,
# which makes everything some hundred times slower, 20000.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
checker=$1
program=$2
export LC_ALL=C
# Without a name of a zone the C library reads the local one anew whenever a date is printed, under a lock that checkers do not see.
export TZ=UTC0

case $checker in
  tsan)
    export QUELMCL_TEST_THREAD_OPERATIONS=${3:-100000} TSAN_OPTIONS=halt_on_error=1
    exec "$program"
    ;;
  helgrind)
    export QUELMCL_TEST_THREAD_OPERATIONS=${3:-20000}
    # Without the test that has all threads make what the first of them needs: that is ordered by atomic accesses, which helgrind does
    # not know. ThreadSanitizer does.
    exec valgrind --tool=helgrind --quiet --error-exitcode=1 --history-level=none "--suppressions=$here/helgrind.supp" \
      "$program" --gtest_filter='-ThreadsAtTheBeginning.*'
    ;;
  *)
    echo "check.sh: there is no checker $checker" >&2
    exit 2
    ;;
esac
