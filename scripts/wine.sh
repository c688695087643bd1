#!/bin/sh
# Runs a Windows program under Wine, as one of the two families of Windows, without a display and without questions.
#   scripts/wine.sh nt|98 PROGRAM.exe [ARGUMENTS...]
# Each family has a prefix of its own in build/, made when it is first needed.
set -eu
[ $# -ge 2 ] || { sed -n '2,3p' "$0" >&2; exit 2; }
family=$1
shift
case $family in
  nt) version=win7 ;;
  98) version=win98 ;;
  *) echo "wine.sh: no family '$family' (nt or 98)" >&2; exit 2 ;;
esac

build=$(dirname "$(realpath "$0")")/../build
mkdir -p "$build"
prefix=$(realpath "$build")/wine-$family
# No offers to install .NET and a browser, no debugger that waits where a program has crashed.
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe="
# Names in UTF-8, and the code page 1252.
export LC_ALL=C.UTF-8
unset DISPLAY
# Wine needs a page at a fixed address below 2 GB. Where the system randomizes addresses, the heap of a new program lies
# over it once in many thousand starts, and Wine then says "Internal error" before the program has begun.
wine=wine
if setarch -R true 2>/dev/null; then wine="setarch -R wine"; fi

make_prefix() {
  $wine wineboot --init
  $wine reg add 'HKCU\Software\Wine' /v Version /d "$version" /f
  wineserver --wait
}

# Made under another name, so that a prefix is whole or is not there, and by one run only.
if [ ! -d "$prefix" ]; then
  exec 9>"$prefix.lock"
  flock 9
  if [ ! -d "$prefix" ]; then
    rm -rf "$prefix.new"
    export WINEPREFIX="$prefix.new"
    make_prefix 9>&- >"$prefix.log" 2>&1 || { cat "$prefix.log" >&2; exit 1; }
    mv "$prefix.new" "$prefix"
  fi
  exec 9>&-
fi
export WINEPREFIX="$prefix"
exec $wine "$@"
