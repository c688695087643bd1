"""A small house in a temporary folder, and a check of scripts/ run on it as a program."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parents[2] / "scripts"


class CheckCase(unittest.TestCase):
    """Tests of one check; a subclass names its script."""

    script = ""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def add(self, path, text="// A file.\n"):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text(text, encoding="utf-8")

    def add_including(self, path, *included):
        self.add(path, "// A file.\n" + "".join(f'#include "{name}"\n' for name in included))

    def run_check(self):
        """(exit code, what the check printed)"""
        command = [sys.executable, "-B", SCRIPTS / self.script, self.root]
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        return done.returncode, done.stdout

    def assert_passes(self):
        code, output = self.run_check()
        self.assertEqual(code, 0, output)

    def assert_fails(self, *expected):
        """The check fails and prints exactly these problems."""
        code, output = self.run_check()
        self.assertEqual(code, 1, output)
        self.assertEqual(output.splitlines(), list(expected))
