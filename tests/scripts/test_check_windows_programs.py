"""Tests of scripts/check_windows_programs.py, on programs that the cross compilers make here."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parents[2] / "scripts" / "check_windows_programs.py"
X86 = "i686-w64-mingw32-g++-win32"
X64 = "x86_64-w64-mingw32-g++-win32"
FOUR = "-Wl,--major-subsystem-version=4,--minor-subsystem-version=0,--major-os-version=4,--minor-os-version=0"
CALL = 'extern "C" __declspec(dllimport) int __stdcall {0}({1}); extern "C" int start() {{ return {0}({2}); }}'
SLEEP = CALL.format("Sleep", "int", "1")


class CheckWindowsPrograms(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.program = Path(folder.name) / "a.exe"

    def build(self, code, *options, compiler=X86):
        command = [compiler, "-x", "c++", "-", "-nostdlib", "-e", "_start" if compiler == X86 else "start", "-O1", FOUR]
        libraries = ["-x", "none", "-lkernel32", "-luser32", "-lws2_32", "-lmsvcrt"]
        command += [*libraries, *options, "-o", self.program]
        subprocess.run(command, input=code, text=True, check=True)

    def run_check(self, *options):
        """(exit code, what the check printed without the program's name)"""
        command = [sys.executable, "-B", CHECK, *options, self.program]
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        return done.returncode, done.stdout.replace(f"{self.program}: ", "")

    def assert_fails(self, *expected):
        """The check fails and prints exactly these problems."""
        code, output = self.run_check()
        self.assertEqual(code, 1, output)
        self.assertEqual(output.splitlines(), list(expected))

    def test_program_of_old_calls_and_instructions_passes(self):
        self.build(SLEEP)
        self.assertEqual(self.run_check(), (0, ""))

    def test_list_prints_the_imports(self):
        self.build(SLEEP)
        self.assertEqual(self.run_check("--list"), (0, "kernel32.dll Sleep\n"))

    def test_call_that_is_not_in_the_list_is_refused(self):
        self.build(CALL.format("GetTickCount64", "", ""))
        self.assert_fails("imports GetTickCount64 of kernel32.dll, which is not in windows_imports.txt")

    def test_function_of_the_c_library_that_is_not_in_the_list_is_refused(self):
        self.build('extern "C" __declspec(dllimport) int _time64(int); extern "C" int start() { return _time64(0); }')
        self.assert_fails("imports _time64 of msvcrt.dll, which is not in windows_imports.txt")

    def test_library_that_is_not_in_the_list_is_refused(self):
        self.build(CALL.format("WSACleanup", "", ""))
        self.assert_fails("needs ws2_32.dll, which is not the system's")

    def test_newer_subsystem_and_system_versions_are_refused(self):
        self.build(SLEEP, "-Wl,--major-subsystem-version=4,--minor-subsystem-version=10,--major-os-version=5")
        self.assert_fails("asks for subsystem version 4.10", "asks for system version 5.0")

    def test_program_for_another_machine_is_refused(self):
        self.build(SLEEP, compiler=X64)
        self.assert_fails("is for machine 0x8664, not for a 32-bit processor")

    def test_newer_instructions_are_refused(self):
        for newer in ["movaps %xmm1, %xmm0", "movd %eax, %mm0", "vzeroall", "emms", "sfence", "popcnt %eax, %eax"]:
            with self.subTest(instruction=newer):
                self.build(f'extern "C" int start() {{ asm("{newer}"); return 0; }}')
                code, output = self.run_check()
                self.assertEqual(code, 1)
                self.assertIn("_start has an instruction newer than a Pentium Pro's: " + newer.split()[0], output)

    def test_table_of_constructors_that_reads_like_newer_instructions_passes(self):
        self.build(SLEEP + r'asm(".section .ctors,\"w\"\n .byte 0xDD, 0x4F, 0x00, 0x00\n .text");')
        dump = subprocess.run(["i686-w64-mingw32-objdump", "-d", self.program], stdout=subprocess.PIPE, text=True)
        self.assertIn("fisttpll", dump.stdout)
        self.assertEqual(self.run_check(), (0, ""))

    def test_instructions_of_a_pentium_pro_pass(self):
        for old in ["cmove %eax, %ecx", "fld1", "cmpxchg8b (%esp)", "rep bsf %eax, %ecx", "cpuid"]:
            self.build(f'extern "C" int start() {{ asm("{old}"); return 0; }}')
            self.assertEqual(self.run_check(), (0, ""), old)

    def test_stripped_program_is_refused(self):
        self.build(SLEEP, "-s")
        self.assert_fails("has no symbols, so its code cannot be told from its tables")

    def test_what_is_no_program_is_refused(self):
        for content in [b"", b"text", b"MZ", b"MZ" + bytes(62), b"MZ" + bytes(58) + b"\x40\0\0\0PE\0\0"]:
            with self.subTest(content=content):
                self.program.write_bytes(content)
                code, output = self.run_check()
                self.assertEqual(code, 1)
                self.assertRegex(output, r"\Acannot be read: .+\n\Z")

    def test_program_that_ends_early_is_refused(self):
        self.build(SLEEP)
        self.program.write_bytes(self.program.read_bytes()[:0x400])
        code, output = self.run_check()
        self.assertEqual(code, 1)
        self.assertRegex(output, r"\Acannot be read: ")

    def test_without_programs_the_usage_is_shown(self):
        done = subprocess.run([sys.executable, "-B", CHECK], stderr=subprocess.PIPE, text=True)
        self.assertEqual(done.returncode, 1)
        self.assertIn("PROGRAM.exe", done.stderr)


if __name__ == "__main__":
    unittest.main()
