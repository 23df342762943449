# shellcheck shell=bash
# options.sh - the options of a script that is a test. To be sourced.

declare -A given

# read_options --NAME VALUE...: each value becomes given[NAME].
read_options() {
  while [ $# -gt 1 ]; do
    # shellcheck disable=SC2034  # the scripts that source this read it
    given[${1#--}]=$2
    shift 2
  done
}
