"""Reads the recorded system calls of an undisturbed build, and lists the faults that are worth injecting into it."""

import re
from dataclasses import dataclass, field

# The calls that one chain of places in the code makes are one site. Faults are injected into this many calls of a site:
# the first, the last, and some between.
MOST_PER_SITE = 3
# A site is told from others by this many of the innermost places on the stack. A place that calls itself, for a folder
# in a folder, counts once.
FRAMES = 6

STATS = ("EIO", "EACCES")
OPENS = ("EACCES", "EIO", "EMFILE")
WRITES = ("ENOSPC", "EIO", "EINTR")
RENAMES = ("EACCES", "EIO", "ENOSPC", "EXDEV")
STARTS = ("EAGAIN", "ENOMEM")
# The errors that may come from each call. A close that fails is left out, because strace would leave the file open. So
# is brk: it reports a failure by the old end of the heap, and the C library would take an error for an address.
ERRORS = {
    "open": OPENS,
    "openat": OPENS,
    "read": ("EIO", "EINTR"),
    "pread64": ("EIO", "EINTR"),
    "write": WRITES,
    "pwrite64": WRITES,
    "writev": WRITES,
    "stat": STATS,
    "lstat": STATS,
    "statx": STATS,
    "newfstatat": STATS,
    "access": STATS,
    "faccessat": STATS,
    "faccessat2": STATS,
    "fstat": ("EIO",),
    "getdents64": ("EIO",),
    "readlink": STATS,
    "readlinkat": STATS,
    "rename": RENAMES,
    "renameat": RENAMES,
    "renameat2": (*RENAMES, "EINVAL"),
    "link": ("EXDEV", "EACCES", "EMLINK", "ENOSPC"),
    "linkat": ("EXDEV", "EACCES", "EMLINK", "ENOSPC"),
    "symlink": ("EACCES", "ENOSPC"),
    "symlinkat": ("EACCES", "ENOSPC"),
    "unlink": ("EACCES", "EIO"),
    "unlinkat": ("EACCES", "EIO"),
    "rmdir": ("EACCES", "EIO"),
    "mkdir": ("EACCES", "ENOSPC", "EIO"),
    "mkdirat": ("EACCES", "ENOSPC", "EIO"),
    "copy_file_range": ("ENOSPC", "EIO", "EXDEV"),
    "sendfile": ("ENOSPC", "EIO"),
    "ftruncate": ("ENOSPC", "EIO"),
    "fallocate": ("ENOSPC", "EOPNOTSUPP"),
    "fsync": ("EIO", "ENOSPC"),
    "fdatasync": ("EIO", "ENOSPC"),
    "chmod": ("EACCES", "EIO"),
    "fchmod": ("EACCES", "EIO"),
    "fchmodat": ("EACCES", "EIO"),
    "fchown": ("EPERM", "EIO"),
    "utimensat": ("EACCES", "EIO"),
    "mmap": ("ENOMEM",),
    "clone": STARTS,
    "clone3": STARTS,
    "fork": STARTS,
    "vfork": STARTS,
    "execve": ("ENOMEM", "EACCES", "EIO"),
    "pipe2": ("EMFILE",),
    "eventfd2": ("EMFILE",),
    "poll": ("EINTR", "ENOMEM"),
    "ioctl": ("EOPNOTSUPP", "EIO"),
    "getrandom": ("EAGAIN",),
    "flock": ("ENOLCK",),
    "getcwd": ("EACCES",),
    "lseek": ("EIO",),
    "wait4": ("EINTR",),
}
# Limits of the shell for whole builds: the largest file in half kilobytes, the open files, the memory in kilobytes. The
# messages of a build go to a file, which must have room for them.
LIMITS = "limits"
LIMIT_VALUES = {
    "ulimit -f": (4, 40, 160, 1000, 2000, 2880, 4000, 8000, 12000, 15000),
    "ulimit -n": (4, 5, 6, 7, 8, 9, 10, 12, 16),
    "ulimit -v": (8000, 10000, 12000, 14000, 16000, 20000, 25000, 30000, 50000, 80000, 90000, 100000, 200000),
}
# The calls that change something on the disk or start something. A kill is injected into these only, because a kill
# between two of them makes no difference.
CHANGES = set(
    "write pwrite64 writev rename renameat renameat2 link linkat symlink symlinkat unlink unlinkat rmdir mkdir mkdirat "
    "copy_file_range sendfile ftruncate fallocate chmod fchmod fchmodat utimensat clone clone3 vfork pipe2".split()
)
BLIND = {"clone", "clone3", "vfork", "fork"}
CREATES = re.compile(r"O_CREAT|O_TRUNC")
KILL = "SIGKILL"

