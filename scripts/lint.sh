#!/bin/sh
# Every checker over every source; stops at the first that complains.
#   scripts/lint.sh BUILD WINDOWS_BUILD   two configured build folders (their compile_commands.json are read)
set -eu
build=$1
windows_build=$2

git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
git ls-files '*.sh' .ci/run | xargs shellcheck
for check in floors openings platform sizes windows_names; do python3 -B "scripts/check_$check.py"; done

tidy="xargs -P $(nproc) -n 4 clang-tidy --quiet"
git ls-files '*.cpp' ':!tests' ':!*/win32/*' | $tidy -p "$build"
# The cross compiler knows where its headers are; clang has to be told.
headers=$(x86_64-w64-mingw32-g++-win32 -print-file-name=include/c++)
git ls-files '*/win32/*.cpp' ':!tests' | $tidy -p "$windows_build" --extra-arg=--target=x86_64-w64-mingw32 \
  --extra-arg="-isystem$headers" --extra-arg="-isystem$headers/x86_64-w64-mingw32"
