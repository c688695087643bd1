#!/bin/sh
# Changes the code in small ways, one at a time, and prints which share of the changes the unit tests notice.
#   scripts/mutants.sh [--kind random|swaps] [--count N] [--seed S] [--tests PROGRAM...] -- NAME...
# A name is a folder, a file, or FILE:LINE for the changes of that line only.
# The script works in a copy below build/mutants and leaves the checkout alone. --list prints the places and changes
# nothing.
set -eu
cd "$(dirname "$0")/.."
scripts/bootstrap.sh mutants
exec python3 -B scripts/mutants.py "$@"
