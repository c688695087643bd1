"""Defines the invariants of a build into which a fault was injected, and checks each of them."""

import fnmatch
import hashlib
import re
import shutil
import subprocess
import tempfile
from dataclasses import dataclass, field
from pathlib import Path

from fault_stand import IMAGE, SAVED_SESSION, fingerprint, names_below

INVARIANTS = {
    1: "What the user chose and the program's own files are unchanged: content, names, modes, times.",
    2: "The image is the old one, the new one or absent, never partial. The same holds for a saved session.",
    3: "Exit code 0 means that every file is on the CD, byte by byte, as a foreign reader reads it.",
    4: "Every loss is named. A failure says on standard error why.",
    5: "No program crashes or hangs.",
    6: "After a killed or failed build the next one works, and nothing of the first one stays.",
}

SECTOR = 2048
KNOWN_CODES = {0, 1, 2, 3, 4}
MADE_WITH_WARNINGS = 4
SHOWN = 6  # the largest number of paths that a finding names
CRASH = re.compile(
    r"terminate called|what\(\):|Sanitizer|runtime error:|Assertion .* failed|Segmentation fault|core dumped|"
    r"\bSIG(?:ABRT|SEGV|BUS|FPE|ILL|XFSZ|SYS|PIPE)\b|free\(\): invalid|double free|exit code (?:13[24569]|153)\b"
)
PROGRESS = re.compile(r"^\d/5 |^Image:|^Size:|^SHA-256:|^remark: ")

# ORIGINS says from which folder the content of a folder of the CD comes. OTHER_NAMES has further names by which a
# message may call a file of the CD.
ORIGINS = {
    "I386": "sources/nt/I386",
    "WIN98": "sources/98",
    "ERDC": "sources/erd/I386",
    "OOBC": "sources/oobc/I386",
    "vexa": "sources/utilities",
    "DOC": "sources/oobc/DOC",
    "WIN51": "sources/erd",
    "CDROM_IP.5": "sources/nt",
    "CDROM_NT.5": "sources/nt",
    "boot": "program/files/vexacd/boot",
}
OTHER_NAMES = {
    "boot/images/vexastart.img": ("vexasoftware", "Vexa Rescue Software"),
    "boot/images/vexaemm.img": ("vexasoftware_emm",),
    "boot/images/vexawin.img": ("winsetup",),
    "boot/images/vexanet.img": ("netaccess", "linkwellplus288"),
    **{f"boot/images/{name}.bin": ("files/bootsect", "bootsect/w2ksect.bin") for name in ("w2ksect", "erdc", "oobc")},
    "I386/WINNT.SIF": ("keyfile.txt", "keyfile2.txt", "win2k_template.inf"),
    "WIN98/MSBATCH.INF": ("keyfile.txt", "keyfile2.txt", "winme_template.inf"),
}


@dataclass
class Outcome:
    """The result of one run. `code` is below 0 if a signal has ended it."""

    code: int
    out: str = ""
    err: str = ""
    timed_out: bool = False
    trace: str = ""  # the trace of the program into which the fault was injected

    @property
    def was_killed(self):
        return self.code == -9


@dataclass
class Undisturbed:
    """What the build of a scenario leaves when nothing fails."""

    image: bytes
    old_image: bytes | None
    session: bytes | None = None
    old_session: bytes | None = None
    files: dict = field(default_factory=dict)  # {path on the CD: digest}
    names: list = field(default_factory=list)  # the names in the folders that a build writes to, after a second build


def content_of(path):
    return path.read_bytes() if path.exists() else None


def saved_session(stand):
    """Returns the saved session without the path of the stand, which is part of the image's path in the session. A
    session is in Windows-1252."""
    content = content_of(stand / SAVED_SESSION)
    return content and content.replace(str(stand).encode("cp1252", "replace"), b"")


