"""Tests of packaging/: the desktop accepts its files, and they agree with the program and the changelog."""

import re
import subprocess
import unittest
import xml.etree.ElementTree
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging"
IDENTIFIER = "org.example.discwright"
DESKTOP = PACKAGING / f"{IDENTIFIER}.desktop"
METAINFO = PACKAGING / f"{IDENTIFIER}.metainfo.xml"


def run(*command):
    """(exit code, everything that the program printed)"""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return done.returncode, done.stdout


def project_version():
    return re.search(r"^project\(Discwright VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.MULTILINE)[1]


def releases_of_changelog():
    """[(version, date)]; the changes that are not released yet stand for the version of the project, without a date."""
    headings = re.findall(r"^## (\S+)(?:\D+(\d{4}-\d\d-\d\d))?", (ROOT / "CHANGELOG.md").read_text(), re.MULTILINE)
    return [(project_version(), "") if version == "Unreleased" else (version, date) for version, date in headings]


class Packaging(unittest.TestCase):
    def setUp(self):
        self.metainfo = xml.etree.ElementTree.parse(METAINFO).getroot()
        lines = DESKTOP.read_text(encoding="utf-8").splitlines()
        self.desktop = dict(line.split("=", 1) for line in lines if "=" in line)

    def test_desktop_file_is_valid_without_any_hint(self):
        self.assertEqual(run("desktop-file-validate", DESKTOP), (0, ""))

    def test_metainfo_is_valid_without_any_warning(self):
        code, output = run("appstreamcli", "validate", "--no-net", "--pedantic", "--no-color", METAINFO)
        self.assertEqual((code, output.splitlines()[1:]), (0, []), output)  # the first line says that all is well

    def test_files_name_one_another(self):
        self.assertEqual(self.metainfo.findtext("id"), IDENTIFIER)
        self.assertEqual(self.metainfo.findtext("launchable"), DESKTOP.name)
        self.assertEqual(self.metainfo.findtext("name"), self.desktop["Name"])
        self.assertEqual(self.desktop["Icon"], IDENTIFIER)
        self.assertIn(self.desktop["Exec"], [binary.text for binary in self.metainfo.iterfind("provides/binary")])

    def test_releases_are_those_of_the_changelog(self):
        releases = []
        for release in self.metainfo.iterfind("releases/release"):
            is_released = release.get("type", "stable") == "stable"
            releases.append((release.get("version"), release.get("date") if is_released else ""))
        self.assertEqual(releases, releases_of_changelog())


if __name__ == "__main__":
    unittest.main()
