#!/usr/bin/env python3
"""Checks that every file includes only rooms below its own, and that no files include one another in a circle."""

import re

import sources

# The floors from the lowest to the highest. A room may include itself and all rooms of the floors below, but no other
# room of its own floor.
FLOORS = [["base", "forms"], ["host"], ["util"], ["settings", "steps"], ["integration"], ["pipeline"], ["wizard"],
          ["desktop"], ["apps"]]
# Rooms of lower floors that a room must not include either: copying files and calling the system need no windows.
UNKNOWN = {"host": {"forms"}, "util": {"forms"}}
# Rooms beside the floors. Each of them may include itself and the rooms named here. A folder of tools/ is a program: it
# may include its own files and the headers directly in tools/, but no files of another program.
BESIDE = {"tools": {"host", "base"}, "bench": {room for rooms in FLOORS for room in rooms} - {"apps"}, "boot": set()}
TESTS = "tests"  # may include every room
BACK_ROOMS = [("host", "posix"), ("host", "win32")]  # included by their own files and by tests only

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def floor_of(room):
    for number, rooms in enumerate(FLOORS):
        if room in rooms:
            return number
    return None


def is_known(room):
    return room == TESTS or room in BESIDE or floor_of(room) is not None


def room_allows(room, other):
    """Whether files of top-level folder `room` may include files of top-level folder `other`."""
    if room in (TESTS, other):
        return True
    if room in BESIDE:
        return other in BESIDE[room]
    is_below = floor_of(other) is not None and floor_of(other) < floor_of(room)
    return is_below and other not in UNKNOWN.get(room, set())


def objection(file, included):
    """Returns why `file` must not include `included`, or None if it may. Both are paths from the root."""
    room, other = file.parts[0], included.parts[0]
    if not room_allows(room, other):
        return f"{room} must not include {other}"
    if room == other == "tools" and len(included.parts) > 2 and file.parts[1] != included.parts[1]:
        return f"tools/{file.parts[1]} must not include tools/{included.parts[1]}"
    if room != TESTS and included.parts[:2] in BACK_ROOMS and included.parts[:2] != file.parts[:2]:
        return f"{'/'.join(included.parts[:2])} is reached through the headers of host/ only"
    return None


def resolve(root, file, name):
    """Finds the included file in the folder of `file` or one above it; None when `root` does not contain it."""
    for folder in (root / file).parents:
        candidate = (folder / name).resolve()
        if candidate.is_file() and candidate.is_relative_to(root):
            return candidate.relative_to(root)
        if folder == root:
            return None
    return None


def includes_of(root, file):
    """Yields (line number, name as written, file or None) for every #include "..." of a file."""
    text = sources.read_text(root / file)
    for match in INCLUDE.finditer(text):
        line = text.count("\n", 0, match.start(1)) + 1
        yield line, match[1], resolve(root, file, match[1])


def find_circle(graph):
    """Returns a circle of a {file: [files]} graph as a list that ends with its first entry; None if there is no circle."""
    done = set()

    def visit(file, way):
        if file in way:
            return way[way.index(file):] + [file]
        if file in done:
            return None
        for included in graph.get(file, []):
            circle = visit(included, way + [file])
            if circle:
                return circle
        done.add(file)
        return None

    return next((circle for circle in (visit(file, []) for file in sorted(graph)) if circle), None)


def check(root):
    problems = []
    graph = {}
    for file in sources.cpp_files(root):
        if not is_known(file.parts[0]):
            problems.append(f"{file}: the folder {file.parts[0]} has no floor in scripts/check_floors.py")
            continue
        graph[file] = []
        for line, name, included in includes_of(root, file):
            if included is None:
                problems.append(f'{file}:{line}: "{name}" is not a file of this repository')
                continue
            graph[file].append(included)
            reason = objection(file, included)
            if reason:
                problems.append(f'{file}:{line}: "{name}": {reason}')
    circle = find_circle(graph)
    if circle:
        problems.append("circle: " + " -> ".join(map(str, circle)))
    return problems


if __name__ == "__main__":
    sources.run(check)
