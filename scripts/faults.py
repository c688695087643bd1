#!/usr/bin/env python3
"""Injects one fault at a time into whole builds, and checks what must hold whatever fails.

The invariants are these; each has a check of the same number in fault_checks.py:
  1. What the user chose and the program's own files are unchanged: content, names, modes, times.
  2. The image is the old one, the new one or absent, never partial. The same holds for a saved session.
  3. Exit code 0 means that every file is on the CD, byte by byte, as a foreign reader reads it.
  4. Every loss is named. A failure says on standard error why.
  5. No program crashes or hangs.
  6. After a killed or failed build the next one works, and nothing of the first one stays.
Linux only. Needs strace, and the permission to trace processes."""

import argparse
import collections
import concurrent.futures
import fcntl
import hashlib
import json
import os
import queue
import random
import shlex
import shutil
import signal
import subprocess
import sys
import threading
import time
from dataclasses import asdict
from pathlib import Path

import fault_checks
import fault_plan
import fault_stand
from fault_checks import INVARIANTS, Outcome, Undisturbed
from fault_plan import KILL, LIMITS, Call, Injection, Unit

ROOT = Path(__file__).resolve().parent.parent
MARK = "DISCWRIGHT_FAULTS"  # an environment variable of every process that is started here
LEAST_LIMIT = 20  # the smallest time limit of a build, in seconds
TIMES_UNDISTURBED = 20
# While a script takes the place of a program, the name of the program itself ends in this.
REAL = ".real"
KILLED = "killed by SIGKILL"  # a trace ends with this after a kill


def processes_of(mark):
    """Returns the processes of one run. They have the mark in their environment."""
    found = []
    for entry in Path("/proc").iterdir():
        try:
            if entry.name.isdigit() and mark.encode() in (entry / "environ").read_bytes():
                found.append(int(entry.name))
        except OSError:
            continue  # the process has ended, or belongs to another user
    return found


def end_all(mark):
    for process in processes_of(mark):
        try:
            os.kill(process, signal.SIGKILL)
        except ProcessLookupError:
            continue


def still_running(mark, seconds):
    """Waits for the processes of a run to end. Returns those that still run after this time."""
    last_moment = time.monotonic() + seconds
    while found := processes_of(mark):
        if time.monotonic() > last_moment:
            return [str(process) for process in found]
        time.sleep(0.01)
    return []


def run_build(stand, command, mark, limit):
    """Runs a build, or a strace of one.

    The output goes to files, because a pipe would make this function wait for a program that outlives the build.
    """
    with open(stand.parent / "out.txt", "w+b") as out, open(stand.parent / "err.txt", "w+b") as err:
        process = subprocess.Popen(
            command,
            cwd=stand,
            env=fault_stand.surroundings(stand, **{MARK: mark}),
            stdin=subprocess.DEVNULL,
            stdout=out,
            stderr=err,
            start_new_session=True,
        )
        timed_out = False
        try:
            process.wait(limit)
        except subprocess.TimeoutExpired:
            timed_out = True
            end_all(f"{MARK}={mark}")
            process.wait()
        texts = []
        for file in (out, err):
            file.seek(0)
            texts.append(file.read().decode(errors="replace"))
    return Outcome(process.returncode, *texts, timed_out)


def stand_in(stand, program, arguments, options):
    """Replaces a program by a script that starts the real program under strace."""
    file = stand / "program" / program
    real = file.with_name(program + REAL)
    file.rename(real)
    words = " ".join(shlex.quote(str(option)) for option in options)
    traced = f'exec strace {words} -o "{stand.parent}/traces/{program}.$$" {shlex.quote(str(real))} "$@"\n'
    if arguments:
        traced = f'if [ "$*" = {shlex.quote(arguments)} ]; then {traced}fi\nexec {shlex.quote(str(real))} "$@"\n'
    file.write_text("#!/bin/sh\n" + traced, encoding="utf-8")
    file.chmod(0o755)


def put_back(stand):
    for real in (stand / "program").glob("*" + REAL):
        real.rename(real.with_name(real.name.removesuffix(REAL)))


def options_of(injection, stand):
    """Returns the options of strace that inject the fault."""
    options = ["-e", f"trace={injection.name}", "-e", f"inject={injection.expression}", "-s", "200"]
    if injection.program == "sh":
        return ["-f", *(["-P", injection.path.format(stand=stand)] if injection.path else []), *options]
    if not injection.threads:
        return options
    return ["-f", *(["-b", "execve"] if injection.program == "discwright-build" else []), *options]


