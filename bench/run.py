#!/usr/bin/env python3
"""Measures the program and prints ratios; writes nothing outside its work folder unless told to (--write)."""

import argparse
import os
import shutil
import sys
import time
from pathlib import Path

import measure
import trees

ROOT = Path(__file__).resolve().parent.parent
README = ROOT / "bench" / "README.md"
TABLE_BEGIN, TABLE_END = "<!-- table begin -->\n", "<!-- table end -->\n"

COPY_AIM = 1.0  # times the wall time of cp -r
WAIT_AIM = 1.0  # per cent of one processor
MEMORY_AIM = 64  # MiB
QUIET = 0.5  # load average above which others disturb
MEBIBYTE = 1024 * 1024
MADE = (0, 4)  # exit codes of the program when there is an image; 4: with warnings

WAIT_SECONDS = 20
WAITING_TOOL = """#!/bin/sh
: > waiting
sleep {seconds}
while [ "$#" -gt 1 ]; do
  if [ "$1" = -output ]; then echo image > "$2"; fi
  shift
done
"""


def program_folder(options, name):
    """A fresh copy of the program folder, to be built in."""
    folder = options.work / name
    shutil.rmtree(folder, ignore_errors=True)
    shutil.copytree(options.build / "program", folder, ignore=shutil.ignore_patterns("vexacd.ini"), symlinks=True)
    # The workspace of a build that was made there is not part of the program.
    shutil.rmtree(folder / "vexacd", ignore_errors=True)
    return folder


def build_command(folder, *arguments):
    return [folder / "discwright-build", "--quiet", "-o", folder / "bench.iso", *arguments]


def contents(folder):
    """{relative path: size} of all files."""
    return {path.relative_to(folder): path.stat().st_size for path in folder.rglob("*") if path.is_file()}


def read_all(folder):
    """Reads every file once, so that whoever reads it next finds it in memory."""
    for path in folder.rglob("*"):
        if path.is_file():
            path.read_bytes()


class CopyRun:
    """Copies `source` to a new folder of `copies` at every call."""

    def __init__(self, command, source, copies):
        self.command, self.source, self.copies, self.calls = command, source, copies, 0

    def __call__(self):
        self.calls += 1
        # Nothing is deleted between the runs: ext4 without a journal makes files slowly where others were deleted
        # a short time ago, and the run that comes next would pay for that.
        self.copy = self.copies / f"{Path(self.command[0]).name}{self.calls}"
        os.sync()
        read_all(self.source)
        return measure.must(measure.run([*self.command, self.source, self.copy], output=None), self.command)


def copy_row(options):
    source, copies = options.work / "setup_cd", options.work / "copies"
    trees.make_tree(source, trees.setup_plan())
    shutil.rmtree(copies, ignore_errors=True)
    copies.mkdir()
    ours = CopyRun([options.build / "bench" / "bench_copy_tree"], source, copies)
    wall, processor = measure.compare(options.pairs, ours, CopyRun(["cp", "-r"], source, copies))
    if contents(ours.copy) != contents(source):
        sys.exit(f"{ours.copy} is no copy of {source}")
    shutil.rmtree(copies)
    measured = (
        f"{wall.ratio:.2f} x wall ({wall.lowest:.2f} to {wall.highest:.2f}; {wall.ours:.2f} s to {wall.theirs:.2f} s), "
        f"{processor.ratio:.2f} x processor"
    )
    return "tree copy with progress to `cp -r`", measured, f"at most {COPY_AIM:.1f} x wall", wall.ratio <= COPY_AIM


class WaitingShare:
    """The watch of a build that measures it while its mastering tool sleeps."""

    share = None  # of one processor

    def __init__(self, marker):
        self.marker = marker

    def __call__(self, pid):
        while not self.marker.exists():
            if not Path(f"/proc/{pid}").exists():
                return
            time.sleep(0.01)
        time.sleep(1)  # what the start of the tool itself costs is over
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
    shutil.rmtree(folder)
    if share.share is None:
        sys.exit("The mastering tool was never started.")
    resolution = 100 * measure.CLOCK_TICK / (WAIT_SECONDS - 3)
    percent = 100 * share.share
    measured = f"{percent:.2f} %" if percent >= resolution / 2 else f"less than {resolution:.2f} %"
    return "processor time while a tool runs", measured, f"under {WAIT_AIM:.0f} %", percent < WAIT_AIM