ENTRY = re.compile(r"^(?:(\d+) +)?([a-z_0-9]+)\((.*)$")
STARTED = re.compile(r'execve\("[^"]*", \[(.*?)\], 0x')
FRAME = re.compile(r"^ > (.*?)\((.*)\) \[(0x[0-9a-f]+)\]$")


@dataclass
class Call:
    """One system call of a recorded run. `site` is the chain of places in our own code that led to it."""

    task: str
    name: str
    number: int  # counted for each task and name, as strace counts it
    text: str
    site: tuple = ()
    where: str = ""


def own_frame(line, folder):
    """Returns (address, function) of a line of the call's stack, or None when the line is not in our code."""
    found = FRAME.match(line)
    if not found or not found[1].startswith(folder):
        return None
    return found[1].rsplit("/", 1)[-1] + found[3], found[2]


def read_calls(lines, folder):
    """Returns the calls of a trace made by `strace -k`, with or without -f. Our programs are in `folder`."""
    calls, counts, latest = [], {}, {}
    for line in lines:
        frame = own_frame(line, folder)
        if frame and latest.get("call"):
            call = latest["call"]
            call.site += (frame[0],) if len(call.site) < FRAMES and frame[0] not in call.site else ()
            call.where = call.where or frame[1]
            continue
        if line.startswith(" > "):
            continue
        # If another task interrupts a call, the stack of the call follows the line in which the call is resumed.
        resumed = re.match(r"^(\d+) +<\.\.\. [a-z_0-9]+ resumed>(.*)", line)
        if resumed:
            latest["call"] = latest.get(resumed[1])
            if latest["call"]:
                latest["call"].text = latest["call"].text.replace(" <unfinished ...>", resumed[2])
            continue
        entry = ENTRY.match(line)
        latest["call"] = None
        if not entry:
            continue
        task, name = entry[1] or "", entry[2]
        counts[task, name] = counts.get((task, name), 0) + 1
        # strace cannot read the stack of a call that starts something. The code of libraries starts nothing by itself,
        # so such a call comes from our code.
        site = (name,) if name in BLIND else ()
        latest["call"] = latest[task] = Call(task, name, counts[task, name], entry[3], site)
        calls.append(latest["call"])
    return calls


@dataclass
class Unit:
    """One program of the build, or one of its starts, into which faults are injected."""

    program: str
    arguments: str = ""  # tells apart the starts of one program; empty: the unit is every start
    threads: bool = False  # the unit has the calls of the program's other threads
    path: str = ""  # the unit has only the calls that name this file; empty: all calls
    calls: list = field(default_factory=list)

    @property
    def shown(self):
        words = [self.program, self.arguments, "(threads)" if self.threads else "", self.path]
        return " ".join(word for word in words if word)


@dataclass(frozen=True)
class Injection:
    """One fault: the call that fails, its place, and the way in which it fails."""

    number: int
    scenario: str
    program: str
    arguments: str
    threads: bool
    path: str
    name: str
    when: int
    error: str
    text: str = ""
    where: str = ""

    @property
    def expression(self):
        if self.program == LIMITS:
            return f"{self.name} {self.when}"
        effect = "signal=KILL" if self.error == KILL else f"error={self.error}"
        return f"{self.name}:{effect}:when={self.when}"

    @property
    def shown(self):
        if self.program == LIMITS:
            return f"{self.scenario}: {self.expression}"
        unit = Unit(self.program, self.arguments, self.threads, self.path)
        return f"{self.scenario}: {unit.shown}: {self.expression}: {self.name}({self.text[:90]} in {self.where[:60]}"


