"""The C++ files of the house, and how a check reports: what the check_*.py scripts share."""

import os
import sys
from pathlib import Path

ROOMS_OUTSIDE = {"build", "files"}  # what is made, and data that ships as it is


def cpp_files(root):
    """The paths below `root` (a Path) of all C++ files, relative to it and sorted."""
    found = []
    for folder, folders, names in os.walk(root):
        top = Path(folder) == root
        folders[:] = [name for name in folders if not name.startswith(".") and not (top and name in ROOMS_OUTSIDE)]
        found += [(Path(folder) / name).relative_to(root) for name in names if name.endswith((".cpp", ".h"))]
    return sorted(found)


def read_text(path):
    """The text of a file; bytes that are not UTF-8 are replaced, no check looks at them."""
    return path.read_text(encoding="utf-8", errors="replace")


def run(check):
    """Runs check(root) -> problems on the tree named by the first argument (default: the one that holds this script).

    Prints every problem, one per line, and ends the program with 1 when there is one.
    """
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent).resolve()
    if not cpp_files(root):
        sys.exit(f"{root}: no C++ files")
    problems = check(root)
    for problem in problems:
        print(problem)
    sys.exit(1 if problems else 0)
