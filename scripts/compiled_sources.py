#!/usr/bin/env python3
"""Lists the files that the compiler gets in a configured build folder, one in a line, without the tests and without
sources that the build generates.

In a unity build, one file stands for several sources.

    compiled_sources.py BUILD [PART]     with PART: only files whose path, or the path of a source in them, contains it
"""

import json
import sys
from pathlib import Path


def compiled(build):
    """Returns the source files that the compiler gets."""
    return sorted({entry["file"] for entry in json.loads((build / "compile_commands.json").read_text())})


def sources_in(file):
    """Returns the sources that a file stands for: those that a unity includes, or the file itself."""
    lines = Path(file).read_text(encoding="utf-8").splitlines() if "/Unity/" in file else []
    return [line.split('"')[1] for line in lines if line.startswith("#include")] or [file]


def chosen(build, root, part=""):
    """Yields the files that the checkers should read."""
    for file in compiled(build):
        sources = sources_in(file)
        paths = [Path(source).relative_to(root) for source in sources if Path(source).is_relative_to(root)]
        is_ours = paths and paths[0].suffix == ".cpp" and paths[0].parts[0] not in ("tests", "build")
        if is_ours and any(part in p.as_posix() for p in paths):
            yield file


def main(arguments):
    if not 1 <= len(arguments) <= 2:
        sys.exit(__doc__)
    print(*chosen(Path(arguments[0]), Path(__file__).resolve().parent.parent, *arguments[1:]), sep="\n")


if __name__ == "__main__":
    main(sys.argv[1:])
