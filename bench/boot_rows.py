"""Measures how soon a CD starts in an emulator: our loader beside isolinux and GRUB, each with the same programs."""

import shutil
import statistics
from dataclasses import dataclass, field
from pathlib import Path

from common import build_command, passing_folder, program_folder
from emulated_pc import EmulatedPC
from measure import must, run

LOADER_AIM = 1.1  # greatest time, as a multiple of that of the faster one of the two others
SIZE_AIM = 64  # KB
DEBIAN_RUNS = 3  # each takes half a minute for each loader

INSTALLER = Path("/usr/lib/debian-installer/images/12/i386/text/debian-installer/i386")
PROGRAMS = {
    "memtest": Path("/boot/memtest86+ia32.bin"),
    "linux": INSTALLER / "linux",
    "initrd": INSTALLER / "initrd.gz",
}
OPTIONS = "rescue/enable=true vga=normal fb=false nomodeset console=ttyS0,115200n8 ---"

OUR_SCRIPT = f"""Entry Memory test
Key M
Linux memtest
EndEntry
Entry Debian
Key D
Linux linux
Initrd initrd
Options "{OPTIONS}"
EndEntry
"""
ISOLINUX = Path("/usr/lib/ISOLINUX/isolinux.bin")
ISOLINUX_MODULES = Path("/usr/lib/syslinux/modules/bios")
ISOLINUX_SCRIPT = f"""UI menu.c32
MENU IMMEDIATE
LABEL memtest
MENU LABEL ^Memory test
LINUX /memtest
LABEL debian
MENU LABEL ^Debian
LINUX /linux
INITRD /initrd
APPEND {OPTIONS}
"""
GRUB_SCRIPT = f"""set timeout=-1
set gfxpayload=text
menuentry "Memory test" --hotkey=m {{ linux /memtest }}
menuentry "Debian" --hotkey=d {{ linux /linux {OPTIONS}
initrd /initrd }}
"""


@dataclass
class Disc:
    """A CD with its loader. `seconds` has a list for each measured moment, with one number for each run."""

    name: str
    image: Path
    last_words: str  # of its menu on the screen
    seconds: dict = field(default_factory=dict)

    def note(self, moment, seconds):
        self.seconds.setdefault(moment, []).append(seconds)

    def start_memory_test(self, count):
        with EmulatedPC(self.image, "-m", "64") as pc:
            pc.switch_on()
            menu = pc.seconds_until(self.last_words, pc.screen)
            pc.press("m")
            memory_test = pc.seconds_until("Memtest86+ v", pc.screen)
        if count:
            self.note("its menu", menu)
            self.note("the screen of memtest86+", memory_test)

    def start_debian(self):
        with EmulatedPC(self.image, "-m", "512") as pc:
            pc.switch_on()
            pc.seconds_until(self.last_words, pc.screen)
            pc.press("d")
            self.note("the first line of Debian's kernel", pc.seconds_until("Linux version", pc.serial))
            self.note("the first dialog of Debian's rescue system", pc.seconds_until("Select a language", pc.serial))


def tree_with_programs(folder):
    folder.mkdir(parents=True)
    for name, source in PROGRAMS.items():
        shutil.copyfile(source, folder / name)
    return folder


def write_script(file, text):
    file.parent.mkdir(parents=True)
    file.write_text(text)


def our_disc(options, folder):
    tree = tree_with_programs(folder / "ours")
    write_script(tree / "boot" / "scripts" / "local.cds", OUR_SCRIPT)
    program = program_folder(options, f"{folder.name}/program")
    command = build_command(program, "--set", "ChkAddFiles=1", "--set", f"TxtAddFiles_Loc={tree}")
    must(run(command), command)
    return Disc("ours", program / "bench.iso", "Arrows: choose")


def isolinux_disc(folder):
    tree, image = tree_with_programs(folder / "isolinux"), folder / "isolinux.iso"
    write_script(tree / "isolinux" / "isolinux.cfg", ISOLINUX_SCRIPT)
    for file in [ISOLINUX, *(ISOLINUX_MODULES / f"{name}.c32" for name in ("menu", "ldlinux", "libcom32", "libutil"))]:
        shutil.copy(file, tree / "isolinux")
    boot = "-b isolinux/isolinux.bin -c isolinux/boot.cat -no-emul-boot -boot-load-size 4 -boot-info-table".split()
    command = ["genisoimage", "-R", *boot, "-o", image, tree]
    must(run(command), command)
    return Disc("isolinux", image, "Press [Tab] to edit options")


def grub_disc(folder):
    tree, image = tree_with_programs(folder / "grub"), folder / "grub.iso"
    write_script(tree / "boot" / "grub" / "grub.cfg", GRUB_SCRIPT)
    command = ["grub-mkrescue", "-d", "/usr/lib/grub/i386-pc", "-o", image, tree]
    must(run(command), command)
    return Disc("GRUB", image, "Press enter to boot")


def row(moment, discs):
    ours, *others = discs
    median = {disc.name: statistics.median(disc.seconds[moment]) for disc in discs}
    faster = min(others, key=lambda disc: median[disc.name])
    ratios = [mine / theirs for mine, theirs in zip(ours.seconds[moment], faster.seconds[moment])]
    ratio = statistics.median(ratios)
    seconds = ", ".join(f"{disc.name} {median[disc.name]:.2f} s" for disc in discs)
    measured = f"{ratio:.2f} x ({min(ratios):.2f} to {max(ratios):.2f}; {seconds})"
    what = f"power-on of a CD to {moment}, to the faster one of isolinux and GRUB"
    return (what, measured, f"at most {LOADER_AIM} x", ratio <= LOADER_AIM)


def boot_rows(options):
    folder = passing_folder(options, "discs")
    discs = [our_disc(options, folder), isolinux_disc(folder), grub_disc(folder)]
    for number in range(options.pairs + 1):
        for disc in discs if number % 2 else reversed(discs):
            disc.start_memory_test(count=number > 0)  # the first runs warm up
    for number in range(DEBIAN_RUNS):
        for disc in discs if number % 2 else reversed(discs):
            disc.start_debian()
    kilobytes = (options.build / "program" / "files" / "vexacd" / "boot" / "loader.bin").stat().st_size / 1024
    size = ("size of `loader.bin`", f"{kilobytes:.1f} KB", f"under {SIZE_AIM} KB", kilobytes < SIZE_AIM)
    return [*(row(moment, discs) for moment in discs[0].seconds), size]
