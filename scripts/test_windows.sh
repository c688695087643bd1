#!/bin/sh
# Builds the Windows programs and runs their tests under Wine. The tests use the 32-bit programs, which ship. If no Wine
# can be made for these, the tests use a 64-bit build of the same sources, and the tests of the 32-bit programs are
# reported as skipped.
#   scripts/test_windows.sh
set -eu
cd "$(dirname "$0")/.."
scripts/bootstrap.sh test

configure() {
  preset=$1
  shift
  cmake --preset "$preset" --log-level=WARNING "$@"
}
tested=windows-x86
if ! scripts/wine32.sh make; then
  tested=windows-x64
  scripts/bootstrap.sh wine64
  configure windows-x86 -DDISCWRIGHT_TESTS=OFF
  cmake --build --preset windows-x86 -j "$(nproc)"
  scripts/run_tests.sh windows-x86
fi
configure $tested -DDISCWRIGHT_TESTS=ON
cmake --build --preset $tested -j "$(nproc)"
configure linux -DDISCWRIGHT_TESTS=ON -DDISCWRIGHT_WINDOWS_PROGRAM="$PWD/build/$tested/program"
cmake --build --preset linux -j "$(nproc)" --target windows_test
scripts/wine32.sh run scripts/run_tests.sh $tested
scripts/wine32.sh run scripts/run_tests.sh linux -L windows