def read_files(image):
    """Returns {path: digest} of the files that bsdtar finds in an image; None when it cannot read the whole image."""
    with tempfile.TemporaryDirectory() as folder:
        file = Path(folder) / "image.iso"
        file.write_bytes(image)
        top = Path(folder) / "files"
        top.mkdir()
        command = [shutil.which("bsdtar"), "-x", "-f", file, "-C", top]
        quiet = {stream: subprocess.DEVNULL for stream in ("stdin", "stdout", "stderr")}
        done = subprocess.run(command, **quiet, env={"LC_ALL": "C.UTF-8"})
        if done.returncode != 0 or not is_whole(image):
            return None
        paths = [path for path in top.rglob("*") if path.is_file()]
        return {str(path.relative_to(top)): hashlib.sha256(path.read_bytes()).hexdigest() for path in paths}


def is_whole(image):
    """Whether the file is at least as long as its volume descriptor says."""
    at = 16 * SECTOR
    sectors = int.from_bytes(image[at + 80 : at + 84], "little")
    return image[at + 1 : at + 6] == b"CD001" and len(image) >= SECTOR * sectors


def boot_start(image):
    """Returns the four sectors of 512 bytes that a BIOS loads from the CD."""
    catalogue = int.from_bytes(image[17 * SECTOR + 71 : 17 * SECTOR + 75], "little") * SECTOR
    start = int.from_bytes(image[catalogue + 40 : catalogue + 44], "little") * SECTOR
    return image[start : start + SECTOR]


def lost_files(image, undisturbed):
    """Returns the paths on the CD that are missing, differ or should not exist; None when the image cannot be read."""
    if image == undisturbed.image:
        return []
    found = read_files(image)
    if found is None:
        return None
    paths = sorted(found.keys() | undisturbed.files.keys())
    lost = [path for path in paths if found.get(path) != undisturbed.files.get(path)]
    return lost + ([] if boot_start(image) == boot_start(undisturbed.image) else ["boot/loader.bin"])


def origin_of(path):
    """Returns the folder from which a file of the CD comes. The file's folder in the root of the CD decides this."""
    return ORIGINS.get(path.split("/")[0], "sources/additional files")


def names_of(path):
    """Returns what a message may call a file of the CD: its name, another name of it, or a folder that contains it."""
    parents = path.split("/")[:-1]
    origin = origin_of(path)
    names = [path.rsplit("/", 1)[-1], origin, *OTHER_NAMES.get(path, ())]
    names += ["/".join(parents[: count + 1]) for count in range(len(parents))]
    names += ["/".join([origin, *parents[1:count]]) for count in range(2, len(parents) + 1)]
    return names


def is_in_the_rest(path, line):
    """Whether a line says that more files than the one it names were not copied, and this file is among them."""
    if "the rest of this folder" in line:
        return "/".join(origin_of(path).split("/")[:2]) + "/" in line
    pattern = re.search(r"(?:nor were the files after it that match|so files that match) (.*?)(?: may be missing)?:", line)
    return bool(pattern) and fnmatch.fnmatch(path.lower(), pattern[1].lower().replace("*.*", "*"))


def is_named(path, text):
    """Whether a line names this file, or names its folder without naming something in that folder."""
    names = [r"(?<![\w.])" + re.escape(name) + r"(?![\w/\\.]\w)" for name in names_of(path)]
    if any(re.search(name, text, re.IGNORECASE) for name in names):
        return True
    return any(is_in_the_rest(path, line) for line in text.splitlines())


def some(paths):
    more = f" and {len(paths) - SHOWN} more" if len(paths) > SHOWN else ""
    return ", ".join(paths[:SHOWN]) + more


def changed_sources(before, stand):
    """Checks invariant 1."""
    after = fingerprint(stand)
    changed = sorted(path for path in before.keys() | after.keys() if before.get(path) != after.get(path))
    return [(1, f"changed: {some(changed)}")] if changed else []


