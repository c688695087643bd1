#!/usr/bin/env python3
"""Changes the code in small ways, one at a time, and counts how many changes the unit tests notice."""

import argparse
import hashlib
import json
import os
import resource
import shutil
import subprocess
import sys
from pathlib import Path, PurePath

from mutation_places import find_places

ROOT = Path(__file__).resolve().parent.parent
# The rooms from the lowest to the highest: the tests of a room may notice a change in every room below it.
ROOMS = ["base", "host", "forms", "util", "settings", "steps", "integration", "pipeline", "wizard", "desktop"]
KINDS = {
    "random": {"swap", "drop", "negate", "operator", "constant", "text"},
    "swaps": {"swap", "drop"},
}
SHARE_OF_TEXTS = 0.25  # how often a text is drawn, compared with another change: tests repeat texts word by word
TIME_OUT = 60  # the time limit of a test program, in seconds
MEMORY = 4 << 30  # the memory limit in bytes: a changed loop may ask for more and more


def git_files(*arguments):
    """Returns the files of the checkout that are not ignored, relative to its top."""
    command = ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard", *arguments]
    listed = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, check=True, text=True).stdout
    return sorted({name for name in listed.split("\0") if name and (ROOT / name).is_file()})


def copy_checkout(tree):
    """Makes the content of `tree` equal to that of the checkout.

    A file that is equal already keeps its date, so that it is not compiled again.
    """
    files = git_files()
    for old in [path for path in tree.rglob("*") if path.is_file()]:
        if str(old.relative_to(tree)) not in set(files):
            old.unlink()
    for name in files:
        target = tree / name
        if not target.exists() or target.read_bytes() != (ROOT / name).read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, target)


def configure(tree, build):
    linker = ["-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld"] if shutil.which("ld.lld") else []
    options = ["-DDISCWRIGHT_TESTS=ON", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0 -w", *linker]
    command = ["cmake", "-S", tree, "-B", build, "-G", "Ninja", "--log-level=WARNING", *options]
    subprocess.run(command, stdout=subprocess.DEVNULL, check=True)


def compile_arguments(build):
    """Returns {path: arguments for clang} of all compiled files."""
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    kept = ("-I", "-D", "-std", "-isystem")
    return {
        entry["file"]: [word for word in entry["command"].split() if word.startswith(kept)] + ["-w", "-xc++"]
        for entry in commands
    }


def all_places(tree, build, names):
    """Returns the places in the named files, folders and lines.

    A header is read with the arguments of the sources in its folder.
    """
    arguments = compile_arguments(build)
    of_folder = {str(Path(path).parent): given for path, given in arguments.items()}
    places = []
    for name in git_files("--", *(name.split(":")[0] for name in names)):
        path = tree / name
        given = arguments.get(str(path)) if path.suffix == ".cpp" else of_folder.get(str(path.parent))
        if path.suffix in (".cpp", ".h") and given:
            places += find_places(path, given)
    lines = {str(tree / name) for name in names if ":" in name}
    return [place for place in places if not lines or f"{place.path}:{place.line}" in lines]


def draw(places, tree, kind, seed):
    """Returns the places of the kinds that `kind` names, in an order that the seed decides.

    The order of two places does not depend on the other places.
    """

    def chance(place):
        """Returns a number from 0 to 1, which depends only on the seed and the place."""
        named = f"{seed} {PurePath(place.path).relative_to(tree)} {place.line} {place.start} {place.kind} {place.shown}"
        return int(hashlib.sha256(named.encode()).hexdigest(), 16) / 2**256

    drawn = [(chance(place), place) for place in places if place.kind in KINDS[kind]]
    # Texts get larger numbers, so that only a part of them comes early enough to be drawn.
    return [place for _, place in sorted((n / SHARE_OF_TEXTS if p.kind == "text" else n, p) for n, p in drawn)]


def test_programs(tree, path):
    """Returns the unit tests that may notice a change of this file. Those of its own room come first."""
    parts = PurePath(path).relative_to(tree).parts
    room = parts[1] if parts[0] == "tools" else parts[0]
    rooms = ROOMS[ROOMS.index(room) :] if room in ROOMS else [room]
    return [f"{name}_test" for name in rooms if (tree / "tests" / name).is_dir()]


class Workshop:
    """The copy of the checkout in which files are changed, built and tested."""

    def __init__(self, folder, tests):
        self.tree, self.build, self.tests = folder / "tree", folder / "build", tests
        self.tree.mkdir(parents=True, exist_ok=True)
        copy_checkout(self.tree)
        configure(self.tree, self.build)

    def programs(self, path):
        return self.tests or test_programs(self.tree, path)

    def builds(self, program):
        command = ["cmake", "--build", self.build, "-j", str(os.cpu_count()), "--target", program]
        return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

    def passes(self, program):
        command = [self.build / "tests" / program, "--gtest_fail_fast", "--gtest_brief=1"]
        quiet = {stream: subprocess.DEVNULL for stream in ("stdin", "stdout", "stderr")}
        limit = lambda: resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))  # noqa: E731
        try:
            return subprocess.run(command, **quiet, timeout=TIME_OUT, preexec_fn=limit).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def check_unchanged(self, places):
        """Returns the first program whose tests fail without a change, or None."""
        programs = {program for path in {place.path for place in places} for program in self.programs(path)}
        return next((name for name in sorted(programs) if not (self.builds(name) and self.passes(name))), None)

    def outcome(self, place):
        """Returns what the tests say about one change: "noticed by ...", "SURVIVED" or "invalid"."""
        file = Path(place.path)
        original = file.read_bytes()
        try:
            file.write_bytes(original[: place.start] + place.new + original[place.end :])
            for program in self.programs(place.path):
                if not self.builds(program):
                    return "invalid"
                if not self.passes(program):
                    return f"noticed by {program}"
            return "SURVIVED"
        finally:
            file.write_bytes(original)


