"""Runs programs and measures their wall time, processor time and peak memory."""

import os
import statistics
import subprocess
import sys
import threading
import time
from dataclasses import dataclass
from pathlib import Path

CLOCK_TICK = 1 / os.sysconf("SC_CLK_TCK")  # seconds
MEMORY_POLL = 0.01  # seconds


@dataclass
class Usage:
    """The resources that a program has used until its end."""

    wall: float  # seconds
    processor: float  # user and system time of the program and of all that it started, seconds
    exit_code: int


def run(command, output=subprocess.DEVNULL, watch=None):
    """Runs a program to its end. `watch(pid)` is called in a second thread meanwhile."""
    start = time.perf_counter()
    process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output, stderr=output)
    watcher = threading.Thread(target=watch, args=[process.pid]) if watch else None
    if watcher:
        watcher.start()
    _, status, resources = os.wait4(process.pid, 0)
    wall = time.perf_counter() - start
    process.returncode = os.waitstatus_to_exitcode(status)  # Popen must not wait for the process again
    if watcher:
        watcher.join()
    processor = resources.ru_utime + resources.ru_stime
    return Usage(wall, processor, process.returncode)


def must(usage, command, good=(0,)):
    """Runs a program and returns its usage if its exit code is a good one. Ends this program for another exit code."""
    if usage.exit_code not in good:
        sys.exit(f"{' '.join(map(str, command))}: exit code {usage.exit_code}")
    return usage


def processor_time(pid):
    """Returns the seconds of user and system time of a running program, without the programs that it started."""
    fields = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) * CLOCK_TICK


def peak_of(pid):
    """Returns the peak memory of a running program so far, in bytes; None when it has ended."""
    try:
        status = Path(f"/proc/{pid}/status").read_text()
    except (FileNotFoundError, ProcessLookupError):
        return None
    lines = [line for line in status.splitlines() if line.startswith("VmHWM:")]
    return int(lines[0].split()[1]) * 1024 if lines else None


def descendants(pid):
    """Returns the process numbers of all programs that a program has started, directly or indirectly."""
    children = []
    for task in Path("/proc").glob(f"{pid}/task/*/children"):
        try:
            children += [int(child) for child in task.read_text().split()]
        except (FileNotFoundError, ProcessLookupError):
            pass
    return children + [below for child in children for below in descendants(child)]


class PeakMemory:
    """Measures the peak memory of a program and of the largest program that it starts, in bytes.

    The caller passes it to run() as `watch`. The figure that the system gives at the end of a process cannot be used,
    because it includes the memory of the process that started it.
    """

    peak = 0
    largest = 0

    def __call__(self, pid):
        while (own := peak_of(pid)) is not None:
            self.peak = max(self.peak, own)
            self.largest = max([self.largest, *(peak_of(child) or 0 for child in descendants(pid))])
            time.sleep(MEMORY_POLL)


@dataclass
class Comparison:
    """The result of running two commands alternately."""

    ours: float  # median, seconds
    theirs: float
    ratio: float  # the median of the ratios, one for each pair of runs
    lowest: float
    highest: float


def compare(pairs, run_ours, run_theirs):
    """Runs both functions, which return a Usage, once to warm up and then alternately.

    The first one changes from pair to pair, so that a machine that becomes slower or faster favours neither.
    """
    run_ours(), run_theirs()
    results = []
    for pair in range(pairs):
        first = run_theirs() if pair % 2 else run_ours()
        second = run_ours() if pair % 2 else run_theirs()
        results.append((second, first) if pair % 2 else (first, second))

    def comparison(quantity):
        ours = [quantity(ours) for ours, _ in results]
        theirs = [quantity(theirs) for _, theirs in results]
        ratios = [a / b for a, b in zip(ours, theirs)]
        return Comparison(
            statistics.median(ours), statistics.median(theirs), statistics.median(ratios), min(ratios), max(ratios)
        )

    return comparison(lambda usage: usage.wall), comparison(lambda usage: usage.processor)
