"""What several measurements use: program folders, trees and what stands in them."""

import os
import shutil

MADE = (0, 4)  # exit codes of the program when there is an image; 4: with warnings
PASSING = "passing"  # below the work folder


def passing_folder(options, name):
    """A new folder for what a measurement makes. It goes when all is measured: see empty_files."""
    folder = options.work / PASSING / name
    folder.mkdir(parents=True)
    return folder


def remove_passing(options):
    shutil.rmtree(options.work / PASSING, ignore_errors=True)


def program_folder(options, name):
    """A fresh copy of the program folder, to be built in; goes like a passing folder."""
    program, folder = options.build / "program", options.work / PASSING / name
    # What builds that were made there have left is not part of it.
    left_out = ["vexacd", "vexacd.ini", "mkisofs.log"]
    shutil.copytree(program, folder, ignore=lambda parent, _: left_out if parent == str(program) else [], symlinks=True)
    return folder


def build_command(folder, *arguments):
    return [folder / "discwright-build", "--quiet", "-o", folder / "bench.iso", *arguments]


def files_below(folder):
    return [path for path in folder.rglob("*") if path.is_file()]


def contents(folder):
    """{relative path: size} of all files."""
    return {path.relative_to(folder): path.stat().st_size for path in files_below(folder)}


def read_all(folder):
    """Reads every file once and writes out what waits for it, so that every run finds the same memory and disk."""
    os.sync()
    for path in files_below(folder):
        path.read_bytes()


def empty_files(folder):
    """Gives back the room of a tree of copies.

    Emptied, not deleted: ext4 without a journal makes files slowly where others were deleted a short time ago, and the
    run that comes next would pay for that.
    """
    for path in files_below(folder):
        os.truncate(path, 0)


def ratio_text(wall):
    seconds = f"{wall.ours:.2f} s to {wall.theirs:.2f} s"
    return f"{wall.ratio:.2f} x wall ({wall.lowest:.2f} to {wall.highest:.2f}; {seconds})"