def wrong_image(outcome, stand, undisturbed):
    """Checks invariant 2."""
    found = []
    image = content_of(stand / IMAGE)
    if image is None and undisturbed.old_image is not None:
        found.append((2, "the old image is gone"))
    may_have_losses = outcome.code == MADE_WITH_WARNINGS
    if image not in (None, undisturbed.old_image, undisturbed.image):
        if not may_have_losses and outcome.code != 0:
            found.append((2, f"an image of {len(image)} bytes that is neither the old nor the new one"))
        elif lost_files(image, undisturbed) is None:
            found.append((2, f"a partial image of {len(image)} bytes"))
    session = saved_session(stand)
    if session not in (undisturbed.old_session, undisturbed.session):
        found.append((2, "the saved session is neither the old nor the new one"))
    others = {path.name for path in (stand / IMAGE).parent.iterdir()} - {Path(IMAGE).name, Path(SAVED_SESSION).name}
    unnamed = sorted(name for name in others if name not in outcome.out + outcome.err)
    if unnamed and not outcome.was_killed:
        found.append((2, f"left beside the image: {some(unnamed)}"))
    return found


def incomplete_success(outcome, stand, undisturbed):
    """Checks invariant 3."""
    if outcome.code != 0:
        return []
    image = content_of(stand / IMAGE)
    if image is None:
        return [(3, "exit code 0 without an image")]
    if image == undisturbed.old_image:
        return [(3, "exit code 0, and the image is the old one")]
    found = []
    lost = lost_files(image, undisturbed)
    if lost:
        found.append((3, f"exit code 0, but missing or different: {some(lost)}"))
    if saved_session(stand) != undisturbed.session:
        found.append((3, "exit code 0, but the session was not saved"))
    return found


def unnamed_losses(outcome, stand, undisturbed):
    """Checks invariant 4."""
    if outcome.code <= 0 or outcome.timed_out:
        return []
    reasons = [line for line in outcome.err.splitlines() if " " in line.strip() and not PROGRESS.match(line)]
    if not reasons:
        return [(4, f"exit code {outcome.code} without a reason on standard error")]
    image = content_of(stand / IMAGE)
    if outcome.code != MADE_WITH_WARNINGS:
        return []
    if image in (None, undisturbed.old_image):
        return [(4, "exit code 4 without a new image")]
    text = "\n".join(reasons)
    lost = [path for path in lost_files(image, undisturbed) or [] if not is_named(path, text)]
    return [(4, f"missing or different, but not named: {some(lost)}")] if lost else []


def crashes(outcome):
    """Checks invariant 5."""
    if outcome.timed_out:
        return [(5, "it did not end")]
    found = [found[0] for found in CRASH.finditer(outcome.out + outcome.err)]
    found += [line for line in outcome.trace.splitlines() if "+++ killed by" in line and "SIGKILL" not in line]
    if outcome.code not in KNOWN_CODES and not outcome.was_killed:
        found.append(f"exit code {outcome.code}")
    return [(5, some(found))] if found else []


def failed_repetition(outcome, stand, undisturbed, still_running):
    """Checks invariant 6. `outcome` is that of the next build, into which no fault is injected."""
    found = []
    if outcome.code != 0 or outcome.timed_out:
        said = " | ".join(outcome.err.splitlines()[-2:])
        found.append((6, f"the next build ended with {outcome.code}: {said}"))
    elif content_of(stand / IMAGE) != undisturbed.image:
        found.append((6, "the next build made another image"))
    names = names_below(stand)
    more = sorted(set(names) - set(undisturbed.names))
    fewer = sorted(set(undisturbed.names) - set(names))
    found += [(6, f"stays after the next build: {some(more)}")] if more else []
    found += [(6, f"missing after the next build: {some(fewer)}")] if fewer and outcome.code == 0 else []
    found += [(6, f"still running: {some(still_running)}")] if still_running else []
    return found


def broken_by(outcome, stand, undisturbed, before):
    """Returns [(invariant, what was found)] after a run with a fault."""
    return [
        *changed_sources(before, stand),
        *wrong_image(outcome, stand, undisturbed),
        *incomplete_success(outcome, stand, undisturbed),
        *unnamed_losses(outcome, stand, undisturbed),
        *crashes(outcome),
    ]
