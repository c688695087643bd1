#!/bin/sh
# Runs every checker over every source. Stops at the first checker that complains.
#   scripts/lint.sh BUILD WINDOWS_BUILD   two configured build folders (their compile_commands.json are read)
set -eu
build=$1
windows_build=$2

git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
git ls-files '*.sh' .ci/run | xargs shellcheck
for check in floors openings platform sizes windows_names; do python3 -B "scripts/check_$check.py"; done

# clang-tidy reads the unities of the build folders, so that it reads the many headers only once for several sources. It
# treats the sources in a unity like headers, so the header filter in .clang-tidy must match their names.
# The paths come one in a line, because they may have blanks.
tidy() {
  xargs -d '\n' -P "$(nproc)" -n 1 clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option \
    --checks=-bugprone-suspicious-include "$@"
}
python3 -B scripts/compiled_sources.py "$build" | tidy -p "$build"
# The cross compiler knows where its headers are. Clang does not, so their folders are passed to it.
headers=$(i686-w64-mingw32-g++-win32 -print-file-name=include/c++)
python3 -B scripts/compiled_sources.py "$windows_build" /win32/ | tidy -p "$windows_build" \
  --extra-arg=--target=i686-w64-mingw32 --extra-arg="-isystem$headers" --extra-arg="-isystem$headers/i686-w64-mingw32"
# The sources for the bare machine are compiled with options of their own.
git ls-files 'boot/loader/pc/*.cpp' | tidy -p "$build/boot"