def units_of_the_shell():
    """Returns units for the shell, which starts programs and reads the script.

    They are not recorded, because the shell's own calls cannot be recorded one by one.
    """

    def call(name, number, text):
        return Call("", name, number, text, (name, number, text), "the shell")

    script = "{stand}/program/makecd.bat"
    starts = ["{stand}/program/CreateDsk", "/bin/sh", "./dfl", "./mkisofs"]
    units = [Unit("sh", path=path, calls=[call("execve", 1, path)]) for path in starts]
    units.append(Unit("sh", path=script, calls=[call("openat", number, "the script") for number in (1, 2, 3)]))
    units.append(Unit("sh", path=script, calls=[call("read", number, "the script") for number in (1, 2)]))
    units.append(Unit("sh", calls=[call("vfork", number, "") for number in (1, 2)]))
    return units


class Campaign:
    """The recorded runs, the plan, and what an undisturbed build leaves."""

    def __init__(self, work, program):
        self.work, self.program = work, program
        self.undisturbed, self.limit = {}, LEAST_LIMIT
        names = [program / name for name in fault_stand.PROGRAMS]
        names += [path for path in sorted((program / "files").rglob("*")) if path.is_file()]
        names += [ROOT / "scripts" / name for name in ("fault_plan.py", "fault_stand.py")]
        self.key = hashlib.sha256(b"".join(path.read_bytes() for path in names)).hexdigest()

    def prepare(self):
        """Makes the stands anew, and notes what undisturbed builds leave."""
        shutil.rmtree(self.work / "stands", ignore_errors=True)
        for scenario in fault_stand.SCENARIOS:
            fault_stand.make_stand(self.work / "stands" / scenario.name, self.program, scenario)
            self.undisturbed[scenario.name] = self.watch(scenario)

    def watch(self, scenario):
        job = Job(self, "undisturbed")
        job.set_up(scenario.name)
        stand = job.stand
        old_image = fault_checks.content_of(stand / fault_stand.IMAGE)
        old_session = fault_checks.saved_session(stand)
        started = time.monotonic()
        fault_stand.build_quietly(stand, scenario.command)
        self.limit = max(self.limit, TIMES_UNDISTURBED * (time.monotonic() - started))
        image = (stand / fault_stand.IMAGE).read_bytes()
        session = fault_checks.saved_session(stand)
        fault_stand.build_quietly(stand, scenario.command)
        if (stand / fault_stand.IMAGE).read_bytes() != image:
            raise SystemExit("faults: two undisturbed builds made different images")
        files = fault_checks.read_files(image)
        if not files or image == old_image:
            raise SystemExit("faults: the undisturbed build made no image that bsdtar reads")
        return Undisturbed(image, old_image, session, old_session, files, fault_stand.names_below(stand))

    def record(self, scenario):
        """Returns the units of a scenario, from the trace of an undisturbed build with the stack of each call."""
        job = Job(self, f"recorded_{scenario.name}")
        job.set_up(scenario.name)
        names = ",".join("?" + name for name in fault_plan.ERRORS)
        options = ["-f", "-k", "-s", "200", "-e", f"trace={names}"]
        for program in fault_stand.PROGRAMS[1:]:
            stand_in(job.stand, program, "", options)
        trace = job.traces / fault_stand.PROGRAMS[0]
        fault_stand.build_quietly(job.stand, ["strace", *options, "-b", "execve", "-o", trace, *scenario.command])
        units = []
        for file in sorted(job.traces.iterdir(), key=lambda path: path.stat().st_mtime_ns):
            program = file.name.split(".")[0]
            lines = file.read_text(errors="replace").splitlines()
            units += fault_plan.units_of_program(program, lines, str(job.stand))
        return sorted(units, key=lambda unit: fault_stand.PROGRAMS.index(unit.program)) + units_of_the_shell()

    def plan(self):
        """Returns the numbered injections. They are recorded once for each state of programs and scripts."""
        kept = self.work / "plan.json"
        if kept.exists():
            stored = json.loads(kept.read_text(encoding="utf-8"))
            if stored["key"] == self.key:
                return [Injection(**values) for values in stored["injections"]]
        print("Recording the calls of undisturbed builds...", flush=True)
        with concurrent.futures.ThreadPoolExecutor() as pool:
            units = list(pool.map(self.record, fault_stand.SCENARIOS))
        recorded = dict(zip([scenario.name for scenario in fault_stand.SCENARIOS], units))
        injections = fault_plan.plan(recorded)
        stored = {"key": self.key, "injections": [asdict(injection) for injection in injections]}
        kept.write_text(json.dumps(stored, indent=0), encoding="utf-8")
        return injections


