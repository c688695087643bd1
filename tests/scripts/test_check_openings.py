"""Tests of scripts/check_openings.py."""

import unittest

from check_case import CheckCase

NO_SENTENCE = "does not open with a comment of one sentence that says what the file is"


class CheckOpenings(CheckCase):
    script = "check_openings.py"

    def test_file_that_opens_with_a_sentence_passes(self):
        self.add("util/a.cpp", "// Paths and what is done with them.\n#include <string>\n")
        self.add("util/b.h", "// A sentence over two lines, and then\n// its end.\n#pragma once\n")
        self.assert_passes()

    def test_file_that_opens_with_code_is_refused(self):
        self.add("util/a.cpp", "#include <string>\n// Paths and what is done with them.\n")
        self.assert_fails(f"util/a.cpp:1: {NO_SENTENCE}")

    def test_file_that_opens_with_a_blank_line_is_refused(self):
        self.add("util/a.cpp", "\n// Paths and what is done with them.\n")
        self.assert_fails(f"util/a.cpp:1: {NO_SENTENCE}")

    def test_opening_without_full_stop_or_of_one_word_is_refused(self):
        for opening in ["// paths.cpp\n", "// Paths and what is done with them\n", "// Paths.\n", "//\n", ""]:
            with self.subTest(opening=opening):
                self.add("util/a.cpp", opening)
                self.assert_fails(f"util/a.cpp:1: {NO_SENTENCE}")

    def test_header_without_pragma_once_is_refused(self):
        self.add("util/a.h", "// Paths and what is done with them.\n")
        self.assert_fails("util/a.h:1: no #pragma once")

    def test_header_with_pragma_once_in_a_comment_only_is_refused(self):
        self.add("util/a.h", "// Paths and what is done with them.\n// #pragma once\n")
        self.assert_fails("util/a.h:1: no #pragma once")


if __name__ == "__main__":
    unittest.main()
