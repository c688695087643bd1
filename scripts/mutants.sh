#!/bin/sh
# Changes the code in small ways, one at a time, and says which share of the changes the unit tests notice.
#   scripts/mutants.sh [--kind random|swaps] [--count N] [--seed S] [--tests PROGRAM...] -- FILE_OR_FOLDER...
# Works in a copy below build/mutants; the checkout is not touched. --list prints the places and changes nothing.
set -eu
cd "$(dirname "$0")/.."
scripts/bootstrap.sh mutants
exec python3 -B scripts/mutants.py "$@"
