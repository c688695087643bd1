#!/usr/bin/env python3
"""Checks that no name in our C++ files is a macro of <windows.h>, which would replace the name in some files."""

import re
import subprocess

import sources

COMPILER = "x86_64-w64-mingw32-g++-win32"
HEADERS = "windows commctrl commdlg objbase shellapi shlobj".split()  # the headers for a native window
# Macros of the C library are not counted, because they are the same in every file.
STANDARD = "cassert cerrno cfloat climits clocale cmath csignal cstddef cstdint cstdio cstdlib cstring ctime".split()
# These macros are not counted: in our files they name only parameters, and a renamed parameter changes nothing.
PARAMETERS = {"FindText", "ReplaceText"}
BACK_ROOMS = [("host", "win32"), ("desktop", "win32"), ("tests",)]  # files here use the macros on purpose

SKIPPED = re.compile(r'//[^\n]*|/\*[\s\S]*?\*/|R"\([\s\S]*?\)"|"(?:\\.|[^"\\\n])*"|(?<!\d)\'(?:\\.|[^\'\\\n])*\'|^[ \t]*#.*$',
                     re.MULTILINE)
WORD = re.compile(r"\b[A-Za-z_]\w*\b")


def macros_of(includes):
    """Returns the names of all macros that are defined after these #include lines."""
    output = subprocess.run([COMPILER, "-DNOMINMAX", "-DWIN32_LEAN_AND_MEAN", "-E", "-dM", "-xc++", "-"],
                            input=includes, capture_output=True, text=True, check=True).stdout
    return {re.split(r"[ (]", line, maxsplit=2)[1] for line in output.splitlines()}


def windows_macros():
    standard = macros_of("".join(f"#include <{name}>\n" for name in STANDARD))
    return macros_of("".join(f"#include <{name}.h>\n" for name in HEADERS)) - standard - PARAMETERS


def names_in(text):
    """Yields (line number, name) of every name in C++ text, without comments, literals and preprocessor lines."""
    text = SKIPPED.sub(lambda match: "\n" * match[0].count("\n"), text)
    for number, line in enumerate(text.splitlines(), 1):
        for name in WORD.findall(line):
            yield number, name


def check(root, macros=None):
    macros = windows_macros() if macros is None else macros
    problems = []
    for file in sources.cpp_files(root):
        if any(file.parts[: len(room)] == room for room in BACK_ROOMS):
            continue
        for number, name in names_in(sources.read_text(root / file)):
            if name in macros:
                problems.append(f"{file}:{number}: {name} is a macro of <windows.h>; use another name")
    return problems


if __name__ == "__main__":
    sources.run(check)
