"""Tests of scripts/join_loader.py."""

import struct
import sys
import unittest

from check_case import SCRIPTS

sys.path.insert(0, str(SCRIPTS))
import join_loader

STAGE1 = b"12345678DWLOADER" + bytes(2032)


class JoinLoader(unittest.TestCase):
    def test_rest_follows_in_whole_sectors(self):
        loader = join_loader.joined(STAGE1, b"rest" * 600)
        self.assertEqual(len(loader), 3 * 2048)
        self.assertEqual(loader[2048:], b"rest" * 600 + bytes(4096 - 2400))

    def test_length_and_checksums_stand_behind_the_mark(self):
        loader = join_loader.joined(STAGE1, struct.pack("<II", 0xFFFFFFFF, 3))
        self.assertEqual(struct.unpack("<HHII", loader[16:28]), (1, 0, 2, (0xFFFFFFFF + 2 * 511) & 0xFFFFFFFF))
        self.assertEqual(loader[:16], STAGE1[:16])
        self.assertEqual(loader[28:2048], STAGE1[28:])

    def test_stages_that_do_not_fit_are_refused(self):
        for stage1, stage2 in ((STAGE1[1:] + b"x", b"rest"), (STAGE1[:-1], b"rest"), (STAGE1, b""),
                               (STAGE1, bytes(47 * 2048 + 1))):
            with self.assertRaises(ValueError):
                join_loader.joined(stage1, stage2)

    def test_floppy_counts_in_its_own_sectors(self):
        loader = join_loader.joined(STAGE1[:512], b"rest" * 130)
        self.assertEqual(len(loader), 3 * 512)
        self.assertEqual(struct.unpack("<HHI", loader[16:24]), (2, 0, 130 * int.from_bytes(b"rest", "little") % 2**32))
        self.assertEqual(loader[512:], b"rest" * 130 + bytes(1024 - 520))

    def test_largest_rest_is_joined(self):
        self.assertEqual(len(join_loader.joined(STAGE1, bytes(47 * 2048))), 48 * 2048)


if __name__ == "__main__":
    unittest.main()