class Job:
    """A worker that has a stand of its own."""

    def __init__(self, campaign, name):
        self.campaign = campaign
        self.folder = campaign.work / "jobs" / name
        self.stand, self.traces = self.folder / "stand", self.folder / "traces"

    def set_up(self, scenario):
        shutil.rmtree(self.folder, ignore_errors=True)
        self.traces.mkdir(parents=True)
        fault_stand.copy_folder(self.campaign.work / "stands" / scenario, self.stand)
        fault_stand.mark_workspaces(self.stand)

    def command(self, injection):
        """Prepares the stand for the fault. Returns the command that must run in the stand."""
        scenario = next(one for one in fault_stand.SCENARIOS if one.name == injection.scenario)
        if injection.program == LIMITS:
            return ["/bin/sh", "-c", f'{injection.expression} && exec "$@"', "sh", *scenario.command]
        options = options_of(injection, self.stand)
        if injection.program in fault_stand.PROGRAMS[1:]:
            stand_in(self.stand, injection.program, injection.arguments, options)
            return scenario.command
        return ["strace", *options, "-o", str(self.traces / "main"), *scenario.command]

    def trace(self):
        return "".join(path.read_text(errors="replace") for path in sorted(self.traces.iterdir()))

    def run(self, injection):
        """Returns (the outcome, [(invariant, what was found)], whether the fault was injected)."""
        undisturbed = self.campaign.undisturbed[injection.scenario]
        self.set_up(injection.scenario)
        before = fault_stand.fingerprint(self.stand)
        mark = f"{os.getpid()}-{self.folder.name}-{injection.number}-{time.monotonic_ns()}"
        outcome = run_build(self.stand, self.command(injection), mark, self.campaign.limit)
        if not outcome.was_killed:
            running = still_running(f"{MARK}={mark}", LEAST_LIMIT)
            if running and not outcome.timed_out:
                outcome.timed_out = True
                end_all(f"{MARK}={mark}")
        outcome.trace = self.trace()
        broken = fault_checks.broken_by(outcome, self.stand, undisturbed, before)
        put_back(self.stand)
        if cannot_start(outcome):
            broken = []
        elif outcome.code != 0:
            broken += self.repeat(injection, undisturbed, mark, before)
        return outcome, broken, was_struck(outcome, injection)

    def repeat(self, injection, undisturbed, mark, before):
        """Builds again without a fault. It begins at once, while programs of a killed build may still be running."""
        scenario = next(one for one in fault_stand.SCENARIOS if one.name == injection.scenario)
        outcome = run_build(self.stand, scenario.command, mark, self.campaign.limit)
        running = still_running(f"{MARK}={mark}", LEAST_LIMIT)
        end_all(f"{MARK}={mark}")
        return [
            *fault_checks.failed_repetition(outcome, self.stand, undisturbed, running),
            *fault_checks.changed_sources(before, self.stand),
        ]


def struck_line(trace, injection):
    """Returns the line of the trace with the call into which the fault was injected; empty when there is no such line.

    The call may be another one than in the recorded run.
    """
    lines = trace.splitlines()
    if injection.error != KILL:
        return next((line for line in lines if line.endswith("(INJECTED)")), "")
    return next((line for line in reversed(lines) if f"{injection.name}(" in line), "") if KILLED in trace else ""


def was_struck(outcome, injection):
    """Whether the fault was injected into a call of our programs.

    A limit counts as injected when something failed after the start of the program.
    """
    if injection.program == LIMITS:
        return outcome.code != 0 and not cannot_start(outcome)
    return bool(struck_line(outcome.trace, injection))


def cannot_start(outcome):
    """Whether the system's loader has ended the program. Then the run shows nothing about our code."""
    return outcome.code == 127 and "error while loading shared libraries" in outcome.err


class Report:
    """Prints what was found, and counts the runs."""

    def __init__(self):
        self.codes, self.lock = collections.Counter(), threading.Lock()
        self.ran = self.broke = self.not_reached = 0
        self.started = time.monotonic()

    def add(self, injection, outcome, broken, was_injected):
        with self.lock:
            if not was_injected:
                self.not_reached += 1
            else:
                self.ran += 1
                self.codes[outcome.code] += 1
            if (self.ran + self.not_reached) % 500 == 0:
                print(f"{self.ran + self.not_reached} builds in {time.monotonic() - self.started:.0f} s", flush=True)
            if not broken:
                return
            self.broke += 1
            print(f"{injection.number}: {injection.shown}: exit code {outcome.code}")
            print(f"    {struck_line(outcome.trace, injection)[:200]}")
            for number, found in dict.fromkeys(broken):
                print(f"  broken: {number}. {INVARIANTS[number]}\n    {found}")
            for line in [*outcome.out.splitlines(), *outcome.err.splitlines()]:
                if not fault_checks.PROGRESS.match(line):
                    print(f"    | {line}")
            print(f"  repeat: scripts/faults.py --run {injection.number}", flush=True)

    def summary(self, left_out, seconds):
        codes = ", ".join(f"{count} times {code}" for code, count in sorted(self.codes.items()))
        text = f"{self.ran} faults were injected in {seconds:.0f} s, {self.broke} broke an invariant"
        text += f"; exit codes: {codes}." if codes else "."
        text += f" {self.not_reached} builds did not reach the call." if self.not_reached else ""
        return text + (f" {left_out} faults were left out." if left_out else "")


