# shellcheck shell=bash disable=SC2154
# environment.sh - what ctest gives to every test, for scripts that start test programs themselves: the C locale, the locales and
# catalogs of a build. To be sourced, with the build folder in $build.
export LANG=C LC_ALL=C LOCPATH=$build/locales
export NLSPATH=$build/share/locale/%l/LC_MESSAGES/%N:$build/share/locale/C/LC_MESSAGES/%N
unset LANGUAGE KOLTA_MSGFILE KOLTA_TRACE KOLTA_TRACETO KOLTA_TRACEFILE KOLTA_CHECKSTACK
