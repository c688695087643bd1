"""Tests of scripts/check_windows_names.py."""

import unittest

from check_case import CheckCase

WHY = "is a macro of <windows.h>; use another name"


class CheckWindowsNames(CheckCase):
    script = "check_windows_names.py"

    def test_names_of_macros_are_refused(self):
        self.add("host/a.h", "// A file.\nstruct MessageBox {};\nvoid ReplaceFile(int near);\n")
        self.assert_fails(*[f"host/a.h:{line}: {name} {WHY}"
                            for line, name in [(2, "MessageBox"), (3, "ReplaceFile"), (3, "near")]])

    def test_name_behind_a_comment_or_text_is_found(self):
        self.add("forms/a.cpp", '/* a\n b */ auto a = "x\\"y" + \'"\' + 1\'000; int CreateWindow; // end\n')
        self.assert_fails(f"forms/a.cpp:2: CreateWindow {WHY}")

    def test_macro_named_in_a_comment_text_or_directive_passes(self):
        self.add("util/a.cpp", '// MessageBox\n#define X MessageBox\nauto a = "MessageBox";\nauto b = R"(\nMessageBox)";\n')
        self.assert_passes()

    def test_macros_of_the_standard_headers_pass(self):
        self.add("util/a.cpp", "#include <cassert>\nvoid f() { assert(INT_MAX > 0); }\n")
        self.assert_passes()

    def test_rooms_written_for_windows_pass(self):
        for folder in ["host/win32", "desktop/win32", "tests/host"]:
            self.add(f"{folder}/a.cpp", "auto a = &MessageBox;\n")
        self.assert_passes()


if __name__ == "__main__":
    unittest.main()
