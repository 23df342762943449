#!/usr/bin/env bash
# cppcheck.sh - reads the sources, and the headers through them, with cppcheck, as a 32-bit compiler sees them; a finding is a failure.
# usage: cppcheck.sh [FILE...]
#
# Warnings, speed and portability are asked for. Not its rules of style: layout and habits are clang-tidy's and ours, and the two that
# would say most do not fit here: constructors from one argument convert because applications expect it, and a local name may be that of
# a member function, as in "const unsigned end = ...".
set -euo pipefail
cd "$(dirname "$0")/../.."
if [ $# -eq 0 ]; then set -- src; fi

cppcheck --quiet --language=c++ --std=c++20 --platform=unix32 --enable=warning,performance,portability \
  --suppressions-list=tests/checks/cppcheck.suppressions --error-exitcode=1 -I include -I src -j "$(nproc)" "$@"
