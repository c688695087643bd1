#!/bin/sh
# Runs a Windows program under Wine, as one of the two families of Windows, without a display and without questions.
#   scripts/wine.sh nt|98 PROGRAM.exe [ARGUMENTS...]
# Each family has its own Wine prefix in build/, which is made when it is first needed. A 32-bit program, or a command
# of Windows such as "cmd", runs in the Wine of scripts/wine32.sh if that exists. A 64-bit program runs in the Wine of
# this system.
set -eu
[ $# -ge 2 ] || { sed -n '2,3p' "$0" >&2; exit 2; }
here=$(realpath "$0")
build=$(dirname "$here")/../build

# Prints for which kind of processor a Windows program is made, as four hexadecimal digits.
machine_of() {
  header=$(od -A n -t u4 -j 60 -N 4 "$1" | tr -d ' ')
  od -A n -t x2 -j $((header + 4)) -N 2 "$1" | tr -d ' '
}
bits=32
if [ -f "$2" ] && [ "$(machine_of "$2")" != 014c ]; then bits=64; fi
if [ $bits = 32 ] && [ ! -d "$build/wine32" ]; then
  [ ! -f "$2" ] || { echo "wine.sh: $2 is a 32-bit program: scripts/wine32.sh make" >&2; exit 126; }
  bits=64
fi
if [ $bits = 32 ] && [ -z "${WINE32_GUEST:-}" ]; then exec "$(dirname "$here")/wine32.sh" run "$here" "$@"; fi

family=$1
shift
case $family in
  nt) version=win7 ;;
  98) version=win98 ;;
  *) echo "wine.sh: no family '$family' (nt or 98)" >&2; exit 2 ;;
esac

mkdir -p "$build"
prefix=$(realpath "$build")/wine-$family-$bits
# Wine must not offer to install .NET and a browser, and must not start a debugger that waits after a crash.
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe="
# Under this locale Wine takes names as UTF-8 and uses the code page 1252.
export LC_ALL=C.UTF-8
unset DISPLAY
if [ $bits = 32 ]; then
  wine=/usr/lib/wine/wine
  export WINESERVER=/usr/lib/wine/wineserver32
else
  wine=wine
  WINESERVER=wineserver
fi
# Wine needs a page at a fixed address below 2 GB. On systems that randomize addresses, the heap of a new program covers
# this page once in many thousand starts. Wine then prints "Internal error" before the program has begun.
fixed="setarch -R"
$fixed true 2>/dev/null || fixed=""

# Replaces this script by a program of Wine. A 32-bit Wine needs its own root directory: this unshare makes no new
# namespace, it only changes the root directory and keeps the working directory.
become() {
  if [ $bits = 32 ]; then set -- unshare --root="$WINE32_GUEST" --wd="$PWD" "$@"; fi
  exec $fixed "$@"
}

make_prefix() {
  (become $wine wineboot --init)
  (become $wine reg add 'HKCU\Software\Wine' /v Version /d "$version" /f)
  (become $WINESERVER --wait)
}

# The prefix is made under another name and renamed at the end, so that it is either complete or missing. The lock lets
# only one run make it.
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
become $wine "$@"
