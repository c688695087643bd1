"""Tests of scripts/faults.py: its plan, its checks, and that a fault is really injected."""

import contextlib
import io
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

from check_case import SCRIPTS

sys.path.insert(0, str(SCRIPTS))
import fault_checks
import fault_plan
import faults
from fault_checks import Outcome, Undisturbed
from fault_plan import Injection

OWN = " > /stand/program/{}(Function()+0x5) [0x{}]"


def trace(*entries):
    """The lines of a trace: a text is a call of the loader, a pair is a call and the places in our code."""
    lines = []
    for entry in entries:
        call, places = (entry, ()) if isinstance(entry, str) else entry
        lines += [call, " > /usr/lib/libc.so.6(openat+0x1) [0x1]"]
        lines += [OWN.format("discwright-build", place) for place in places]
    return lines


def units(*entries, program="discwright-build"):
    return fault_plan.units_of_program(program, trace(*entries), "/stand")


def planned(*entries):
    """["name:effect:when=N"] of the plan of one program."""
    injections = fault_plan.plan({"first": units(*entries)})
    return [injection.expression for injection in injections if injection.program != fault_plan.LIMITS]


def injection(program="mkisofs", name="read", when=1, error="EIO", **given):
    fixed = {"number": 1, "scenario": "first", "arguments": "", "threads": False, "path": ""}
    return Injection(program=program, name=name, when=when, error=error, **{**fixed, **given})


