"""Tests of scripts/join_loader.py."""

import struct
import sys
import unittest

from check_case import SCRIPTS

sys.path.insert(0, str(SCRIPTS))
import join_loader

STAGE1 = b"1" * 64 + b"DWLOADER" + bytes(1976)
RECORD = b"record" * 70


class JoinLoader(unittest.TestCase):
    def test_rest_and_record_follow_in_whole_sectors(self):
        loader = join_loader.joined(STAGE1, b"rest" * 600, RECORD)
        self.assertEqual(len(loader), 4 * 2048)
        self.assertEqual(loader[2048:], b"rest" * 600 + bytes(4096 - 2400) + RECORD + bytes(2048 - 420))

    def test_lengths_and_checksums_stand_behind_the_mark(self):
        loader = join_loader.joined(STAGE1, struct.pack("<II", 0xFFFFFFFF, 3), RECORD)
        self.assertEqual(struct.unpack("<HHII", loader[72:84]), (1, 420, 2, (0xFFFFFFFF + 2 * 511) & 0xFFFFFFFF))
        self.assertEqual(loader[:72], STAGE1[:72])
        self.assertEqual(loader[84:2048], STAGE1[84:])

    def test_parts_that_do_not_fit_are_refused(self):
        for parts in ((STAGE1[1:] + b"x", b"rest", RECORD), (STAGE1[:-1], b"rest", RECORD), (STAGE1, b"", RECORD),
                      (STAGE1, bytes(47 * 2048 + 1), RECORD), (STAGE1, b"rest", bytes(441))):
            with self.assertRaises(ValueError):
                join_loader.joined(*parts)

    def test_floppy_counts_in_its_own_sectors(self):
        loader = join_loader.joined(STAGE1[:512], b"rest" * 130)
        self.assertEqual(len(loader), 3 * 512)
        self.assertEqual(struct.unpack("<HHI", loader[72:80]), (2, 0, 130 * int.from_bytes(b"rest", "little") % 2**32))
        self.assertEqual(loader[512:], b"rest" * 130 + bytes(1024 - 520))

    def test_largest_parts_are_joined(self):
        self.assertEqual(len(join_loader.joined(STAGE1, bytes(47 * 2048), bytes(440))), 49 * 2048)


if __name__ == "__main__":
    unittest.main()
