"""Tests of scripts/summary_of_tests.py."""

import sys
import unittest

from check_case import SCRIPTS

sys.path.insert(0, str(SCRIPTS))
import summary_of_tests

PASSED = "[==========] 3 tests from 1 test suite ran. (2 ms total)\n[  PASSED  ] 2 tests.\n"


class SummaryOfTests(unittest.TestCase):
    def lines(self, *programs):
        summary = summary_of_tests.Summary()
        for program in programs:
            summary.add(*program)
        return list(summary.lines())

    def test_programs_of_both_kinds_are_added_up(self):
        lines = self.lines(("a", "run", PASSED), ("b", "run", PASSED), ("c", "run", "...\nRan 4 tests in 0.1s\n\nOK\n"))
        self.assertEqual(lines, ["8 tests passed, 0 failed, 0 were skipped"])

    def test_skipped_case_is_told_with_its_reason_once(self):
        output = "/somewhere/tests/host/a_test.cpp:17: Skipped\nno disk here\n" + PASSED + "[  SKIPPED ] 1 test.\n"
        lines = self.lines(("a", "run", output), ("b", "run", output))
        self.assertEqual(lines, ["4 tests passed, 0 failed, 2 were skipped",
                                 "  skipped: a_test.cpp: no disk here (2 times)"])

    def test_skipped_script_test_is_told_and_not_counted_as_passed(self):
        output = "test_a (test_a.A) ... skipped 'no compiler here'\n\nRan 3 tests in 0.1s\n\nOK (skipped=1)\n"
        lines = self.lines(("a", "run", output))
        self.assertEqual(lines, ["2 tests passed, 0 failed, 1 were skipped", "  skipped: a: no compiler here"])

    def test_failing_program_is_named(self):
        output = "[  FAILED  ] A.B/1, where GetParam() = 2 (5 ms)\n" + PASSED
        lines = self.lines(("a", "fail", output))
        self.assertEqual(lines, ["2 tests passed, 1 failed, 0 were skipped", "  failed: a"])

    def test_program_that_dies_is_named_though_it_has_counted_nothing(self):
        self.assertEqual(self.lines(("a", "fail", "Segmentation fault\n"))[1], "  failed: a")

    def test_program_that_was_not_run_is_told_with_what_it_says(self):
        lines = self.lines(("a", "notrun", "no Wine here\n"))
        self.assertEqual(lines, ["0 tests passed, 0 failed, 1 were skipped", "  skipped: a: no Wine here"])


if __name__ == "__main__":
    unittest.main()
