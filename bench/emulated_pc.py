"""Runs a PC in an emulator (QEMU without a display) and tells when texts appear on its screen or its serial port."""

import json
import socket
import subprocess
import sys
import tempfile
import time
from pathlib import Path

TEXT_SCREEN, SCREEN_BYTES = 0xB8000, 4000
POLL = 0.005  # seconds
PATIENCE = 600  # seconds


class EmulatedPC:
    """A PC with a CD, switched off at first. Use it in a with statement; it is ended there."""

    def __init__(self, image, *arguments):
        self.image, self.arguments = image, arguments

    def __enter__(self):
        self.folder = tempfile.TemporaryDirectory()
        self.memory, self.com1 = Path(self.folder.name, "memory"), Path(self.folder.name, "com1")
        ours, theirs = socket.socketpair()
        self.program = subprocess.Popen(
            ["qemu-system-i386", "-accel", "tcg", "-nodefaults", "-vga", "std", "-display", "none", "-boot", "d",
             "-no-reboot", "-S", "-cdrom", self.image, "-serial", f"file:{self.com1}",
             "-chardev", f"socket,id=control,fd={theirs.fileno()}", "-mon", "chardev=control,mode=control",
             *self.arguments],
            pass_fds=[theirs.fileno()], stdin=subprocess.DEVNULL,
        )  # fmt: skip
        theirs.close()
        self.control = ours.makefile("rw")
        self.execute("qmp_capabilities")
        return self

    def __exit__(self, *_):
        self.program.kill()
        self.program.wait()
        self.folder.cleanup()

    def execute(self, command, **arguments):
        self.control.write(json.dumps({"execute": command, "arguments": arguments}) + "\n")
        self.control.flush()
        while True:
            line = self.control.readline()
            if not line:
                sys.exit("The emulator has ended.")
            answer = json.loads(line)
            if "error" in answer:
                sys.exit(f"The emulator refuses {command}: {answer['error']}")
            if "return" in answer:
                return

    def switch_on(self):
        self.execute("cont")
        self.start = time.monotonic()

    def press(self, key):
        self.execute("send-key", keys=[{"type": "qcode", "data": key}])

    def screen(self):
        self.execute("pmemsave", val=TEXT_SCREEN, size=SCREEN_BYTES, filename=str(self.memory))
        return self.memory.read_bytes()[::2].decode("cp437")

    def serial(self):
        return self.com1.read_text(errors="replace")

    def seconds_until(self, text, look):
        """Waits until `text` is in what look() returns. Returns the seconds since the machine was switched on."""
        while text not in look():
            if time.monotonic() > self.start + PATIENCE:
                sys.exit(f"'{text}' did not come. What came instead:\n{look()}")
            time.sleep(POLL)
        return time.monotonic() - self.start
