"""Reads the recorded system calls of an undisturbed build, and lists the faults that are worth injecting into it."""

import re
from dataclasses import dataclass, field

# Of one call in the code, from one place that calls it, only these occurrences: the first, the last, and some between.
MOST_PER_SITE = 3
# So many of the innermost places tell one way to a call from another. A folder in a folder is the same way.
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
# What changes something on the disk or starts something. Between two of these a kill makes no difference.
# Whole builds under the shell's limits: the largest file in half kilobytes, open files, memory in kilobytes. The
# messages of a build go to a file here, so that file must have room for them.
LIMITS = "limits"
LIMIT_VALUES = {
    "ulimit -f": (4, 40, 160, 1000, 2000, 2880, 4000, 8000, 12000, 15000),
    "ulimit -n": (4, 5, 6, 7, 8, 9, 10, 12, 16),
    "ulimit -v": (8000, 10000, 12000, 14000, 16000, 20000, 25000, 30000, 50000, 80000, 90000, 100000, 200000),
}
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
    """(address, function) of a line of the call's stack, or None when it is not in our code."""
    found = FRAME.match(line)
    if not found or not found[1].startswith(folder):
        return None
    return found[1].rsplit("/", 1)[-1] + found[3], found[2]


def read_calls(lines, folder):
    """The calls of a trace made by `strace -k`, with or without -f. Our programs stand in `folder`."""
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
        # The stack of a call that another task has interrupted stands behind the line in which it is resumed.
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
        # The stack of a call that starts something cannot be read; the code of libraries starts nothing by itself.
        site = (name,) if name in BLIND else ()
        latest["call"] = latest[task] = Call(task, name, counts[task, name], entry[3], site)
        calls.append(latest["call"])
    return calls


@dataclass
class Unit:
    """One program of the build, or one of its starts, into which faults are injected."""

    program: str
    arguments: str = ""  # tells the starts of one program apart; empty: every start
    threads: bool = False  # the calls of its other threads
    path: str = ""  # only the calls that name this file
    calls: list = field(default_factory=list)

    @property
    def shown(self):
        words = [self.program, self.arguments, "(threads)" if self.threads else "", self.path]
        return " ".join(word for word in words if word)


@dataclass(frozen=True)
class Injection:
    """One fault: which call fails, where, and how."""

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
    """What may happen to this call; all of it at the first one of a site, and a kill where it makes a difference."""
    errors = list(ERRORS.get(call.name, ()))[: None if is_first else 1]
    creates = call.name.startswith("open") and CREATES.search(call.text)
    if creates:
        errors.append("ENOSPC")
    # A file that is open already: only the disk may fail.
    if call.name == "newfstatat" and "AT_EMPTY_PATH" in call.text:
        errors = ["EIO"]
    if creates or call.name in CHANGES:
        errors.append(KILL)
    return errors


def some_of(items, most):
    """The first, the last, and others at equal distances; all when there are no more than `most`."""
    if len(items) <= most:
        return list(items)
    last = len(items) - 1
    return [items[at * last // max(most - 1, 1)] for at in range(most)]


def chosen_calls(units, most):
    """[(unit, call, whether it is the first of its site)] in the recorded order, at most `most` for each site."""
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
    """The numbered list of all injections; `recorded` is {scenario: its units}."""
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
    """(calls of the first task, those of its threads): a task that starts a program is neither."""
    first = calls[0].task if calls else ""
    starting = {call.task for call in calls if call.name == "execve" and call.task != first}
    threads = [call for call in calls if call.task != first and call.task not in starting]
    return [call for call in calls if call.task == first], threads


def shown_text(text, folder):
    """The arguments of a call without what is different in each run."""
    return re.sub(r"0x[0-9a-f]{6,}", "0x...", text.replace(folder, ""))


def units_of_program(program, lines, folder):
    """The unit of a started program and that of its threads, from its trace."""
    calls = read_calls(lines, folder)
    own, threads = split_tasks(calls)
    started = STARTED.search(f"execve({own[0].text}") if own else None
    words = re.findall(r'"((?:[^"\\]|\\.)*)"', started[1]) if started else []
    # Only CreateDsk is started several times; the arguments of the others hold paths.
    arguments = " ".join(words[1:]) if program == "CreateDsk" else ""
    for call in calls:
        call.text = shown_text(call.text, folder)
    units = [Unit(program, arguments, calls=own)]
    # The call of the first task with the same number fails, too. That must not be one of the system's loader.
    by_loader = {(call.name, call.number) for call in own if not call.site}
    alone = [call for call in threads if (call.name, call.number) not in by_loader]
    return units + ([Unit(program, arguments, True, calls=alone)] if alone else [])
