#!/usr/bin/env python3
"""Measures the program and prints ratios. Writes to its work folders only, and with --write to bench/README.md."""

import argparse
import os
from pathlib import Path

import boot_rows
import build_rows
import tool_rows
import window_rows
from common import remove_passing

ROOT = Path(__file__).resolve().parent.parent
README = ROOT / "bench" / "README.md"
TABLE_BEGIN, TABLE_END = "<!-- table begin -->\n", "<!-- table end -->\n"
QUIET = 0.5  # at a higher load average other programs disturb the measurements

# Each function returns [(what, measured value, aim, whether the aim was reached)].
ROWS = {
    "copy": build_rows.copy_row,
    "waiting": build_rows.waiting_row,
    "memory": build_rows.memory_row,
    "whole": build_rows.whole_row,
    "mkisofs": tool_rows.mkisofs_rows,
    "growth": tool_rows.growth_rows,
    "dfl": tool_rows.dfl_rows,
    "start": window_rows.start_row,
    "answer": window_rows.gap_row,
    "boot": boot_rows.boot_rows,
}


def machine(folder):
    """Returns a short description of this machine."""
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
    parser.add_argument("--memory", type=Path, default=Path("/dev/shm"), help="a folder in memory for many files")
    parser.add_argument("--pairs", type=int, default=15, help="runs of each command in turn")
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
    remove_passing(options)
    rows = []
    for name in options.only or ROWS:
        found = ROWS[name](options)
        rows += found
        for what, measured, aim, reached in found:
            print(f"{what}: {measured}; aim {aim}: {'reached' if reached else 'NOT reached'}", flush=True)
    remove_passing(options)
    if options.write:
        write_table(table(rows, machine(options.work)))


if __name__ == "__main__":
    main()