class Plan(unittest.TestCase):
    def test_call_of_the_loader_is_counted_and_not_struck(self):
        loader, own = 'unlink("/etc/a") = 0', ('unlink("/stand/a") = 0', ["a1"])
        expected = [f"unlink:{effect}:when=2" for effect in ("error=EACCES", "error=EIO", "signal=KILL")]
        self.assertEqual(planned(loader, own), expected)

    def test_call_that_only_reads_is_not_killed(self):
        self.assertEqual(planned(('getdents64(3, 0x1, 10) = 0', ["a1"])), ["getdents64:error=EIO:when=1"])

    def test_opening_for_reading_is_neither_killed_nor_out_of_space(self):
        effects = planned(('openat(3, "a", O_RDONLY) = 4', ["a1"]))
        self.assertFalse([effect for effect in effects if "KILL" in effect or "ENOSPC" in effect])

    def test_file_that_is_created_may_be_out_of_space_and_is_killed(self):
        effects = planned(('openat(3, "a", O_WRONLY|O_CREAT) = 4', ["a1"]))
        self.assertIn("openat:error=ENOSPC:when=1", effects)
        self.assertIn("openat:signal=KILL:when=1", effects)

    def test_facts_of_an_open_file_are_not_denied(self):
        effects = planned(('newfstatat(3, "", {}, AT_EMPTY_PATH) = 0', ["a1"]))
        self.assertEqual(effects, ["newfstatat:error=EIO:when=1"])

    def test_call_without_a_fitting_error_is_left_out(self):
        self.assertEqual(planned(("getpid() = 7", ["a1"])), [])

    def test_of_one_place_in_the_code_the_first_a_middle_and_the_last_call_are_struck(self):
        calls = [(f'rmdir("{number}") = 0', ["a1", "b2"]) for number in range(9)]
        numbers = {effect.rsplit("=", 1)[1] for effect in planned(*calls)}
        self.assertEqual(numbers, {"1", "5", "9"})

    def test_all_errors_come_to_the_first_call_of_a_place_only(self):
        effects = planned(*[('rmdir("a") = 0', ["a1"])] * 2)
        self.assertEqual([effect for effect in effects if "EIO" in effect], ["rmdir:error=EIO:when=1"])
        self.assertIn("rmdir:error=EACCES:when=2", effects)

    def test_other_way_to_the_same_call_is_another_place(self):
        calls = [('rmdir("a") = 0', ["a1", place]) for place in ("b1", "b2", "b3", "b4", "b5")]
        self.assertEqual(len({effect.rsplit("=", 1)[1] for effect in planned(*calls)}), 5)

    def test_folder_in_a_folder_is_the_same_place(self):
        calls = [('rmdir("a") = 0', ["a1"] + ["b2"] * depth + ["c3"]) for depth in range(1, 9)]
        self.assertEqual(len({effect.rsplit("=", 1)[1] for effect in planned(*calls)}), 3)

    def test_same_record_gives_the_same_numbers(self):
        recorded = {"first": units(*[(f'rmdir("{number}") = 0', ["a1", str(number)]) for number in range(20)])}
        first = fault_plan.plan(recorded)
        self.assertEqual(first, fault_plan.plan(recorded))
        self.assertEqual([injection.number for injection in first], list(range(1, len(first) + 1)))

    def test_limits_come_last(self):
        limits = [one.program == fault_plan.LIMITS for one in fault_plan.plan({"first": units(), "again": units()})]
        self.assertTrue(all(limits))
        first = fault_plan.plan({"first": units(('rmdir("a") = 0', ["a1"])), "again": units()})
        self.assertEqual([one.program == fault_plan.LIMITS for one in first[:4]], [False, False, False, True])

    def test_interrupted_call_is_counted_once_and_keeps_its_stack(self):
        lines = ["7 rmdir( <unfinished ...>", "8 getpid() = 8", "7 <... rmdir resumed>\"a\") = 0"]
        lines += [OWN.format("mkisofs", "a1"), '7 rmdir("b") = 0', OWN.format("mkisofs", "a2")]
        calls = [call for call in fault_plan.read_calls(lines, "/stand") if call.name == "rmdir"]
        found = [(call.number, call.text, call.site) for call in calls]
        self.assertEqual(found, [(1, '"a") = 0', ("mkisofs0xa1",)), (2, '"b") = 0', ("mkisofs0xa2",))])

    def test_calls_of_a_thread_are_a_unit_of_their_own_and_those_of_a_started_program_are_none(self):
        first, thread = ('7 mkdir("a") = 0', ["a1"]), ('8 mkdir("b") = 0', ["a2"])
        found = units(first, thread, ('9 mkdir("c") = 0', ["a3"]), '9 execve("/bin/sh", ["sh"], 0x1) = 0')
        self.assertEqual([(unit.threads, [call.text for call in unit.calls]) for unit in found],
                         [(False, ['"a") = 0']), (True, ['"b") = 0'])])

    def test_call_of_a_thread_that_would_strike_the_loader_is_left_out(self):
        found = units('7 read(3) = 1', ('8 read(4) = 1', ["a1"]), ('8 read(4) = 1', ["a1"]))
        self.assertEqual([call.number for call in found[1].calls], [2])

    def test_starts_of_createdsk_are_told_apart_by_their_arguments(self):
        start = 'execve("/stand/program/CreateDsk", ["CreateDsk", "-t", "144", "winsetup"], 0x7f /* 9 vars */) = 0'
        self.assertEqual(units(start, program="CreateDsk")[0].arguments, "-t 144 winsetup")
        self.assertEqual(units(start, program="mkisofs")[0].arguments, "")

    def test_only_those_with_the_text_are_drawn(self):
        injections = [injection(name=name) for name in ("read", "write", "pread64")]
        chosen = faults.drawn(injections, faults.arguments(["--only", "read"]))
        self.assertEqual([one.name for one in chosen], ["read", "pread64"])

    def test_sample_is_that_of_its_seed(self):
        injections = [injection(number=number) for number in range(1000)]
        draw = lambda *words: faults.drawn(injections, faults.arguments(["--sample", "9", *words]))  # noqa: E731
        self.assertEqual(draw("--seed", "a"), draw("--seed", "a"))
        self.assertNotEqual(draw("--seed", "a"), draw("--seed", "b"))
        self.assertEqual(len(draw()), 9)


NEW, OLD = b"the new image", b"the old image"
FILES = {"vexa/probe.exe": "1", "vexa/Docs/a.txt": "2", "WIN98/BASE4.CAB": "3", "CDROM_IP.5": "4", "CDROM_NT.5": "5"}


