// Running real programs.
#include "host/processes.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <tlhelp32.h>

#include "host/script.h"
#include "tests/host/launching.h"
#include "tests/host/win32/child_program.h"

namespace discwright::host {
namespace {

using testing::ChildProgram;
using ::testing::Each;
using ::testing::ElementsAre;
using testing::Eventually;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Le;
using ::testing::SizeIs;

bool IsAlive(DWORD id) {
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, id);
  if (process == nullptr) return false;
  const bool is_alive = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
  CloseHandle(process);
  return is_alive;
}

int ThreadsOfThisProgram() {
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 thread{};
  thread.dwSize = sizeof(thread);
  int count = 0;
  for (BOOL is_there = Thread32First(snapshot, &thread); is_there != 0; is_there = Thread32Next(snapshot, &thread)) {
    if (thread.th32OwnerProcessID == GetCurrentProcessId()) ++count;
  }
  CloseHandle(snapshot);
  return count;
}

class Processes : public testing::Launching {
 protected:
  // A batch file in the test's folder; its command line.
  std::string Script(const std::string& lines, const std::string& name = "script.bat") const {
    const std::string bytes = ScriptBytes("@echo off\r\n" + lines + "\r\n").value;
    folder_.Write(name, bytes);
    return folder_.Core(name);
  }
};

TEST_F(Processes, BatchFile_IsRunByTheShellWithOutputAndErrorsTogether) {
  const auto launcher = Create();
  EXPECT_TRUE(RunToEnd(*launcher, Script("echo one\r\necho two 1>&2\r\necho three")).Succeeded());
  EXPECT_THAT(Output(), HasSubstr("one\r\n"));
  EXPECT_LT(Output().find("one"), Output().find("two"));
  EXPECT_LT(Output().find("two"), Output().find("three"));
}

TEST_F(Processes, ProgramOfABatchFile_IsCapturedAndItsExitCodeIsTold) {
  const auto launcher = Create();
  const ProcessEnd end = RunToEnd(*launcher, Script(ChildProgram("say inner") + "\r\n" + ChildProgram("exit 3")));
  EXPECT_EQ(Output(), "inner");
  EXPECT_EQ(end.exit_code, 3);
}

TEST_F(Processes, BatchFilesWithAwkwardPaths_AreRun) {
  for (const std::string name :
       {"with blank", "a & b", "100%", "(brackets)", "semi;colon, comma", "it's", "caret^", "Größe"}) {
    pieces_.clear();
    ends_ = 0;
    const auto launcher = Create();
    RunToEnd(*launcher, Script("echo ran", name + "/make cd.bat"));
    EXPECT_EQ(Output(), "ran\r\n") << name;
  }
}

TEST_F(Processes, ArgumentsOfABatchFile_ReachIt) {
  const auto launcher = Create();
  RunToEnd(*launcher, Script("echo [%1] [%2]", "my script.bat") + " plain \"with blank\"");
  EXPECT_EQ(Output(), "[plain] [\"with blank\"]\r\n");
}

TEST_F(Processes, TenThousandLines_ArriveWholeInOrderInPiecesOfWholeLines) {
  constexpr int kLines = 10000;
  const auto launcher = Create(1000);
  RunToEnd(*launcher, ChildProgram("lines " + std::to_string(kLines)));
  std::string expected;
  for (int i = 1; i <= kLines; ++i) expected += "line " + std::to_string(i) + "\n";
  EXPECT_TRUE(Output() == expected);
  EXPECT_THAT(pieces_, Each(SizeIs(Le(1000u))));
  for (const std::string& piece : pieces_) EXPECT_EQ(piece.back(), '\n');
  EXPECT_EQ(ends_, 1);
}

TEST_F(Processes, LargeOutput_DoesNotWaitForThePollInterval) {
  // Waiting so long once would be the end of this test, and the output fills the pipe more than 60 times.
  const auto launcher = Create(8192, 3'600'000);
  RunToEnd(*launcher, ChildProgram("lines 300000"));
  EXPECT_GT(Output().size(), 3000000u);
}

TEST_F(Processes, OutputWithoutLineEnds_IsCutAtTheBufferSize) {
  const auto launcher = Create(100);
  RunToEnd(*launcher, ChildProgram("mass 100000"));
  EXPECT_TRUE(Output() == std::string(100000, 'x'));
  EXPECT_THAT(pieces_, Each(SizeIs(Le(100u))));
}

TEST_F(Processes, OutputInTheCodePage_ArrivesAsText) {
  if (GetACP() != 1252) GTEST_SKIP() << "this Windows has another code page";
  const auto launcher = Create();
  RunToEnd(*launcher, ChildProgram("bytes"));
  EXPECT_EQ(Output(), "Jürgen\r\n");
}

TEST_F(Processes, UnfinishedLine_IsDeliveredWhileTheProgramWaits) {
  const auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(ChildProgram("ask " + folder_.Core("go"))).ok());
  DeliverUntilOutput(*launcher);
  EXPECT_THAT(pieces_, ElementsAre("question"));
  EXPECT_EQ(ends_, 0);
  folder_.Write("go", "");
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(launcher->End().exit_code, 7);
}

