"""Measures mkisofs and dfl, two tools that a build calls, against other programs with the same task."""

import os
import shutil
import sys
from pathlib import Path

import measure
import trees
from common import empty_files, passing_folder, ratio_text, read_all

GENISOIMAGE_AIM, XORRISO_AIM, CP_AIM = 0.75, 0.4, 1.05  # greatest wall times, as multiples of those of these programs
LINKER_AIM = 0.7  # greatest wall time, as a multiple of that of the faster of two similar programs
GROWTH = (10_000, 100_000, 1_000_000)  # files
GROWTH_AIM = 1.5  # greatest time per file for the largest tree, as a multiple of that for the smallest tree
FILE_MEMORY_AIM = 200  # bytes per file beyond its name
MASTERING = ["-iso-level", "4", "-follow-links", "-cache-inodes", "-volid", "BENCH"]
XORRISO = ["xorriso", "-as", "mkisofs", "-iso-level", "3", "-f", "-volid", "BENCH"]  # xorriso has no level 4


class MakeFile:
    """Runs a command that makes the file `made`. Removes an older file of this name first."""

    def __init__(self, command, made, source):
        self.command, self.made, self.source = command, made, source

    def __call__(self):
        self.made.unlink(missing_ok=True)
        read_all(self.source)
        usage = measure.must(measure.run(self.command), self.command)
        if not self.made.stat().st_size:
            sys.exit(f"{self.made} is empty")
        return usage


def mkisofs_rows(options):
    source = trees.make_tree(options.work / "setup_cd", trees.setup_plan())
    images = passing_folder(options, "images")
    image, other, seed = images / "ours.iso", images / "other.iso", images / "one_file.iso"
    mkisofs = options.build / "program" / "mkisofs"
    ours = MakeFile([mkisofs, *MASTERING, "-output", image, source], image, source)
    ours()
    shutil.copyfile(image, seed)
    peers = [
        ("`genisoimage`", ["genisoimage", *MASTERING, "-output", other, source], GENISOIMAGE_AIM),
        ("`xorriso -as mkisofs`", [*XORRISO, "-o", other, source], XORRISO_AIM),
        ("`cp` of one file of that size", ["cp", seed, other], CP_AIM),
    ]
    rows = []
    for name, command, aim in peers:
        theirs = MakeFile(command, other, seed if command[0] == "cp" else source)
        wall, _ = measure.compare(options.pairs, ours, theirs)
        rows.append((f"mastering to {name}", ratio_text(wall), f"at most {aim} x wall", wall.ratio <= aim))
    return rows


def growth_rows(options):
    """Measures with files in memory, so that the disk does not influence the growth of the time."""
    folder = options.memory / f"discwright-bench-{os.getpid()}"
    folder.mkdir()
    try:
        return measure_growth(options, folder)
    finally:
        shutil.rmtree(folder)


def measure_growth(options, folder):
    mkisofs = options.build / "program" / "mkisofs"
    tree, image = folder / "tree", folder / "image.iso"
    command = [mkisofs, *MASTERING, "-output", image, tree]
    per_file = {}
    for count in GROWTH:
        plan = trees.many_plan(count, size=100)
        trees.write_files(tree, plan)
        runs, peak = [], measure.PeakMemory()
        for _ in range(3):
            runs.append(measure.must(measure.run(command, watch=peak), command))
            image.unlink()
        names = sum(len(path.rpartition("/")[2]) for path, _, _ in plan)
        per_file[count] = (min(run.wall for run in runs) / count, (peak.peak - names) / count)
        shutil.rmtree(tree)
    seconds = ", ".join(f"{1e6 * per_file[count][0]:.1f} µs at {count:,}" for count in GROWTH)
    growth = per_file[GROWTH[-1]][0] / per_file[GROWTH[0]][0]
    memory = per_file[GROWTH[-1]][1]
    return [
        (
            "mastering, time per small file",
            f"{seconds}: {growth:.2f} x",
            f"linear: at most {GROWTH_AIM} x",
            growth <= GROWTH_AIM,
        ),
        (
            f"mastering, memory per file beyond its name, {GROWTH[-1]:,} files",
            f"{memory:.0f} bytes",
            f"under {FILE_MEMORY_AIM} bytes",
            memory < FILE_MEMORY_AIM,
        ),
    ]


class LinkRun:
    """Links the duplicates in a new copy of `source` at every call. `saved` is the number of bytes that this freed."""

    def __init__(self, command, source, copies):
        self.command, self.source, self.copies, self.calls, self.saved = command, source, copies, 0, 0

    def __call__(self):
        self.calls += 1
        copy = self.copies / f"{Path(self.command[0]).name}{self.calls}"
        os.sync()
        # The program links at once, as in a build: the copy is still in memory and not yet on the disk.
        shutil.copytree(self.source, copy)
        before = disk_use(copy)
        command = [str(copy) if word == "TREE" else word for word in self.command]
        usage = measure.must(measure.run(command), command)
        self.saved = before - disk_use(copy)
        empty_files(copy)
        return usage


def disk_use(folder):
    """Returns the size of all files below a folder. Hard links count once."""
    files = {}
    for path in folder.rglob("*"):
        facts = path.stat()
        if path.is_file():
            files[facts.st_ino] = facts.st_size
    return sum(files.values())


def dfl_rows(options):
    source = trees.make_tree(options.work / "duplicates", trees.duplicates_plan())
    rows = []
    ours_command = [options.build / "program" / "dfl", "TREE", "link"]
    peers = [
        ("`jdupes -L`", ["jdupes", "-q", "-r", "-L", "TREE"]),
        ("`rdfind -makehardlinks true`", ["rdfind", "-makehardlinks", "true", "-outputname", os.devnull, "TREE"]),
    ]
    for name, command in peers:
        copies = passing_folder(options, f"linked_beside_{command[0]}")
        ours, theirs = LinkRun(ours_command, source, copies), LinkRun(command, source, copies)
        wall, _ = measure.compare(options.pairs, ours, theirs)
        if ours.saved != theirs.saved:
            print(f"dfl saved {ours.saved:,} bytes, {name} {theirs.saved:,}", flush=True)
        measured = f"{ratio_text(wall)}, {ours.saved / trees.MEGABYTE:.0f} MB saved"
        aim = f"at most {LINKER_AIM} x wall"
        rows.append((f"linking duplicates to {name}", measured, aim, wall.ratio <= LINKER_AIM))
    return rows
