"""Measures the window: how soon it is on the screen, and how long it does not answer while a CD is built."""

import os
import subprocess
import sys
import time

import trees
from common import passing_folder, program_folder, read_all

START_AIM = 0.5  # seconds until the first page is on the screen
GAP_AIM = 0.2  # seconds in which the window does not answer
STARTS = 7
BUILDS = 3
TITLE = "^Vexa Discwright$"
PATIENCE = 60  # seconds


class Display:
    """A display in memory. Use it in a with statement; `environment` is that of a program that shows its window there."""

    def __enter__(self):
        read_end, write_end = os.pipe()
        command = ["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"]
        self.server = subprocess.Popen(command, pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as numbers:
            self.environment = {**os.environ, "DISPLAY": ":" + numbers.readline().strip(), "QT_QPA_PLATFORM": "xcb"}
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()

    def shows_window(self):
        search = ["xdotool", "search", "--onlyvisible", "--name", TITLE]
        return subprocess.run(search, env=self.environment, capture_output=True, check=False).stdout != b""


def seconds_to_window(display, folder):
    """Starts the program and returns the seconds until its window is on the screen. Ends the program."""
    start = time.monotonic()
    program = subprocess.Popen([folder / "discwright"], env=display.environment, stderr=subprocess.DEVNULL)
    while not display.shows_window():
        if time.monotonic() > start + PATIENCE or program.poll() is not None:
            sys.exit("The window does not appear.")
    seconds = time.monotonic() - start
    program.terminate()
    program.wait()
    return seconds


def start_row(options):
    folder = program_folder(options, "start_program")
    with Display() as display:
        times = sorted(seconds_to_window(display, folder) for _ in range(STARTS + 1))[:STARTS]
    measured = f"{times[STARTS // 2]:.2f} s ({times[0]:.2f} to {times[-1]:.2f})"
    return [("start of the window to its first page", measured, f"under {START_AIM} s", times[STARTS // 2] < START_AIM)]


def gap_row(options):
    source = trees.make_tree(options.work / "setup_cd", trees.setup_plan())
    folders = passing_folder(options, "window")
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    gaps, builds = [], []
    for number in range(BUILDS):
        folder = program_folder(options, f"{folders.name}/program{number}")
        read_all(source)
        command = [options.build / "bench" / "bench_window_build", folder, source, folders / "bench.iso"]
        done = subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
        gap, whole = (int(number) / 1000 for number in done.stdout.split())
        gaps.append(gap)
        builds.append(whole)
    measured = f"{max(gaps):.3f} s in {BUILDS} builds of {min(builds):.1f} to {max(builds):.1f} s"
    what = "longest time in which the window does not answer, in a build of 560 MB"
    return [(what, measured, f"at most {GAP_AIM} s", max(gaps) <= GAP_AIM)]