def try_places(workshop, drawn, count):
    """Tries changes until `count` of them were compiled, and prints a line for each change.

    Returns a list with True for every change that a test noticed, and False for every other one that was compiled.
    """
    noticed = []
    drawn = list(drawn)
    try:
        while drawn and len(noticed) < count:
            # The changes are tried file by file, because another file costs one more compilation.
            batch = sorted(drawn[: count - len(noticed)])
            del drawn[: count - len(noticed)]
            for place in batch:
                outcome = workshop.outcome(place)
                where = PurePath(place.path).relative_to(workshop.tree)
                print(f"{where}:{place.line}: {place.kind}: {place.shown}: {outcome}", flush=True)
                noticed += [] if outcome == "invalid" else [outcome != "SURVIVED"]
    except KeyboardInterrupt:
        print("Stopped.")
    return noticed


def arguments():
    parser = argparse.ArgumentParser(prog="mutants.sh", description=__doc__)
    parser.add_argument("names", nargs="+", metavar="NAME", help="folder, file or FILE:LINE, such as pipeline")
    parser.add_argument("--kind", choices=KINDS, default="random", help="swaps: swapped arguments, dropped statements")
    parser.add_argument("--count", type=int, default=60, help="how many changes that compile (default 60)")
    parser.add_argument("--seed", type=int, default=1, help="another seed draws other changes (default 1)")
    parser.add_argument("--tests", nargs="+", metavar="PROGRAM", help="such as util_test; default: by the room")
    parser.add_argument("--list", action="store_true", help="print the places and change nothing")
    return parser.parse_args()


def main():
    given = arguments()
    workshop = Workshop(ROOT / "build" / "mutants", given.tests)
    drawn = draw(all_places(workshop.tree, workshop.build, given.names), workshop.tree, given.kind, given.seed)
    print(f"{len(drawn)} places, kind {given.kind}, seed {given.seed}", flush=True)
    if given.list:
        for place in sorted(drawn):
            print(f"{PurePath(place.path).relative_to(workshop.tree)}:{place.line}: {place.kind}: {place.shown}")
        return
    failing = workshop.check_unchanged(drawn)
    if failing:
        sys.exit(f"{failing} fails without a change")
    noticed = try_places(workshop, drawn, given.count)
    if noticed:
        print(f"noticed {sum(noticed)} of {len(noticed)}: {100 * sum(noticed) / len(noticed):.1f} %")


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("Stopped.")
