#!/usr/bin/env python3
"""Reads a file of test results. Prints how many tests passed, failed and were skipped, with the reasons.

    summary_of_tests.py RESULTS.xml      the file that "ctest --output-junit" has written
"""

import collections
import re
import sys
import xml.etree.ElementTree
from pathlib import Path

# The lines that the two kinds of test programs print. With --gtest_brief GoogleTest prints at its end the numbers of
# all tests except the failed ones.
GOOGLETEST_COUNT = re.compile(r"^\[  (PASSED|SKIPPED) +\] (\d+) tests?[.,]", re.MULTILINE)
GOOGLETEST_FAILED = re.compile(r"^\[  FAILED  \] .* \(\d+ ms\)$", re.MULTILINE)
UNITTEST_COUNT = re.compile(r"^Ran (\d+) tests? in ", re.MULTILINE)
GOOGLETEST_SKIPPED = re.compile(r"^(\S+?):\d+: Skipped\n(.*)$", re.MULTILINE)
UNITTEST_SKIPPED = re.compile(r"\.\.\. skipped [\"'](.*)[\"']$", re.MULTILINE)


class Summary:
    """Counts the tests of all programs."""

    def __init__(self):
        self.counts = collections.Counter()
        self.reasons = collections.Counter()
        self.failed_programs = []

    def add(self, program, status, output):
        """Adds the output of one program. `status` comes from ctest: "run" (passed), "fail" or "notrun" (skipped)."""
        for word, count in GOOGLETEST_COUNT.findall(output):
            self.counts[word] += int(count)
        self.counts["FAILED"] += len(GOOGLETEST_FAILED.findall(output))
        for path, reason in GOOGLETEST_SKIPPED.findall(output):
            self.reasons[f"{Path(path).name}: {reason}"] += 1
        not_run = UNITTEST_SKIPPED.findall(output)
        self.counts["SKIPPED"] += len(not_run)
        self.reasons.update(f"{program}: {reason}" for reason in not_run)
        if status == "fail":
            self.failed_programs.append(program)
        elif status == "notrun":
            self.counts["SKIPPED"] += 1
            self.reasons[f"{program}: {output.strip() or 'was not run'}"] += 1
        else:
            self.counts["PASSED"] += sum(int(count) for count in UNITTEST_COUNT.findall(output)) - len(not_run)

    def lines(self):
        """Yields the lines of the summary."""
        counts = self.counts
        yield f"{counts['PASSED']} tests passed, {counts['FAILED']} failed, {counts['SKIPPED']} were skipped"
        for reason, count in sorted(self.reasons.items()):
            yield f"  skipped: {reason}" + (f" ({count} times)" if count > 1 else "")
        if self.failed_programs:
            yield "  failed: " + ", ".join(self.failed_programs)


def summary_of(path):
    """Returns the summary of one file of results."""
    summary = Summary()
    for case in xml.etree.ElementTree.parse(path).getroot().iter("testcase"):
        summary.add(case.get("name"), case.get("status"), case.findtext("system-out") or "")
    return summary


def main(arguments):
    if len(arguments) != 1:
        sys.exit(__doc__)
    print(*summary_of(arguments[0]).lines(), sep="\n")


if __name__ == "__main__":
    main(sys.argv[1:])