class Checks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.stand = Path(folder.name)
        for name in ("sources/utilities", "program/files", "out", "home", "tmp"):
            (self.stand / name).mkdir(parents=True)
        self.source = self.stand / "sources" / "utilities" / "probe.exe"
        self.source.write_bytes(b"MZ")
        self.image = self.stand / "out" / "rescue.iso"
        self.image.write_bytes(NEW)
        self.undisturbed = Undisturbed(NEW, OLD, files=FILES, names=fault_checks.names_below(self.stand))
        self.before = fault_checks.fingerprint(self.stand)
        readers = {b"with losses": {name: FILES[name] for name in ("vexa/Docs/a.txt", "WIN98/BASE4.CAB")}}
        readers[b"a partial image"] = None
        readers[b"other times"] = FILES
        self.enterContext(mock.patch("fault_checks.read_files", readers.get))
        starts = {b"other boot start": b"other"}
        readers[b"other boot start"] = FILES
        self.enterContext(mock.patch("fault_checks.boot_start", starts.get))

    def assert_broken(self, outcome, *numbers):
        found = fault_checks.broken_by(outcome, self.stand, self.undisturbed, self.before)
        self.assertEqual([number for number, _ in found], list(numbers), found)

    def assert_repetition(self, outcome, *parts, running=()):
        found = fault_checks.failed_repetition(outcome, self.stand, self.undisturbed, running)
        self.assertEqual(len(found), len(parts), found)
        for (number, text), part in zip(found, parts):
            self.assertEqual(number, 6)
            self.assertIn(part, text)

    def test_sentences_at_the_top_are_those_of_the_checks(self):
        for number, sentence in fault_checks.INVARIANTS.items():
            self.assertIn(f"\n  {number}. {sentence}\n", faults.__doc__)

    def test_whole_build_breaks_nothing(self):
        self.assert_broken(Outcome(0))
        self.assert_repetition(Outcome(0))

    def test_failed_build_with_a_reason_breaks_nothing(self):
        self.image.write_bytes(OLD)
        self.assert_broken(Outcome(1, err="probe.exe: Input/output error\n"))

    def test_1_content_of_a_source(self):
        self.source.write_bytes(b"ZM")
        self.assert_broken(Outcome(0), 1)

    def test_1_mode_of_a_source(self):
        self.source.chmod(0o600)
        self.assert_broken(Outcome(0), 1)

    def test_1_removed_source(self):
        self.source.unlink()
        self.assert_broken(Outcome(0), 1)

    def test_1_new_file_of_the_program(self):
        (self.stand / "program" / "files" / "new").touch()
        self.assert_broken(Outcome(0), 1)

    def test_2_partial_image_of_a_failed_build(self):
        self.image.write_bytes(b"a partial image")
        self.assert_broken(Outcome(1, err="no luck today\n"), 2)

    def test_2_image_with_losses_of_a_failed_build(self):
        self.image.write_bytes(b"with losses")
        self.assert_broken(Outcome(1, err="no luck today\n"), 2)

    def test_2_partial_image_with_warnings(self):
        self.image.write_bytes(b"a partial image")
        self.assert_broken(Outcome(4, err="warning: no luck\n"), 2)

    def test_2_old_image_that_is_gone(self):
        self.image.unlink()
        self.assert_broken(Outcome(1, err="no luck today\n"), 2)
        self.undisturbed.old_image = None
        self.assert_broken(Outcome(1, err="no luck today\n"))

    def test_2_part_beside_the_image(self):
        self.image.with_name("rescue.iso.part").touch()
        self.assert_broken(Outcome(1, err="no luck today\n"), 2)
        self.assert_broken(Outcome(1, err="rescue.iso.part could not be removed\n"))
        self.assert_broken(Outcome(-9))

    def test_2_half_a_session(self):
        (self.stand / "out" / "saved.ini").write_bytes(b"[Ma")
        self.assert_broken(Outcome(4, err="warning: no session\n"), 2)

    def test_3_missing_files(self):
        self.image.write_bytes(b"with losses")
        self.assert_broken(Outcome(0), 3)

    def test_3_no_image_and_the_old_image(self):
        self.image.write_bytes(OLD)
        self.assert_broken(Outcome(0), 3)
        self.undisturbed.old_image = None
        self.image.unlink()
        self.assert_broken(Outcome(0), 3)

    def test_3_session_that_was_not_saved(self):
        self.undisturbed.session = b"[Main]"
        self.assert_broken(Outcome(0), 3)

    def test_3_other_boot_start(self):
        self.image.write_bytes(b"other boot start")
        self.assert_broken(Outcome(0), 3)

    def test_3_image_with_all_files_is_complete_in_other_bytes(self):
        self.image.write_bytes(b"other times")
        self.assert_broken(Outcome(0))

    def test_4_loss_is_named_by_its_own_name_or_its_folder(self):
        self.image.write_bytes(b"with losses")
        named = "warning: CDROM_IP.5: no\nwarning: CDROM_NT.5: no\n"
        self.assert_broken(Outcome(4, err=named + "warning: sources/utilities/probe.exe: no\n"))
        self.assert_broken(Outcome(4, err=named + "warning: sources/utilities: no\n"))
        self.assert_broken(Outcome(4, err=named + "warning: sources/utilities/other.exe: no\n"), 4)
        self.assert_broken(Outcome(4, err=named + "warning: something failed\n"), 4)

    def test_4_loss_is_named_by_the_rest_of_its_tree(self):
        self.image.write_bytes(b"with losses")
        named = "warning: CDROM_IP.5: not copied, nor were the files after it that match cdrom*.*: no\n"
        rest = "warning: sources/{}/other.exe: no; the rest of this folder was not copied\n"
        self.assert_broken(Outcome(4, err=named + rest.format("utilities/Docs")))
        self.assert_broken(Outcome(4, err=named + rest.format("98")), 4)

    def test_4_failure_without_a_reason(self):
        self.image.write_bytes(OLD)
        self.assert_broken(Outcome(1), 4)
        self.assert_broken(Outcome(1, err="1/5 Creating Vexa Boot Disks\n"), 4)

    def test_4_warnings_without_a_new_image(self):
        self.image.write_bytes(OLD)
        self.assert_broken(Outcome(4, err="warning: no luck\n"), 4)

    def test_5_death_by_a_signal(self):
        self.assert_broken(Outcome(-11), 5)
        self.assert_broken(Outcome(1, err="no luck today\n", trace="7 +++ killed by SIGABRT +++\n"), 5)
        self.assert_broken(Outcome(-9, trace="7 +++ killed by SIGKILL +++\n"))

    def test_5_text_of_a_crash(self):
        self.assert_broken(Outcome(1, err="terminate called after throwing\nno luck today\n"), 5)
        self.assert_broken(Outcome(1, err="The mastering ended with exit code 134.\n"), 5)
        self.assert_broken(Outcome(1, err="Fatal Error: Operation Aborted\n"))

    def test_5_build_that_does_not_end(self):
        self.assert_broken(Outcome(-9, timed_out=True), 5)

    def test_6_next_build_that_fails(self):
        self.assert_repetition(Outcome(1, err="no luck today\n"), "no luck today")

    def test_6_next_build_that_makes_another_image(self):
        self.image.write_bytes(b"with losses")
        self.assert_repetition(Outcome(0), "another image")

    def test_6_names_that_stay(self):
        (self.stand / "program" / ".discwright-1-2").touch()
        self.assert_repetition(Outcome(0), ".discwright-1-2")

    def test_6_process_that_still_runs(self):
        self.assert_repetition(Outcome(0), "123", running=["123"])


