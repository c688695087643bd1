"""Helps the check_*.py scripts: lists the C++ files and runs a check."""

import os
import sys
from pathlib import Path

ROOMS_OUTSIDE = {"build", "files"}  # built files, and data that ships unchanged


def cpp_files(root):
    """Returns the sorted paths of all C++ files below `root` (a Path), relative to it."""
    found = []
    for folder, folders, names in os.walk(root):
        top = Path(folder) == root
        folders[:] = [name for name in folders if not name.startswith(".") and not (top and name in ROOMS_OUTSIDE)]
        found += [(Path(folder) / name).relative_to(root) for name in names if name.endswith((".cpp", ".h"))]
    return sorted(found)


def read_text(path):
    """Returns the text of a file. Bytes that are not UTF-8 are replaced, because no check needs them."""
    return path.read_text(encoding="utf-8", errors="replace")


def run(check):
    """Calls check(root), which returns problems, for the tree named by the first argument (default: this repository).

    Prints one problem per line and exits with 1 when there is one, otherwise with 0.
    """
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent).resolve()
    if not cpp_files(root):
        sys.exit(f"{root}: no C++ files")
    problems = check(root)
    for problem in problems:
        print(problem)
    sys.exit(1 if problems else 0)
