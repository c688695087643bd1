"""Tests of scripts/check_sizes.py."""

import contextlib
import io
import sys
import unittest
from unittest import mock

from check_case import SCRIPTS, CheckCase

sys.path.insert(0, str(SCRIPTS))
import check_sizes  # noqa: E402  (found through the line above)


def function(name, lines):
    """A C++ function of so many lines."""
    return f"void {name}(int a) {{\n" + "  a += 1;\n" * (lines - 2) + "}\n"


class CheckSizes(CheckCase):
    script = "check_sizes.py"

    def problems(self):
        """The problems printed after the two reports; none when the check passes."""
        code, output = self.run_check()
        problems = [line for line in output.splitlines() if ": " in line and "at most" in line]
        self.assertEqual(code, 1 if problems else 0, output)
        return problems

    def test_function_of_60_lines_passes(self):
        self.add("util/a.cpp", function("Long", 60))
        self.assertEqual(self.problems(), [])

    def test_function_of_61_lines_is_refused(self):
        self.add("util/a.cpp", function("Short", 3) + function("Long", 61))
        self.assertEqual(self.problems(), ["util/a.cpp: Long: 61 lines, at most 60"])

    def test_long_function_in_a_header_is_refused(self):
        self.add("util/a.h", "class A {\n" + function("Long", 61) + "};\n")
        self.assertEqual(self.problems(), ["util/a.h: Long: 61 lines, at most 60"])

    def test_long_test_is_refused_by_its_name(self):
        self.add("tests/a_test.cpp", "TEST(Suite, Case) {\n" + "  a += 1;\n" * 59 + "}\n")
        self.assertEqual(self.problems(), ["tests/a_test.cpp: Suite.Case: 61 lines, at most 60"])

    def test_long_function_with_braces_in_texts_is_refused(self):
        self.add("util/a.cpp", function("Long", 61).replace("a += 1;", "Print(\"}}\", '}');  // }"))
        self.assertEqual(self.problems(), ["util/a.cpp: Long: 61 lines, at most 60"])

    def test_file_of_600_lines_passes(self):
        self.add("util/a.cpp", "// A line.\n" * 600)
        self.assertEqual(self.problems(), [])

    def test_file_of_601_lines_is_refused(self):
        self.add("util/a.cpp", "// A line.\n" * 601)
        self.assertEqual(self.problems(), ["util/a.cpp: 601 lines, at most 600"])

    def check_with_exception(self, name):
        exceptions = mock.patch.object(check_sizes, "EXCEPTIONS", {name: "a reason"})
        with exceptions, contextlib.redirect_stdout(io.StringIO()):
            return check_sizes.check(self.root)

    def test_long_function_with_an_exception_passes(self):
        self.add("util/a.cpp", function("Long", 61))
        self.assertEqual(self.check_with_exception("util/a.cpp: Long"), [])

    def test_long_file_with_an_exception_passes(self):
        self.add("util/a.cpp", "// A line.\n" * 601)
        self.assertEqual(self.check_with_exception("util/a.cpp"), [])

    def test_exception_for_one_function_does_not_cover_another(self):
        self.add("util/a.cpp", function("Long", 61) + function("Other", 62))
        self.assertEqual(self.check_with_exception("util/a.cpp: Long"), ["util/a.cpp: Other: 62 lines, at most 60"])

    def test_exception_that_is_not_needed_is_refused(self):
        self.add("util/a.cpp", function("Short", 60))
        self.assertEqual(
            self.check_with_exception("util/a.cpp: Short"), ["util/a.cpp: Short: an exception that is not needed"]
        )

    def test_report_gives_median_p90_and_the_largest(self):
        self.add("util/a.cpp", "".join(function(f"F{lines}", lines) for lines in range(3, 13)))
        output = self.run_check()[1].splitlines()
        self.assertEqual(output[0], "functions: 10, median 7, p90 11, largest:")
        self.assertEqual(output[1], "    12 lines  util/a.cpp: F12")
        self.assertEqual(output[4], "files: 1, median 75, p90 75, largest:")


if __name__ == "__main__":
    unittest.main()