@unittest.skipUnless(shutil.which("genisoimage") and shutil.which("bsdtar"), "needs genisoimage and bsdtar")
class Images(unittest.TestCase):
    def test_files_of_an_image_are_read_and_an_image_that_is_cut_is_none(self):
        with tempfile.TemporaryDirectory() as folder:
            tree, image = Path(folder) / "tree", Path(folder) / "a.iso"
            tree.mkdir()
            (tree / "A.TXT").write_bytes(b"a" * 100_000)
            subprocess.run(["genisoimage", "-quiet", "-o", image, tree], check=True)
            whole = image.read_bytes()
        self.assertEqual(list(fault_checks.read_files(whole)), ["A.TXT"])
        self.assertIsNone(fault_checks.read_files(whole[:-2048]))  # a part of the padding behind the files
        self.assertIsNone(fault_checks.read_files(whole[:100_000]))


class Reports(unittest.TestCase):
    def added(self, broken, was_injected):
        report, text = faults.Report(), io.StringIO()
        with contextlib.redirect_stdout(text):
            report.add(injection(), Outcome(4, err="warning: no luck\n"), broken, was_injected)
        return report, text.getvalue()

    def test_broken_invariant_is_printed_with_its_sentence_and_how_to_repeat_it(self):
        report, text = self.added([(3, "missing: a.txt")], True)
        for part in (fault_checks.INVARIANTS[3], "missing: a.txt", "warning: no luck", "scripts/faults.py --run 1"):
            self.assertIn(part, text)
        self.assertEqual((report.ran, report.broke), (1, 1))

    def test_fault_that_did_not_happen_counts_as_not_reached(self):
        report, text = self.added([], False)
        self.assertEqual((report.ran, report.broke, report.not_reached, text), (0, 0, 1, ""))
        self.assertIn("1 builds did not reach the call", report.summary(0, 1))


