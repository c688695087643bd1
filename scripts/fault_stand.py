"""Makes the stands of scripts/faults.py: the sources of a small CD, a program folder, and folders for the results."""

import hashlib
import os
import shutil
import stat
import subprocess

PROGRAMS = ("discwright-build", "CreateDsk", "dfl", "mkisofs")
# The folders of a stand that a build writes to. Its other folder, "sources", and the files of the program are only
# read.
WRITTEN = ("program", "out", "home", "tmp")
IMAGE = "out/rescue.iso"
SAVED_SESSION = "out/saved.ini"
SOURCE_DATE = 1_000_000_000

CHOICES = {
    "ChkGet_Win2k": "1",
    "Txt_i386_Loc": "sources/nt/I386",
    "ChkWin2KInfo_Unattend": "1",
    "FrmWin2KInfo.TxtOwner": "Ann Example",
    "FrmWin2KInfo.TxtPCName": "OLDPC",
    "ChkDelTree_Lang": "1",
    "ChkGet_Win9x": "1",
    "TxtWin9x_Loc": "sources/98",
    "ChkWin9xInfo_MSBatch": "1",
    "FrmWin9xInfo.TxtOwner": "Bob Example",
    "ChkGet_Advtools": "1",
    "ChkERDC": "1",
    "TxtERDC": "sources/erd",
    "ChkBCon": "1",
    "TxtBCon": "sources/oobc",
    "ChkVexaUtils": "1",
    "TxtUtils_Loc": "sources/utilities",
    "ChkAddFiles": "1",
    "TxtAddFiles_Loc": "sources/additional files",
    "ChkGet_Vexanetplus": "1",
    "ChkSelectDrivers": "1",
}


def setup_folder():
    """Returns the files of a setup folder of the NT family. The build patches the folder's name in several of them."""
    return {
        "I386/SETUPLDR.BIN": b"MZ" + b"\0" * 300 + b"i386\\ntdetect.com" + b"\0" * 900 + b"\\i386\\txtsetup.sif" * 2,
        "I386/TXTSETUP.SIF": b"[SetupData]\r\nSetupSourcePath = \\i386\r\n; the same in capitals: \\I386\r\n",
        "I386/DRIVER.CAB": b"MSCF" + bytes(range(256)) * 300,
        "I386/EMPTY.TXT": b"",
        "I386/SYSTEM32/NTDLL.DLL": b"MZ\x90\0i386",
    }


def source_files():
    """Returns {path below "sources": bytes}. Some files are equal, so that dfl has something to link."""
    nt = setup_folder()
    nt.update({"I386/LANG/KOR/GULIM.TT_": b"MSCF gulim", "I386/NT5.CAT": b"catalogue", "SETUP.EXE": b"MZ setup"})
    nt.update({"CDROM_IP.5": b"Windows 2000 Professional\r\n", "CDROM_NT.5": b"Windows 2000\r\n"})
    cabinets = {f"BASE{number}.CAB": b"MSCF base %d" % number * 300 for number in (4, 5, 6)}
    ninety_eight = {"SETUP.EXE": b"MZ setup", "MINI.CAB": b"MSCF mini" * 500, "PRECOPY1.CAB": b"MSCF precopy" * 400}
    ninety_eight.update({"OEMINFO/OEM.TXT": b"oem", **cabinets})
    erd = {**setup_folder(), "I386/SYSTEM32/CONFIG/SOFTWARE": b"regf, i386", "WIN51": b"a tag file of the tool"}
    oobc = {**setup_folder(), "I386/SYSTEM32/OOBC.EXE": b"MZ console", "DOC/MANUAL.PDF": b"%PDF"}
    utilities = {"probe.exe": b"MZ probe of i386", "Docs/read me.txt": b"I386", "Docs/again.txt": b"I386"}
    additional = {"NOTES/BEEP CODES.TXT": b"beep", "READ ME.TXT": b"read", "\u00dcber.txt": b"about"}
    folders = {"nt": nt, "98": ninety_eight, "erd": erd, "oobc": oobc}
    folders.update({"utilities": utilities, "additional files": additional})
    files = {f"{folder}/{path}": data for folder, held in folders.items() for path, data in held.items()}
    return {**files, "password.txt": b"secret\n"}


