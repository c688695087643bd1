#!/usr/bin/env python3
"""Checks that every C++ file opens with a sentence that says what it is, and that headers have #pragma once."""

import re

import sources

PRAGMA_ONCE = re.compile(r"^#pragma once$", re.MULTILINE)


def opening_comment(text):
    """The text of the // lines at the very start, joined."""
    lines = []
    for line in text.splitlines():
        if not line.startswith("//"):
            break
        lines.append(line[2:].strip())
    return " ".join(lines)


def has_sentence(comment):
    """Several words that end in a full stop."""
    return bool(re.match(r"\S+\s+\S.*[.](\s|$)", comment))


def check(root):
    problems = []
    for file in sources.cpp_files(root):
        text = sources.read_text(root / file)
        if not has_sentence(opening_comment(text)):
            problems.append(f"{file}:1: does not open with a comment of one sentence that says what the file is")
        if file.suffix == ".h" and not PRAGMA_ONCE.search(text):
            problems.append(f"{file}:1: no #pragma once")
    return problems


if __name__ == "__main__":
    sources.run(check)
