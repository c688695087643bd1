"""Measures whole builds and the tree copy: their time against cp, the processor time while a tool runs, and the memory.
"""

import os
import sys
import time
from pathlib import Path

import measure
import trees
from common import MADE, build_command, contents, empty_files, passing_folder, program_folder, ratio_text, read_all

COPY_AIM = 1.0  # greatest wall time, as a multiple of that of cp -r
BUILD_AIM = 1.15  # greatest wall time, as a multiple of that of cp -r of the tree and cp of the image
WAIT_AIM = 1.0  # per cent of one processor
MEMORY_AIM = 64  # MiB
MEBIBYTE = 1024 * 1024

WAIT_SECONDS = 20
WAITING_TOOL = """#!/bin/sh
: > waiting
sleep {seconds}
while [ "$#" -gt 1 ]; do
  if [ "$1" = -output ]; then echo image > "$2"; fi
  shift
done
"""


class CopyRun:
    """Copies `source` to a new folder below `copies` at every call. Only the time of the copying itself is measured."""

    def __init__(self, command, source, copies):
        self.command, self.source, self.copies, self.calls = command, source, copies, 0

    def __call__(self):
        self.calls += 1
        copy = self.copies / f"{Path(self.command[0]).name}{self.calls}"
        read_all(self.source)
        usage = measure.must(measure.run([*self.command, self.source, copy], output=None), self.command)
        if contents(copy) != contents(self.source):
            sys.exit(f"{copy} is no copy of {self.source}")
        empty_files(copy)
        return usage


def copy_row(options):
    source = trees.make_tree(options.work / "setup_cd", trees.setup_plan())
    copies = passing_folder(options, "copies")
    ours = CopyRun([options.build / "bench" / "bench_copy_tree"], source, copies)
    wall, processor = measure.compare(options.pairs, ours, CopyRun(["cp", "-r"], source, copies))
    measured = f"{ratio_text(wall)}, {processor.ratio:.2f} x processor"
    return [("tree copy with progress to `cp -r`", measured, f"at most {COPY_AIM:.1f} x wall", wall.ratio <= COPY_AIM)]


class WaitingShare:
    """Measures the processor time of a build while its mastering tool sleeps. measure.run takes it as `watch`."""

    share = None  # of one processor

    def __init__(self, marker):
        self.marker = marker

    def __call__(self, pid):
        while not self.marker.exists():
            if not Path(f"/proc/{pid}").exists():
                return
            time.sleep(0.01)
        time.sleep(1)  # waits until the start of the tool is over
        start, before = time.monotonic(), measure.processor_time(pid)
        time.sleep(WAIT_SECONDS - 3)
        self.share = (measure.processor_time(pid) - before) / (time.monotonic() - start)


def waiting_row(options):
    folder = program_folder(options, "waiting_program")
    tool = folder / "mkisofs"
    tool.unlink()
    tool.write_text(WAITING_TOOL.format(seconds=WAIT_SECONDS))
    tool.chmod(0o755)
    share = WaitingShare(folder / "waiting")
    command = build_command(folder)
    measure.must(measure.run(command, watch=share), command, MADE)
    if share.share is None:
        sys.exit("The mastering tool was never started.")
    resolution = 100 * measure.CLOCK_TICK / (WAIT_SECONDS - 3)
    percent = 100 * share.share
    measured = f"{percent:.2f} %" if percent >= resolution / 2 else f"less than {resolution:.2f} %"
    return [("processor time while a tool runs", measured, f"under {WAIT_AIM:.0f} %", percent < WAIT_AIM)]


def memory_row(options):
    source = trees.make_tree(options.work / "many_files", trees.many_plan(options.files))
    folder = program_folder(options, "memory_program")
    peak = measure.PeakMemory()
    choices = ["ChkCleanSession=0", "ChkAddFiles=1", f"TxtAddFiles_Loc={source}"]
    command = build_command(folder, *(argument for choice in choices for argument in ("--set", choice)))
    measure.must(measure.run(command, watch=peak), command, MADE)
    copied = len(contents(folder / "vexacd"))
    if copied < options.files:
        sys.exit(f"Only {copied} of {options.files} files came to the workspace.")
    measured = f"{peak.peak / MEBIBYTE:.0f} MiB (largest program that it starts: {peak.largest / MEBIBYTE:.0f} MiB)"
    what = f"peak memory of a build with {options.files:,} additional files"
    return [(what, measured, f"under {MEMORY_AIM} MiB", peak.peak < MEMORY_AIM * MEBIBYTE)]


class WholeBuild:
    """Builds a CD from `source` in a new program folder at every call. Keeps the last image for TwoCopies."""

    def __init__(self, options, source, folders):
        self.options, self.source, self.folders, self.calls = options, source, folders, 0
        self.image = folders / "bench.iso"

    def __call__(self):
        self.calls += 1
        folder = program_folder(self.options, f"{self.folders.name}/program{self.calls}")
        choices = ["ChkCleanSession=0", "ChkVexaUtils=1", f"TxtUtils_Loc={self.source}"]
        command = build_command(folder, *(argument for choice in choices for argument in ("--set", choice)))
        read_all(self.source)
        usage = measure.must(measure.run(command), command, MADE)
        os.replace(folder / "bench.iso", self.image)
        empty_files(folder / "vexacd")
        return usage


class TwoCopies:
    """Copies the tree and then the image with cp, one process for each."""

    def __init__(self, build, folders):
        self.build, self.folders, self.calls = build, folders, 0

    def __call__(self):
        self.calls += 1
        tree, image = self.folders / f"tree{self.calls}", self.folders / "copied.iso"
        image.unlink(missing_ok=True)
        read_all(self.build.source)
        commands = [["cp", "-r", self.build.source, tree], ["cp", self.build.image, image]]
        first, second = (measure.must(measure.run(command), command) for command in commands)
        empty_files(tree)
        return measure.Usage(first.wall + second.wall, first.processor + second.processor, 0)


def whole_row(options):
    source = trees.make_tree(options.work / "setup_cd", trees.setup_plan())
    folders = passing_folder(options, "whole")
    build = WholeBuild(options, source, folders)
    wall, processor = measure.compare(options.pairs, build, TwoCopies(build, folders))
    measured = f"{ratio_text(wall)}, {processor.ratio:.2f} x processor"
    what = "whole build to `cp -r` of the tree and `cp` of the image"
    return [(what, measured, f"at most {BUILD_AIM} x wall", wall.ratio <= BUILD_AIM)]
