#!/usr/bin/env python3
"""Checks that Windows programs start on Windows 98 and later, on a Pentium Pro and later.

    check_windows_programs.py [--list] PROGRAM.exe...      --list: also prints the imports
"""

import re
import struct
import subprocess
import sys
from pathlib import Path

IMPORTS = Path(__file__).with_name("windows_imports.txt")
OBJDUMP = "i686-w64-mingw32-objdump"

I386 = 0x14C
PE32 = 0x10B
NEWEST_VERSION = (4, 0)  # Windows 95 to Me and NT 4.0 refuse programs with a higher version
DIRECTORY_IMPORT, DIRECTORY_DELAYED = 1, 13

# Registers that a Pentium Pro lacks, and newer instructions that use none of them. tzcnt is allowed: older processors
# run it as bsf, and the compiler uses it only where both give the same result.
NEWER_REGISTER = re.compile(r"%(?:[xyz]?mm[0-9]|k[0-7]\b)")
NEWER_INSTRUCTION = re.compile(
    r"\t(?:emms|prefetch\w*|[slm]fence|movnti\w?|fisttp\w*|(?:ld|st)mxcsr|fx(?:save|rstor)\w*|popcnt\w?|lzcnt\w?"
    r"|crc32\w?|movbe\w?|xgetbv|rdtscp|andn|bextr|bls\w+|mulx|pdep|pext|rorx|s[ah][lr]x|cmpxchg16b|rd(?:rand|seed)|v(?!err|erw)\w+)\b"
)
FUNCTION = re.compile(r"^[0-9a-f]+ <(.+)>:$")
# Functions of std::random_device with newer instructions. The C++ library calls them only after cpuid has shown that
# the processor has these instructions.
ASKS_THE_PROCESSOR = frozenset(
    {
        ".text$_ZNSt12_GLOBAL__N_112__x86_rdrandEPv",
        ".text$_ZNSt12_GLOBAL__N_112__x86_rdseedEPv",
        ".text$_ZNSt12_GLOBAL__N_119__x86_rdseed_rdrandEPv",
    }
)
# Tables of addresses that the linker places after functions. The disassembler takes them for code, in which a newer
# instruction can occur by chance.
TABLE = re.compile(r"\.gcc_except_table|\.[cd]tors(?:\.\d+)?|_*[CD]TOR_LIST__")


class NotAProgram(Exception):
    """The file is not a Windows program. The text of the exception says why."""


class Program:
    """A Windows program's header and import table, read from its bytes."""

    def __init__(self, data):
        self.data = data
        if data[:2] != b"MZ":
            raise NotAProgram("it does not begin with MZ")
        header = self.number("I", 0x3C)
        if data[header : header + 4] != b"PE\0\0":
            raise NotAProgram("it has no PE header")
        self.machine, sections = self.number("H", header + 4), self.number("H", header + 6)
        self.optional = header + 24
        self.magic = self.number("H", self.optional)
        if self.magic != PE32:
            return  # the fields below have other offsets in such a file
        self.os_version = self.numbers("HH", self.optional + 40)
        self.subsystem_version = self.numbers("HH", self.optional + 48)
        first = self.optional + self.number("H", header + 20)
        self.sections = [self.numbers("IIII", first + 40 * index + 8) for index in range(sections)]

    def numbers(self, kinds, at):
        try:
            return struct.unpack_from("<" + kinds, self.data, at)
        except struct.error as error:
            raise NotAProgram(f"it ends before {at:#x}") from error

    def number(self, kind, at):
        return self.numbers(kind, at)[0]

    def place(self, address):
        """Returns the offset in the file of the byte with this address in memory."""
        for size, start, stored, at in self.sections:
            if start <= address < start + max(size, stored):
                return at + address - start
        raise NotAProgram(f"no section holds {address:#x}")

    def text(self, address):
        at = self.place(address)
        return self.data[at : self.data.index(b"\0", at)].decode("ascii", "replace")

    def directory(self, index):
        count = self.number("I", self.optional + 92)
        return self.number("I", self.optional + 96 + 8 * index) if index < count else 0

    def imports(self):
        """Returns (library in lower case, name of the function or "#number") of each import."""
        table = self.directory(DIRECTORY_IMPORT)
        while table:
            names, _, _, library, addresses = self.numbers("IIIII", self.place(table))
            if not library:
                return
            yield from self.imports_of(self.text(library).lower(), names or addresses)
            table += 20

    def imports_of(self, library, names):
        while True:
            name = self.number("I", self.place(names))
            if not name:
                return
            yield library, f"#{name & 0xFFFF}" if name & 0x80000000 else self.text(name + 2)
            names += 4


