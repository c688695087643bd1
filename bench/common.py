"""Helps several measurements: makes program folders and folders for results, and examines the content of folders."""

import os
import shutil

MADE = (0, 4)  # exit codes of the program that mean that an image was made; 4 means that there were warnings
PASSING = "passing"  # name of the folder for temporary results below the work folder


def passing_folder(options, name):
    """Makes a new folder for the results of a measurement. remove_passing() removes it at the end; see empty_files."""
    folder = options.work / PASSING / name
    folder.mkdir(parents=True)
    return folder


def remove_passing(options):
    shutil.rmtree(options.work / PASSING, ignore_errors=True)


def program_folder(options, name):
    """Makes a new copy of the program folder for builds. remove_passing() removes it, too."""
    program, folder = options.build / "program", options.work / PASSING / name
    # Leaves out the files that earlier builds have left in the program folder.
    left_out = ["vexacd", "vexacd.ini", "mkisofs.log"]
    shutil.copytree(program, folder, ignore=lambda parent, _: left_out if parent == str(program) else [], symlinks=True)
    return folder


def build_command(folder, *arguments):
    return [folder / "discwright-build", "--quiet", "-o", folder / "bench.iso", *arguments]


def files_below(folder):
    return [path for path in folder.rglob("*") if path.is_file()]


def contents(folder):
    """Returns {relative path: size} of all files."""
    return {path.relative_to(folder): path.stat().st_size for path in files_below(folder)}


def read_all(folder):
    """Reads every file and writes all changes to disk, so that every run begins with the same caches."""
    os.sync()
    for path in files_below(folder):
        path.read_bytes()


def empty_files(folder):
    """Frees the disk space of a tree of copies.

    The files are truncated, not deleted: ext4 without a journal is slow at making files where others were deleted a
    short time before, which would slow down the next run.
    """
    for path in files_below(folder):
        os.truncate(path, 0)


def ratio_text(wall):
    seconds = f"{wall.ours:.2f} s to {wall.theirs:.2f} s"
    return f"{wall.ratio:.2f} x wall ({wall.lowest:.2f} to {wall.highest:.2f}; {seconds})"