def write_sources(folder):
    for path, data in source_files().items():
        file = folder / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(data)
        os.utime(file, (944_568_000, 944_568_000))
        file.chmod(0o444)


class Scenario:
    """One whole build: its name and its command line."""

    def __init__(self, name, choices, arguments):
        self.name = name
        self.arguments = [*arguments, *(word for key, value in choices.items() for word in ("--set", f"{key}={value}"))]

    @property
    def command(self):
        return ["program/discwright-build", "-o", IMAGE, *self.arguments]


FIRST = Scenario(
    "first",
    {**CHOICES, "ChkOptimizeISO": "1", "ChkCleanSession": "1"},
    ["--password-file", "sources/password.txt"],
)
AGAIN = Scenario("again", {}, ["--session", "sources/session.ini", "--save-session", SAVED_SESSION])
SCENARIOS = (FIRST, AGAIN)


def surroundings(stand, **more):
    """Returns the environment of a build. The caller's environment adds only PATH and the options of sanitizers."""
    given = {"PATH": os.environ["PATH"], "HOME": str(stand / "home"), "TMPDIR": str(stand / "tmp"), "LC_ALL": "C.UTF-8"}
    sanitizers = {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}
    return {**given, **sanitizers, "SOURCE_DATE_EPOCH": str(SOURCE_DATE), **more}


def build_quietly(stand, command):
    """Runs a build that must succeed. Returns its output, or ends this program with the output if the build fails."""
    done = subprocess.run(
        command,
        cwd=stand,
        env=surroundings(stand),
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        errors="replace",
    )
    if done.returncode != 0:
        raise SystemExit(f"faults: the undisturbed build ended with {done.returncode}:\n{done.stdout}")
    return done.stdout


def make_stand(stand, program, scenario):
    """Makes the folders of a stand as they are before the build of this scenario."""
    for name in WRITTEN:
        (stand / name).mkdir(parents=True)
    for name in (*PROGRAMS, "files"):
        copy = shutil.copytree if (program / name).is_dir() else shutil.copy2
        copy(program / name, stand / "program" / name)
    write_sources(stand / "sources")
    if scenario is AGAIN:
        # This scenario needs a session with all choices, the traces of an earlier build, its image, and an older
        # session that is replaced.
        chosen = Scenario("session", CHOICES, ["--save-session", "sources/session.ini"])
        build_quietly(stand, chosen.command)
        (stand / IMAGE).unlink()
        older = {"ChkVexaUtils": "1", "TxtUtils_Loc": "sources/utilities"}
        build_quietly(stand, Scenario("older", older, ["--save-session", SAVED_SESSION]).command)


def copy_folder(source, target):
    """Copies a folder with its modes and times. cp is used because it is fast, and this is done thousands of times."""
    subprocess.run(["cp", "-a", "--", source, target], check=True)


def mark_workspaces(stand):
    """Writes the marks of a copied program folder again.

    The program empties only folders that it knows by their identity, and a copied folder has a new identity. So each
    mark is written in the form in which the program writes it.
    """
    for mark in (stand / "program").glob("*.own"):
        folder = mark.with_suffix("")
        made = subprocess.run(["stat", "-c", "%.W", "--", folder], check=True, stdout=subprocess.PIPE, text=True).stdout
        seconds, nanoseconds = (int(part) for part in made.strip().split("."))
        mark.write_text(f"made {seconds}.{nanoseconds}" if seconds else f"number {folder.stat().st_ino}")


def facts_of(path):
    """Returns what must not change of a file or folder that is only read. A folder's size may change."""
    facts = path.lstat()
    content = ""
    if stat.S_ISREG(facts.st_mode):
        content = hashlib.sha256(path.read_bytes()).hexdigest()
    return (facts.st_mode, facts.st_uid, facts.st_gid, facts.st_nlink, facts.st_mtime_ns, facts.st_ctime_ns, content)


def fingerprint(stand):
    """Returns {path: its facts} of everything that a build may only read."""
    found = {}
    for top in (stand / "sources", stand / "program" / "files"):
        for path in (top, *top.rglob("*")):
            found[str(path.relative_to(stand))] = facts_of(path)
    return found


def names_below(stand):
    """Returns the names in all folders that a build writes to, sorted."""
    return sorted(str(path.relative_to(stand)) for top in WRITTEN for path in (stand / top).rglob("*"))