def run_all(campaign, injections, jobs, last_moment):
    """Runs the injections side by side. Returns the report and the number of injections that were left out.

    Ctrl-C ends the campaign when the running builds have ended.
    """
    waiting = queue.SimpleQueue()
    for injection in injections:
        waiting.put(injection)
    report, stop = Report(), threading.Event()

    def work(name):
        job = Job(campaign, name)
        try:
            while time.monotonic() < last_moment and not stop.is_set():
                injection = waiting.get_nowait()
                report.add(injection, *job.run(injection))
        except queue.Empty:
            pass
        finally:
            # A worker that fails ends the campaign. Its exception is raised below.
            stop.set()

    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        workers = [pool.submit(work, f"job{number}") for number in range(jobs)]
        try:
            concurrent.futures.wait(workers)
        except KeyboardInterrupt:
            stop.set()
    for worker in workers:
        worker.result()
    return report, waiting.qsize()


def run_one(campaign, injection):
    """Repeats one fault and keeps its folder."""
    job = Job(campaign, f"run{injection.number}")
    result = job.run(injection)
    report = Report()
    report.add(injection, *result)
    print(result[0].out + result[0].err + result[0].trace)
    job.set_up(injection.scenario)
    command = job.command(injection)
    print(f"The stand before the fault: {job.stand}\nThe command, to be run there:\n  {shlex.join(command)}")
    print(report.summary(0, 0))
    return report


def why_not_traced():
    """Returns why no process can be traced here; empty when tracing works."""
    if not shutil.which("strace"):
        return "strace is not installed (scripts/bootstrap.sh faults)"
    command = ["strace", "-o", "/dev/null", "true"]
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return f"strace cannot trace a process here: {done.stdout.strip()}" if done.returncode != 0 else ""


def arguments(words=None):
    parser = argparse.ArgumentParser(prog="faults.py", description=__doc__.splitlines()[0])
    parser.add_argument("--program", type=Path, default=ROOT / "build/linux/program", help="the program folder")
    parser.add_argument("--work", type=Path, default=ROOT / "build/faults", help="where the builds are run")
    parser.add_argument("--list", action="store_true", help="print the numbered faults and inject none")
    parser.add_argument("--run", type=int, nargs="+", metavar="NUMBER", help="repeat these and keep their folders")
    parser.add_argument("--only", metavar="TEXT", help="only faults whose line in the list has this text")
    parser.add_argument("--sample", type=int, metavar="COUNT", help="inject so many, drawn by the seed")
    parser.add_argument("--seed", default="1", help="any text; another one draws other faults")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="builds side by side (default: processors)")
    parser.add_argument("--seconds", type=float, default=float("inf"), help="begin no fault after so many seconds")
    return parser.parse_args(words)


def drawn(injections, given):
    if given.run:
        wanted = set(given.run)
        return [injection for injection in injections if injection.number in wanted]
    injections = [injection for injection in injections if (given.only or "") in injection.shown]
    if given.sample is None:
        return injections
    return random.Random(given.seed).sample(injections, min(given.sample, len(injections)))


def main():
    given, started = arguments(), time.monotonic()
    reason = why_not_traced()
    if reason:
        sys.exit(f"faults: nothing was injected: {reason}")
    given.work.mkdir(parents=True, exist_ok=True)
    lock = os.open(given.work, os.O_RDONLY)
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        sys.exit(f"faults: another one works in {given.work}; name another folder by --work")
    campaign = Campaign(given.work.resolve(), given.program.resolve())
    campaign.prepare()
    injections = campaign.plan()
    chosen = drawn(injections, given)
    if given.list:
        for injection in chosen:
            print(f"{injection.number}: {injection.shown}")
        return 0
    if given.run:
        return int(any([run_one(campaign, injection).broke for injection in chosen]))
    print(f"{len(chosen)} of {len(injections)} faults, seed {given.seed}", flush=True)
    report, left_out = run_all(campaign, chosen, given.jobs, started + given.seconds)
    print(report.summary(left_out, time.monotonic() - started))
    return int(report.broke > 0 or report.ran == 0)


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        sys.exit("Stopped.")
