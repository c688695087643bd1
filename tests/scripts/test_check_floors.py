"""Tests of scripts/check_floors.py."""

import unittest

from check_case import CheckCase

ROOMS = ["base", "forms", "host", "util", "settings", "steps", "integration", "pipeline", "wizard", "desktop", "apps"]
# Rooms that do not know each other although one stands before the other in the list.
STRANGERS = [("base", "forms"), ("forms", "host"), ("forms", "util"), ("settings", "steps")]


class CheckFloors(CheckCase):
    script = "check_floors.py"

    def setUp(self):
        super().setUp()
        for room in ROOMS:
            self.add(f"{room}/a.h")

    def test_rooms_that_include_all_below_pass(self):
        for number, room in enumerate(ROOMS):
            below = [other for other in ROOMS[:number] if (other, room) not in STRANGERS]
            self.add_including(f"{room}/a.cpp", *[f"{other}/a.h" for other in [*below, room]])
        self.assert_passes()

    def test_every_room_above_is_refused(self):
        for number, room in enumerate(ROOMS[:-1]):
            for other in ROOMS[number + 1 :]:
                with self.subTest(room=room, other=other):
                    self.add_including(f"{room}/a.cpp", f"{other}/a.h")
                    self.assert_fails(f'{room}/a.cpp:2: "{other}/a.h": {room} must not include {other}')
            self.add(f"{room}/a.cpp")

    def test_strangers_that_include_each_other_are_refused(self):
        for pair in STRANGERS:
            for room, other in (pair, pair[::-1]):
                with self.subTest(room=room, other=other):
                    self.add_including(f"{room}/a.cpp", f"{other}/a.h")
                    self.assert_fails(f'{room}/a.cpp:2: "{other}/a.h": {room} must not include {other}')
                self.add(f"{room}/a.cpp")

    def test_include_with_blanks_and_a_room_above_is_refused(self):
        self.add("util/a.cpp", '// A file.\n\n  #  include  "wizard/a.h" // wanted\n')
        self.assert_fails('util/a.cpp:3: "wizard/a.h": util must not include wizard')

    def test_room_above_reached_by_a_relative_path_is_refused(self):
        self.add_including("util/a.cpp", "../wizard/a.h")
        self.assert_fails('util/a.cpp:2: "../wizard/a.h": util must not include wizard')

    def test_include_in_a_comment_or_text_is_none(self):
        self.add("util/a.cpp", '// #include "wizard/a.h"\nauto a = "#include <wizard/a.h>";\n')
        self.assert_passes()

    def test_tool_that_includes_itself_shared_headers_and_the_ground_passes(self):
        self.add("tools/one/a.h")
        self.add("tools/shared.h")
        self.add_including("tools/one/a.cpp", "tools/one/a.h", "tools/shared.h", "base/a.h", "host/a.h")
        self.assert_passes()

    def test_tool_that_includes_another_tool_or_room_is_refused(self):
        self.add("tools/two/a.h")
        self.add_including("tools/one/a.cpp", "tools/two/a.h", "util/a.h")
        self.assert_fails(
            'tools/one/a.cpp:2: "tools/two/a.h": tools/one must not include tools/two',
            'tools/one/a.cpp:3: "util/a.h": tools must not include util',
        )

    def test_room_that_includes_a_tool_is_refused(self):
        self.add("tools/one/a.h")
        self.add_including("apps/a.cpp", "tools/one/a.h")
        self.assert_fails('apps/a.cpp:2: "tools/one/a.h": apps must not include tools')

    def test_tests_that_include_everything_pass(self):
        self.add("tools/one/a.h")
        self.add("tests/support/a.h")
        self.add("host/posix/a.h")
        self.add_including(
            "tests/util/a_test.cpp", "tests/support/a.h", "apps/a.h", "tools/one/a.h", "host/posix/a.h"
        )
        self.assert_passes()

    def test_room_that_includes_tests_is_refused(self):
        self.add("tests/support/a.h")
        self.add_including("apps/a.cpp", "tests/support/a.h")
        self.assert_fails('apps/a.cpp:2: "tests/support/a.h": apps must not include tests')

    def test_room_that_goes_behind_the_host_is_refused(self):
        self.add("host/posix/a.h")
        self.add_including("host/posix/a.cpp", "host/posix/a.h", "host/a.h")
        self.add_including("apps/a.cpp", "host/posix/a.h")
        self.assert_fails('apps/a.cpp:2: "host/posix/a.h": host/posix is reached through the headers of host/ only')

    def test_boot_code_with_its_own_headers_passes(self):
        self.add("boot/loader/menu/a.h")
        self.add_including("boot/loader/a.cpp", "menu/a.h")
        self.assert_passes()

    def test_boot_code_that_includes_a_room_is_refused(self):
        self.add_including("boot/loader/a.cpp", "util/a.h")
        self.assert_fails('boot/loader/a.cpp:2: "util/a.h": boot must not include util')

    def test_file_that_is_not_there_is_refused(self):
        self.add_including("util/a.cpp", "util/missing.h")
        self.assert_fails('util/a.cpp:2: "util/missing.h" is not a file of this repository')

    def test_folder_without_a_floor_is_refused(self):
        self.add("attic/a.h")
        self.assert_fails("attic/a.h: the folder attic has no floor in scripts/check_floors.py")

    def test_circle_within_a_room_is_refused(self):
        self.add_including("util/a.h", "util/b.h")
        self.add_including("util/b.h", "util/c.h")
        self.add_including("util/c.h", "util/a.h")
        self.assert_fails("circle: util/a.h -> util/b.h -> util/c.h -> util/a.h")

    def test_file_included_by_two_others_is_no_circle(self):
        self.add_including("util/b.h", "util/a.h")
        self.add_including("util/c.h", "util/a.h", "util/b.h")
        self.assert_passes()

    def test_folder_without_any_source_is_refused(self):
        for room in ROOMS:
            (self.root / room / "a.h").unlink()
        self.assert_fails(f"{self.root.resolve()}: no C++ files")


if __name__ == "__main__":
    unittest.main()