def errors_of(call, is_first=True):
    """Returns the faults for this call.

    The first call of a site gets all of them, other calls only one error. A kill is among them where it matters.
    """
    errors = list(ERRORS.get(call.name, ()))[: None if is_first else 1]
    creates = call.name.startswith("open") and CREATES.search(call.text)
    if creates:
        errors.append("ENOSPC")
    # The file is already open, so only the disk may fail.
    if call.name == "newfstatat" and "AT_EMPTY_PATH" in call.text:
        errors = ["EIO"]
    if creates or call.name in CHANGES:
        errors.append(KILL)
    return errors


def some_of(items, most):
    """Returns the first, the last, and others at equal distances; all when there are no more than `most`."""
    if len(items) <= most:
        return list(items)
    last = len(items) - 1
    return [items[at * last // max(most - 1, 1)] for at in range(most)]


def chosen_calls(units, most):
    """Returns [(unit, call, whether it is the first of its site)] in the recorded order, at most `most` of a site."""
    sites = {}
    for at, unit in enumerate(units):
        for call in unit.calls:
            if call.site:
                sites.setdefault((unit.program, call.name, call.site), []).append((at, call))
    chosen = [pair for pairs in sites.values() for pair in some_of(pairs, most)]
    order = {id(call): place for unit in units for place, call in enumerate(unit.calls)}
    firsts = {id(pairs[0][1]) for pairs in sites.values()}
    chosen.sort(key=lambda pair: (pair[0], order[id(pair[1])]))
    return [(units[at], call, id(call) in firsts) for at, call in chosen]


def plan(recorded, most=MOST_PER_SITE):
    """Returns the numbered list of all injections. `recorded` is {scenario: its units}."""
    injections = []
    for scenario, units in recorded.items():
        for unit, call, is_first in chosen_calls(units, most):
            fixed = (scenario, unit.program, unit.arguments, unit.threads, unit.path, call.name, call.number)
            for error in errors_of(call, is_first):
                injections.append(Injection(len(injections) + 1, *fixed, error, call.text, call.where))
    for scenario in recorded:
        for name, values in LIMIT_VALUES.items():
            for value in values:
                injections.append(Injection(len(injections) + 1, scenario, LIMITS, "", False, "", name, value, ""))
    return injections


def split_tasks(calls):
    """Returns (calls of the first task, calls of its threads). A task that starts a program belongs to neither."""
    first = calls[0].task if calls else ""
    starting = {call.task for call in calls if call.name == "execve" and call.task != first}
    threads = [call for call in calls if call.task != first and call.task not in starting]
    return [call for call in calls if call.task == first], threads


def shown_text(text, folder):
    """Returns the arguments of a call without the parts that differ from run to run."""
    return re.sub(r"0x[0-9a-f]{6,}", "0x...", text.replace(folder, ""))


def units_of_program(program, lines, folder):
    """Returns the unit of a started program and the unit of its threads, from its trace."""
    calls = read_calls(lines, folder)
    own, threads = split_tasks(calls)
    started = STARTED.search(f"execve({own[0].text}") if own else None
    words = re.findall(r'"((?:[^"\\]|\\.)*)"', started[1]) if started else []
    # Only CreateDsk is started several times, so only its starts must be told apart. The arguments of the others hold
    # paths.
    arguments = " ".join(words[1:]) if program == "CreateDsk" else ""
    for call in calls:
        call.text = shown_text(call.text, folder)
    units = [Unit(program, arguments, calls=own)]
    # strace also makes the call of the first task with the same number fail. That call must not be one of the system's
    # loader.
    by_loader = {(call.name, call.number) for call in own if not call.site}
    alone = [call for call in threads if (call.name, call.number) not in by_loader]
    return units + ([Unit(program, arguments, True, calls=alone)] if alone else [])
