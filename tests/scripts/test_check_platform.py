"""Tests of scripts/check_platform.py."""

import unittest

from check_case import CheckCase

WHERE = "belongs in host/posix, host/win32, desktop or apps"
HEADERS = [
    "unistd.h", "fcntl.h", "sys/stat.h", "sys/types.h", "dirent.h", "poll.h", "signal.h", "termios.h", "spawn.h",
    "pthread.h", "windows.h", "Windows.h", "winsock2.h", "shlobj.h", "QWidget", "QtWidgets/QWidget",
]  # fmt: skip


class CheckPlatform(CheckCase):
    script = "check_platform.py"

    def test_every_platform_header_in_the_core_is_refused(self):
        for header in HEADERS:
            with self.subTest(header=header):
                self.add("util/a.cpp", f"// A file.\n#include <{header}>\n")
                self.assert_fails(f"util/a.cpp:2: <{header}> {WHERE}")

    def test_platform_header_in_every_closed_room_is_refused(self):
        rooms = ["bench", "forms", "host", "integration", "pipeline", "settings", "tools/one", "util", "wizard"]
        for room in rooms:
            self.add(f"{room}/a.h", "#include <unistd.h>\n")
        self.assert_fails(*[f"{room}/a.h:1: <unistd.h> {WHERE}" for room in rooms])

    def test_platform_headers_in_the_open_rooms_pass(self):
        for folder in ["host/posix", "host/win32", "desktop/qt", "apps", "tests/host"]:
            self.add(f"{folder}/a.cpp", "#include <unistd.h>\n#include <windows.h>\n#include <QWidget>\n#ifdef _WIN32")
        self.assert_passes()

    def test_standard_headers_in_the_core_pass(self):
        self.add("util/a.cpp", "#include <queue>\n#include <csignal>\n#include <string.h>\n#include <system_error>\n")
        self.assert_passes()

    def test_platform_macro_in_the_core_is_refused(self):
        for line in ["#ifdef _WIN32", "#if !defined(_WIN32)", "  # elif defined(__linux__)"]:
            with self.subTest(line=line):
                self.add("wizard/a.cpp", f"// A file.\n\n{line}\n#endif\n")
                code, output = self.run_check()
                self.assertEqual(code, 1)
                self.assertRegex(output, r"^wizard/a.cpp:3: (_WIN32|__linux__) belongs in ")

    def test_platform_named_in_a_comment_or_text_passes(self):
        self.add("util/a.cpp", '// Not with _WIN32 and <unistd.h>.\nauto a = "#include <unistd.h>";\n')
        self.assert_passes()


if __name__ == "__main__":
    unittest.main()
