"""Tests of scripts/boot.sh. A script in a folder of the test takes the place of the emulator and prints its arguments."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from check_case import SCRIPTS


class Boot(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        emulator = self.root / "bin" / "qemu-system-i386"
        emulator.parent.mkdir()
        emulator.write_text('#!/bin/sh\nfor argument in "$@"; do echo "<$argument>"; done\n')
        emulator.chmod(0o755)

    def boot(self, *arguments, display=""):
        """(exit code, everything that was printed), without a terminal"""
        surroundings = {"PATH": f"{self.root}/bin:{os.environ['PATH']}", "DISPLAY": display}
        done = subprocess.run([SCRIPTS / "boot.sh", *arguments], env=surroundings, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        return done.returncode, done.stdout

    def test_image_comes_into_the_cd_drive_and_is_only_read(self):
        image = self.root / "a, b.iso"
        image.write_bytes(b"")
        code, printed = self.boot(image, "-snapshot", display=":7")
        self.assertEqual(code, 0)
        self.assertIn(f"<if=ide,media=cdrom,format=raw,readonly=on,file={self.root}/a,, b.iso>", printed)
        self.assertIn("<-display>\n<gtk>", printed)
        self.assertIn("<-snapshot>", printed)
        self.assertIn("To leave, close the window.", printed)

    def test_missing_image_is_named(self):
        code, printed = self.boot(self.root / "no.iso", display=":7")
        self.assertEqual(code, 1)
        self.assertIn("no.iso cannot be read: make iso makes an image", printed)

    def test_neither_display_nor_terminal_is_said(self):
        image = self.root / "a.iso"
        image.write_bytes(b"")
        code, printed = self.boot(image)
        self.assertEqual(code, 1)
        self.assertIn("there is neither a display nor a terminal", printed)


if __name__ == "__main__":
    unittest.main()
