#!/usr/bin/env python3
"""Checks that every C++ file begins with a comment of at least one sentence, and that every header has #pragma once."""

import re

import sources

PRAGMA_ONCE = re.compile(r"^#pragma once$", re.MULTILINE)


def opening_comment(text):
    """Returns the // lines at the start of a file, joined to one text."""
    lines = []
    for line in text.splitlines():
        if not line.startswith("//"):
            break
        lines.append(line[2:].strip())
    return " ".join(lines)


def has_sentence(comment):
    """Whether the comment has at least two words that end with a full stop."""
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
