#!/usr/bin/env python3
"""Checks that headers and macros of an operating system or a window toolkit are used in the rooms of ALLOWED only."""

import re

import sources

# The headers directly in host/ must not depend on the operating system; their implementations do.
ALLOWED = [("host", "posix"), ("host", "win32"), ("desktop",), ("apps",), ("tests",),
           ("bench", "window_build.cpp")]

POSIX_HEADERS = (
    "arpa/.+ dirent dlfcn fcntl fnmatch ftw glob grp langinfo libgen linux/.+ net/.+ netinet/.+ poll pthread pty pwd "
    "sched semaphore signal spawn strings sys/.+ syslog termios unistd utime wordexp"
)
WINDOWS_HEADERS = "commctrl commdlg conio direct htmlhelp io objbase process shellapi shlobj shlwapi tchar win[a-z0-9]+"

HEADERS = "|".join((POSIX_HEADERS + " " + WINDOWS_HEADERS).split())
# A name in double quotes is a file of this repository, which check_floors.py looks at.
HEADER = re.compile(rf"^\s*#\s*include\s*<((?:(?i:{HEADERS})\.h|Q[tA-Z][^>]*))>")
MACRO = re.compile(r"^\s*#.*?\b(_WIN32|_WIN64|_MSC_VER|__MINGW32__|__linux__|__unix__|__APPLE__|_POSIX_\w+)\b")


def foreign_name(line):
    """Returns the header or macro of a platform that a line of C++ names, or None."""
    header = HEADER.match(line)
    if header:
        return f"<{header[1]}>"
    macro = MACRO.match(line)
    return macro[1] if macro else None


def is_allowed(file):
    return any(file.parts[: len(place)] == place for place in ALLOWED)


def check(root):
    problems = []
    for file in sources.cpp_files(root):
        if is_allowed(file):
            continue
        for number, line in enumerate(sources.read_text(root / file).splitlines(), 1):
            name = foreign_name(line)
            if name:
                problems.append(f"{file}:{number}: {name} belongs in host/posix, host/win32, desktop or apps")
    return problems


if __name__ == "__main__":
    sources.run(check)
