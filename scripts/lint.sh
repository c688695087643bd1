#!/bin/sh
# Every checker over every source; stops at the first that complains.
#   scripts/lint.sh BUILD   BUILD: a configured build folder (its compile_commands.json is read)
set -eu
build=$1

git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
git ls-files '*.sh' .ci/run | xargs shellcheck
for check in scripts/check_*.py; do python3 -B "$check"; done
git ls-files '*.cpp' ':!tests' | xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p "$build"
