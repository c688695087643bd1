#!/bin/sh
# Runs tests that are already built, several at a time. Prints how many passed, failed and were skipped, and why.
#   scripts/run_tests.sh PRESET [CTEST_OPTION...]    such as: run_tests.sh linux -L unit
set -eu
[ $# -ge 1 ] || { sed -n '2,3p' "$0" >&2; exit 2; }
preset=$1
shift
cd "$(dirname "$0")/.."
results=$PWD/build/$preset/results.xml
rm -f "$results"

status=0
# Without these sizes ctest would cut off the reasons.
ctest --preset "$preset" -j "$(nproc)" --no-tests=error --output-junit "$results" --test-output-size-passed 1000000 \
  --test-output-size-failed 1000000 "$@" || status=$?
python3 -B scripts/summary_of_tests.py "$results" || status=1
exit $status
