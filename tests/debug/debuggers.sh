# shellcheck shell=bash
# debuggers.sh - what the scripts that drive a debugger share: their options, their folders, and how a debugger is found. To be sourced,
# with the options of the script.
export LC_ALL=C.UTF-8  # so that characters beyond ASCII are shown
unset LD_LIBRARY_PATH DEBUGINFOD_URLS

folder=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tests/support/ending.sh
source "$folder/../support/ending.sh"
# shellcheck source=tests/support/options.sh
source "$folder/../support/options.sh"
read_options "$@"
rm -rf "${given[work]}"
mkdir -p "${given[work]}"
work=$(cd "${given[work]}" && pwd -P)  # gdb knows files by their real paths
program=${given[program]}

need_gdb() {
  command -v gdb >/dev/null || end_for_lack_of gdb
}

# It is large, and not among the packages that ./dev installs.
need_lldb() {
  local modules
  command -v lldb >/dev/null || skip "there is no lldb here"
  # Some distributions build lldb with another place for its modules than they install them to.
  for modules in "$(lldb -P)" /usr/lib/llvm-*/lib/python3*/dist-packages; do
    if [ -e "$modules/lldb/__init__.py" ]; then export PYTHONPATH=$modules; fi
  done
  lldb -b -o 'script print("python " + "works")' 2>&1 </dev/null | grep -q '^python works' || skip "this lldb has no Python"
}

# gdb_with [OPTION...]: gdb as it is without anybody's settings, with the commands on standard input. What it complains about is in
# $work/errors.
gdb_with() {
  cat >"$work/commands"
  gdb -nx -batch -iex 'set debuginfod enabled off' -iex 'set auto-load python-scripts off' -ex 'set width 0' -ex 'set confirm off' \
    "$@" -x "$work/commands" 2>"$work/errors" </dev/null
}