TEST_F(Processes, ProgramThatEndsAtOnce_StillDeliversItsEndOnce) {
  const auto launcher = Create();
  ASSERT_TRUE(launcher->Start(ChildProgram("exit 0")).ok());
  DeliverUntilEnd(*launcher);
  launcher->Deliver();
  launcher->Deliver();
  EXPECT_EQ(ends_, 1);
  EXPECT_THAT(pieces_, IsEmpty());
}

TEST_F(Processes, NothingIsDelivered_ExceptByDeliver) {
  const auto launcher = Create();
  ASSERT_TRUE(launcher->Start(ChildProgram("say x")).ok());
  ASSERT_TRUE(Eventually([&] { return alarm_.calls() >= 2; }));
  EXPECT_THAT(pieces_, IsEmpty());
  EXPECT_EQ(ends_, 0);
  launcher->Deliver();
  EXPECT_THAT(pieces_, ElementsAre("x"));
  EXPECT_EQ(ends_, 1);
}

TEST_F(Processes, ProgramThatCrashes_NamesTheException) {
  const auto launcher = Create();
  const ProcessEnd end = RunToEnd(*launcher, ChildProgram("crash"));
  EXPECT_FALSE(end.Succeeded());
  EXPECT_EQ(end.Text(), "was killed by exception C0000005");
}

TEST_F(Processes, ExitCodeOfMinusOne_IsNoException) {
  const auto launcher = Create();
  EXPECT_EQ(RunToEnd(*launcher, ChildProgram("exit -1")).Text(), "ended with exit code -1");
}

TEST_F(Processes, StandardInput_IsEmpty) {
  const auto launcher = Create();
  RunToEnd(*launcher, ChildProgram("input"));
  EXPECT_EQ(Output(), "0 bytes");
}

TEST_F(Processes, Console_IsNotSeen) {
  const auto launcher = Create();
  RunToEnd(*launcher, ChildProgram("console"));
  EXPECT_NE(Output(), "seen");
}

TEST_F(Processes, PipeOfOneProgram_IsNotInheritedByTheNext) {
  const auto next = runner_->CreateLauncher([] {});
  const auto first = Create(8192, 20);
  ASSERT_TRUE(first->Start(ChildProgram("wait " + folder_.Core("go"))).ok());
  ASSERT_TRUE(next->Start(ChildProgram("wait " + folder_.Core("never"))).ok());
  const int before = ThreadsOfThisProgram();
  folder_.Write("go", "");
  DeliverUntilEnd(*first);
  // The reader of the first program goes only when nobody can write to its pipe any more.
  EXPECT_TRUE(Eventually([&] { return ThreadsOfThisProgram() < before; }));
}

TEST_F(Processes, LeftBehindProgramThatKeepsThePipe_DoesNotHoldTheEndBack) {
  const auto launcher = Create(8192, 20);
  RunToEnd(*launcher, ChildProgram("leave " + folder_.Core("go")));
  EXPECT_EQ(ends_, 1);
  EXPECT_TRUE(IsAlive(static_cast<DWORD>(std::stoul(Output()))));
  folder_.Write("go", "");
}

TEST_F(Processes, LeftBehindProgramThatGoesOnWriting_NeitherHoldsTheEndBackNorIsStopped) {
  const auto launcher = Create(8192, 20);
  RunToEnd(*launcher, ChildProgram("noise " + folder_.Core("done")));
  EXPECT_EQ(ends_, 1);
  EXPECT_TRUE(Eventually([&] { return folder_.Read("done") == "x"; }));
}

TEST_F(Processes, ReleasedProgram_GoesOnAndNothingFollows) {
  auto launcher = Create(100, 20);
  const std::string line = ChildProgram("mass 1000000");
  ASSERT_TRUE(launcher->Start(Script(line + "\r\n" + ChildProgram("late " + folder_.Core("done")))).ok());
  ASSERT_TRUE(alarm_.Wait());
  launcher->Deliver();
  launcher.reset();
  const int calls = alarm_.calls();
  const std::size_t pieces = pieces_.size();
  EXPECT_TRUE(Eventually([&] { return folder_.Read("done") == "x"; }));
  Sleep(50);
  EXPECT_EQ(alarm_.calls(), calls);
  EXPECT_EQ(pieces_.size(), pieces);
  EXPECT_EQ(ends_, 0);
}

TEST_F(Processes, OutputThatNobodyFetches_WaitsAndIsCompleteLater) {
  const auto launcher = Create(100);
  ASSERT_TRUE(launcher->Start(ChildProgram("mass 200000")).ok());
  Sleep(200);
  EXPECT_LE(alarm_.calls(), 65);
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(Output().size(), 200000u);
}

TEST_F(Processes, LauncherDestroyedByItsOwnEvents_IsSafe) {
  for (const bool at_end : {false, true}) {
    std::unique_ptr<Launcher> launcher = runner_->CreateLauncher(alarm_.Waker());
    bool is_done = false;
    const auto destroy = [&] {
      launcher.reset();
      is_done = true;
    };
    if (at_end) launcher->process_ended = destroy;
    if (!at_end) launcher->data_received = [&](std::string_view) { destroy(); };
    ASSERT_TRUE(launcher->Start(ChildProgram("lines 10")).ok());
    while (!is_done) {
      ASSERT_TRUE(alarm_.Wait());
      launcher->Deliver();
    }
    EXPECT_EQ(launcher, nullptr);
  }
}