class Permission(unittest.TestCase):
    def test_refused_tracing_is_told_in_the_words_of_strace(self):
        with tempfile.TemporaryDirectory() as folder:
            strace = Path(folder) / "strace"
            strace.write_text("#!/bin/sh\necho ptrace: Operation not permitted >&2\nexit 1\n", encoding="utf-8")
            strace.chmod(0o755)
            with mock.patch.dict("os.environ", PATH=folder):
                self.assertIn("ptrace: Operation not permitted", faults.why_not_traced())

    def test_missing_strace_is_told(self):
        with mock.patch.dict("os.environ", PATH="/nowhere"):
            self.assertIn("strace is not installed", faults.why_not_traced())


@unittest.skipIf(faults.why_not_traced(), faults.why_not_traced())
class Faults(unittest.TestCase):
    """A copy of cat stands for each program."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        campaign = mock.Mock(work=Path(folder.name), limit=20)
        self.job = faults.Job(campaign, "job")
        self.job.traces.mkdir(parents=True)
        for name in ("program", "home", "tmp"):
            (self.job.stand / name).mkdir(parents=True)
        for name in ("discwright-build", "mkisofs"):
            shutil.copy(shutil.which("cat"), self.job.stand / "program" / name)
        (self.job.stand / "text").write_text("a text", encoding="utf-8")

    def run_with(self, fault, command=()):
        scenario = mock.Mock(command=["program/discwright-build", "text", "text"])
        scenario.name = "first"
        with mock.patch("faults.fault_stand.SCENARIOS", [scenario]):
            made = self.job.command(fault)
        outcome = faults.run_build(self.job.stand, command or made, "test", 20)
        outcome.trace = self.job.trace()
        return outcome, faults.struck_line(outcome.trace, fault)

    def test_fault_is_injected_into_the_main_program(self):
        outcome, struck = self.run_with(injection("discwright-build", "fadvise64", 2))
        self.assertIn("(INJECTED)", struck)
        self.assertEqual(outcome.out, "a texta text")

    def test_fault_is_injected_into_a_started_program_which_is_put_back_afterwards(self):
        program = self.job.stand / "program" / "mkisofs"
        original = program.read_bytes()
        fault = injection("mkisofs", "fadvise64", 1, fault_plan.KILL)
        outcome, struck = self.run_with(fault, ["program/mkisofs", "text", "text"])
        self.assertIn("fadvise64(", struck)
        self.assertEqual((outcome.code, outcome.out), (-9, ""))
        faults.put_back(self.job.stand)
        self.assertEqual(program.read_bytes(), original)
        self.assertEqual(len(list(program.parent.iterdir())), 2)

    def test_start_with_other_arguments_is_left_alone(self):
        fault = injection("mkisofs", "fadvise64", 1, fault_plan.KILL, arguments="another")
        outcome, struck = self.run_with(fault, ["program/mkisofs", "text"])
        self.assertEqual((outcome.code, outcome.out, struck), (0, "a text", ""))

    def test_limit_is_set_and_counts_when_something_failed(self):
        fault = injection(fault_plan.LIMITS, "ulimit -n", 3, "")
        outcome, _ = self.run_with(fault)
        self.assertIn("error while loading shared libraries", outcome.err)
        self.assertFalse(faults.was_struck(outcome, fault))
        self.assertTrue(faults.was_struck(Outcome(1), fault))

    def test_kill_is_seen_as_one(self):
        outcome, struck = self.run_with(injection("discwright-build", "openat", 3, fault_plan.KILL))
        self.assertTrue(outcome.was_killed)
        self.assertIn("openat(", struck)

    def test_call_that_does_not_come_is_not_struck(self):
        outcome, struck = self.run_with(injection("discwright-build", "openat", 999))
        self.assertEqual((outcome.code, struck), (0, ""))

    def test_program_that_hangs_is_ended(self):
        outcome = faults.run_build(self.job.stand, ["sleep", "600"], "test of a hang", 0.2)
        self.assertTrue(outcome.timed_out)


if __name__ == "__main__":
    unittest.main()