def memory_row(options):
    source = options.work / "many_files"
    trees.make_tree(source, trees.many_plan(options.files))
    folder = program_folder(options, "memory_program")
    peak = measure.PeakMemory()
    choices = ["ChkCleanSession=0", "ChkAddFiles=1", f"TxtAddFiles_Loc={source}"]
    command = build_command(folder, *(argument for choice in choices for argument in ("--set", choice)))
    usage = measure.must(measure.run(command, watch=peak), command, MADE)
    copied = len(contents(folder / "vexacd"))
    if copied < options.files:
        sys.exit(f"Only {copied} of {options.files} files came to the workspace.")
    shutil.rmtree(folder)
    measured = f"{peak.peak / MEBIBYTE:.0f} MiB (largest program that it starts: {usage.largest / MEBIBYTE:.0f} MiB)"
    what = f"peak memory of a build with {options.files:,} additional files"
    return what, measured, f"under {MEMORY_AIM} MiB", peak.peak < MEMORY_AIM * MEBIBYTE


ROWS = {"copy": copy_row, "waiting": waiting_row, "memory": memory_row}


def machine(folder):
    """The class of this machine in a few words."""
    gigabytes = round(os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE") / 2**30)
    release = dict(line.split("=", 1) for line in Path("/etc/os-release").read_text().splitlines() if "=" in line)
    mounts = [line.split() for line in Path("/proc/mounts").read_text().splitlines()]
    holding = [mount for mount in mounts if folder.is_relative_to(mount[1])]
    file_system = max(holding, key=lambda mount: len(mount[1]))[2]
    return f"{os.cpu_count()} processors, {gigabytes} GB, {release['PRETTY_NAME'].strip(chr(34))}, {file_system}"


def table(rows, where):
    lines = [f"Measured on: {where}.", "", "| What | Measured | Aim | Reached |", "|---|---|---|---|"]
    for what, measured, aim, reached in rows:
        lines.append(f"| {what} | {measured} | {aim} | {'yes' if reached else 'no'} |")
    return "\n".join(lines) + "\n"


def write_table(text):
    before, _, rest = README.read_text().partition(TABLE_BEGIN)
    README.write_text(before + TABLE_BEGIN + text + TABLE_END + rest.partition(TABLE_END)[2])


def parse_options():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--only", action="append", choices=ROWS, help="measure this; may be repeated")
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "linux", help="the build folder")
    parser.add_argument("--work", type=Path, default=ROOT / "build" / "bench", help="where the trees stand")
    parser.add_argument("--pairs", type=int, default=7, help="runs of each command in turn")
    parser.add_argument("--files", type=int, default=100_000, help="files of the memory measurement")
    parser.add_argument("--write", action="store_true", help="put the table into bench/README.md")
    options = parser.parse_args()
    if options.write and options.only:
        parser.error("--write needs all measurements")
    options.build, options.work = options.build.resolve(), options.work.resolve()
    return options


def main():
    options = parse_options()
    options.work.mkdir(parents=True, exist_ok=True)
    if os.getloadavg()[0] > QUIET:
        print(f"Other programs are running (load {os.getloadavg()[0]:.1f}); the figures will scatter.", flush=True)
    rows = []
    for name in options.only or ROWS:
        rows.append(ROWS[name](options))
        what, measured, aim, reached = rows[-1]
        print(f"{what}: {measured}; aim {aim}: {'reached' if reached else 'NOT reached'}", flush=True)
    if options.write:
        write_table(table(rows, machine(options.work)))


if __name__ == "__main__":
    main()