TEST_F(Processes, MissingProgram_FailsToStartAndIsNamed) {
  const auto launcher = Create();
  const Status status = launcher->Start(folder_.Core("missing.exe") + " x");
  EXPECT_EQ(status.error, ErrorClass::kNotFound);
  EXPECT_THAT(status.cause, HasSubstr("missing.exe"));
}

TEST_F(Processes, MissingBatchFile_FailsToStart) { EXPECT_FALSE(Create()->Start(folder_.Core("makecd.bat")).ok()); }

TEST_F(Processes, FileThatTheSystemCannotRun_FailsToStart) {
  folder_.Write("rubbish.exe", std::string("\x01\x02\x03\x04", 4));
  EXPECT_FALSE(Create()->Start(folder_.Core("rubbish.exe")).ok());
  EXPECT_EQ(runner_->StartProcess(folder_.Core("rubbish.exe"), 0, 0), nullptr);
}

TEST_F(Processes, NameThatTheCodePageLacks_FailsToStartAndSaysWhy) {
  const Status status = Create()->Start("C:\\\U0001F4BF.exe");
  EXPECT_THAT(status.cause, HasSubstr("code page"));
  EXPECT_EQ(runner_->StartProcess("C:\\\U0001F4BF.exe", 0, 0), nullptr);
}

TEST_F(Processes, ManyProgramsAtOnce_AllEnd) {
  constexpr int kPrograms = 10;
  std::vector<std::unique_ptr<Launcher>> launchers;
  int ended = 0;
  for (int i = 0; i < kPrograms; ++i) {
    launchers.push_back(runner_->CreateLauncher(alarm_.Waker()));
    launchers.back()->process_ended = [&ended] { ++ended; };
    ASSERT_TRUE(launchers.back()->Start(ChildProgram("say x")).ok());
  }
  while (ended < kPrograms) {
    ASSERT_TRUE(alarm_.Wait());
    for (const auto& launcher : launchers) launcher->Deliver();
  }
  EXPECT_EQ(ended, kPrograms);
}

TEST_F(Processes, EndAll_EndsProgramsWithAllThatTheyStarted) {
  const auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(Script(ChildProgram("start " + folder_.Core("never")) + "\r\necho next")).ok());
  DeliverUntilOutput(*launcher);
  const auto grandchild = static_cast<DWORD>(std::stoul(Output()));
  EXPECT_TRUE(IsAlive(grandchild));
  runner_->EndAll();
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(launcher->End().killed_by, "Ctrl-C");
  EXPECT_TRUE(Eventually([&] { return !IsAlive(grandchild); }));
  EXPECT_THAT(Output(), ::testing::Not(HasSubstr("next")));
}

TEST_F(Processes, EndAll_AlsoEndsReleasedPrograms) {
  auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(ChildProgram("start " + folder_.Core("never"))).ok());
  DeliverUntilOutput(*launcher);
  const auto grandchild = static_cast<DWORD>(std::stoul(Output()));
  launcher.reset();
  runner_->EndAll();
  EXPECT_TRUE(Eventually([&] { return !IsAlive(grandchild); }));
}

TEST_F(Processes, EndAllWithNothingRunning_DoesNothing) {
  const auto launcher = Create();
  RunToEnd(*launcher, ChildProgram("exit 0"));
  runner_->EndAll();
  EXPECT_TRUE(launcher->End().Succeeded());
}

TEST_F(Processes, StartedProcess_IsWaitedForWithoutLimit) {
  const auto process = runner_->StartProcess(ChildProgram("late " + folder_.Core("done")), SW_HIDE, 0);
  ASSERT_NE(process, nullptr);
  EXPECT_TRUE(process->Wait(0, false));
  EXPECT_EQ(folder_.Read("done"), "x");
  EXPECT_TRUE(process->Wait(1, false));
}

TEST_F(Processes, StartedProcessThatRunsOn_TimesOut) {
  const auto process = runner_->StartProcess(ChildProgram("wait " + folder_.Core("go")), 0, 0);
  ASSERT_NE(process, nullptr);
  EXPECT_FALSE(process->Wait(20, false));
  folder_.Write("go", "");
  EXPECT_TRUE(process->Wait(-7, false));
}

TEST_F(Processes, StartedProcessWhoseHandleIsClosed_GoesOn) {
  runner_->StartProcess(ChildProgram("late " + folder_.Core("done")), 0, 0).reset();
  EXPECT_TRUE(Eventually([&] { return folder_.Read("done") == "x"; }));
}

TEST_F(Processes, StartedProcessThatDoesNotExist_IsNull) {
  EXPECT_EQ(runner_->StartProcess(folder_.Core("missing.exe"), 0, 0), nullptr);
}

}  // namespace
}  // namespace discwright::host