def reviewed_imports(path=IMPORTS):
    """Returns {(library, function)} of windows_imports.txt."""
    lines = [line.partition("#")[0].split() for line in path.read_text(encoding="utf-8").splitlines()]
    return {(words[0], words[1]) for words in lines if words}


def dotted(version):
    return ".".join(map(str, version))


def header_problems(program):
    if program.machine != I386 or program.magic != PE32:
        return [f"is for machine {program.machine:#x}, not for a 32-bit processor"]
    problems = []
    if program.subsystem_version > NEWEST_VERSION:
        problems.append(f"asks for subsystem version {dotted(program.subsystem_version)}")
    if program.os_version > NEWEST_VERSION:
        problems.append(f"asks for system version {dotted(program.os_version)}")
    return problems


def import_problems(program, reviewed):
    problems = ["loads libraries late; look functions up instead"] if program.directory(DIRECTORY_DELAYED) else []
    libraries = {library for library, _ in reviewed}
    unknown = [entry for entry in program.imports() if entry not in reviewed]
    problems += [f"needs {library}, which is not the system's" for library in
                 sorted({library for library, _ in unknown} - libraries)]
    problems += [f"imports {function} of {library}, which is not in {IMPORTS.name}" for library, function in unknown
                 if library in libraries]
    return problems


def instruction_problems(lines):
    """Returns one problem for each function in a disassembly that uses instructions newer than a Pentium Pro's."""
    function, named, seen = None, False, {}
    for line in lines:
        label = FUNCTION.match(line)
        if label:
            function = label[1]
            named = named or not function.startswith(".")
        elif not TABLE.fullmatch(function or "") and (NEWER_REGISTER.search(line) or NEWER_INSTRUCTION.search(line)):
            seen.setdefault(function, " ".join(line.partition("\t")[2].split()))
    if not named:
        return ["has no symbols, so its code cannot be told from its tables"]
    return [f"{function} has an instruction newer than a Pentium Pro's: {instruction}"
            for function, instruction in seen.items() if function not in ASKS_THE_PROCESSOR]


def disassembly(path):
    command = [OBJDUMP, "--disassemble", "--no-show-raw-insn", path]
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.splitlines()


def check(path, reviewed):
    """Returns all problems of one program."""
    try:
        program = Program(Path(path).read_bytes())
        problems = header_problems(program)
        if program.machine == I386 and program.magic == PE32:
            problems += import_problems(program, reviewed)
            problems += instruction_problems(disassembly(path))
        return problems
    except (NotAProgram, OSError, ValueError) as error:
        return [f"cannot be read: {error}"]


def main(arguments):
    listing = "--list" in arguments
    paths = [argument for argument in arguments if argument != "--list"]
    if not paths:
        sys.exit(__doc__)
    reviewed = reviewed_imports()
    failed = False
    for path in paths:
        if listing:
            for library, function in sorted(Program(Path(path).read_bytes()).imports()):
                print(f"{path}: {library} {function}")
        for problem in check(path, reviewed):
            print(f"{path}: {problem}")
            failed = True
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main(sys.argv[1:])
