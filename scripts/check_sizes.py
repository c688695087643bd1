#!/usr/bin/env python3
"""Prints the lengths of functions and files (median, 90th percentile, largest). Fails when one is too long."""

import re
import subprocess
import sys

import sources

MAX_FUNCTION_LINES = 60
MAX_FILE_LINES = 600
LARGEST_SHOWN = 3

# {"path" or "path: Function": reason why it may be longer}. The check also fails for an entry that is not needed.
EXCEPTIONS = {}

CTAGS = ["ctags", "-f", "-", "--languages=C++", "--langmap=C++:.cpp.h", "--c++-kinds=f", "--fields=+ne", "-L", "-"]
TEST_NAME = re.compile(r"/\^\s*TEST\w*\((\w+), *(\w+)\)")


def function_name(fields):
    """Returns the name of a function in a line of ctags. A test has the name Suite.Name."""
    test = TEST_NAME.match(fields[2])
    return f"{test[1]}.{test[2]}" if test else fields[0]


def function_lengths(root, files):
    """Returns [(lines, "path: Function")] of all functions. The lines of a lambda count for the function around it."""
    names = "\n".join(map(str, files))
    tags = subprocess.run(CTAGS, cwd=root, input=names, stdout=subprocess.PIPE, text=True, errors="replace", check=True)
    lengths = []
    for tag in tags.stdout.splitlines():
        fields = tag.split("\t")
        if tag.startswith("!") or fields[0].startswith("__anon"):
            continue
        start = int(re.search(r"\tline:(\d+)", tag)[1])
        end = re.search(r"\tend:(\d+)", tag)
        if end:  # the end is missing for "= default"
            lengths.append((int(end[1]) - start + 1, f"{fields[1]}: {function_name(fields)}"))
    return lengths


def percentile(lengths, percent):
    """Returns the smallest length that at least `percent` of the sorted lengths do not exceed."""
    return lengths[max(0, -(-len(lengths) * percent // 100) - 1)][0]


def report(kind, lengths):
    if not lengths:
        return
    lengths = sorted(lengths)
    print(f"{kind}: {len(lengths)}, median {percentile(lengths, 50)}, p90 {percentile(lengths, 90)}, largest:")
    for lines, name in reversed(lengths[-LARGEST_SHOWN:]):
        print(f"  {lines:4} lines  {name}")


def too_long(lengths, most):
    """Returns (problems, names of the exceptions that were needed)."""
    problems, used = [], set()
    for lines, name in lengths:
        if lines <= most:
            continue
        if name in EXCEPTIONS:
            used.add(name)
        else:
            problems.append(f"{name}: {lines} lines, at most {most}")
    return problems, used


def check(root):
    files = sources.cpp_files(root)
    functions = function_lengths(root, files)
    lengths = [(len(sources.read_text(root / file).splitlines()), str(file)) for file in files]
    report("functions", functions)
    report("files", lengths)
    long_functions, used_for_functions = too_long(functions, MAX_FUNCTION_LINES)
    long_files, used_for_files = too_long(lengths, MAX_FILE_LINES)
    unused = [
        f"{name}: an exception that is not needed"
        for name in EXCEPTIONS
        if (root / name.split(":")[0]).exists() and name not in used_for_functions | used_for_files
    ]
    return long_functions + long_files + unused


if __name__ == "__main__":
    try:
        sources.run(check)
    except FileNotFoundError:
        sys.exit("check_sizes.py needs the program ctags (Debian package universal-ctags)")
