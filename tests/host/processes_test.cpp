// Tests of running real programs, for all systems.
#include "host/processes.h"

#include <gmock/gmock.h>

#include "tests/host/launching.h"

namespace discwright::host {
namespace {

using testing::ChildProgram;
using ::testing::Each;
using ::testing::ElementsAre;
using testing::Eventually;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Le;
using testing::Pause;
using ::testing::SizeIs;
using Processes = testing::Launching;

TEST_F(Processes, OutputAndErrorsOfABatchFile_ArriveTogetherInOrder) {
  const auto launcher = Create();
  EXPECT_TRUE(RunToEnd(*launcher, BatchFile({"echo one", "echo two 1>&2", "echo three"})).Succeeded());
  EXPECT_THAT(OutputLines(), ElementsAre("one", "two", "three"));
}

TEST_F(Processes, ProgramOfABatchFile_IsCapturedAndItsExitCodeIsReported) {
  const auto launcher = Create();
  const ProcessEnd end = RunToEnd(*launcher, BatchFile({ChildProgram("say inner"), ChildProgram("exit 3")}));
  EXPECT_EQ(Output(), "inner");
  EXPECT_EQ(end.exit_code, 3);
  EXPECT_EQ(end.killed_by, "");
  EXPECT_FALSE(end.Succeeded());
}

TEST_F(Processes, BatchFileInAFolderWithAnAwkwardName_IsRun) {
  for (const std::string& name : testing::AwkwardNames()) {
    pieces_.clear();
    ends_ = 0;
    const auto launcher = Create();
    RunToEnd(*launcher, BatchFile({"echo ran"}, name + "/make cd.bat"));
    EXPECT_THAT(OutputLines(), ElementsAre("ran")) << name;
  }
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
  RunToEnd(*launcher, ChildProgram("mass 4000000"));
  EXPECT_EQ(Output().size(), 4000000u);
}

TEST_F(Processes, OutputWithoutLineEnds_IsCutAtTheBufferSize) {
  const auto launcher = Create(100);
  RunToEnd(*launcher, ChildProgram("mass 100000"));
  EXPECT_TRUE(Output() == std::string(100000, 'x'));
  EXPECT_THAT(pieces_, Each(SizeIs(Le(100u))));
}

TEST_F(Processes, UnfinishedLine_IsDeliveredWhileTheProgramWaits) {
  const auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(ChildProgram("ask " + folder_.Native("go"))).ok());
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

TEST_F(Processes, DeliverBeforeTheStart_DoesNothing) {
  const auto launcher = Create();
  launcher->Deliver();
  EXPECT_EQ(ends_, 0);
}

TEST_F(Processes, ProgramThatCrashes_NamesWhatEndedIt) {
  const auto launcher = Create();
  const ProcessEnd end = RunToEnd(*launcher, ChildProgram("crash"));
  EXPECT_FALSE(end.Succeeded());
  EXPECT_EQ(end.Text(), "was killed by " + std::string(testing::kCrash));
}

TEST_F(Processes, StandardInput_IsEmpty) {
  const auto launcher = Create();
  RunToEnd(*launcher, ChildProgram("input"));
  EXPECT_THAT(OutputLines(), ElementsAre("0 bytes"));
}

TEST_F(Processes, PipeOfOneProgram_IsNotInheritedByTheNext) {
  const auto next = runner_->CreateLauncher([] {});
  const auto first = Create(8192, 20);
  ASSERT_TRUE(first->Start(ChildProgram("wait " + folder_.Native("go"))).ok());
  ASSERT_TRUE(next->Start(ChildProgram("wait " + folder_.Native("never"))).ok());
  const int before = testing::ThreadsOfThisProgram();
  folder_.Write("go", "");
  DeliverUntilEnd(*first);
  // The reader of the first program goes only when nobody can write to its pipe any more.
  EXPECT_TRUE(Eventually([&] { return testing::ThreadsOfThisProgram() < before; }));
}

TEST_F(Processes, LeftBehindProgramThatKeepsThePipe_DoesNotHoldTheEndBack) {
  const auto launcher = Create(8192, 20);
  RunToEnd(*launcher, ChildProgram("leave " + folder_.Native("go")));
  EXPECT_EQ(ends_, 1);
  ASSERT_THAT(OutputLines(), SizeIs(1)) << "the last words";
  EXPECT_TRUE(testing::IsAlive(std::stoi(Output())));
  folder_.Write("go", "");
}

TEST_F(Processes, LeftBehindProgramThatGoesOnWriting_NeitherHoldsTheEndBackNorIsStopped) {
  const auto launcher = Create(8192, 20);
  RunToEnd(*launcher, ChildProgram("noise " + folder_.Native("done")));
  EXPECT_EQ(ends_, 1);
  EXPECT_TRUE(Eventually([&] { return folder_.Read("done") == "x"; }));
}

TEST_F(Processes, ProgramThatClosesItsOutput_EndsOnlyWhenItEnds) {
  const auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(ChildProgram("close " + folder_.Native("go"))).ok());
  Pause(100);
  launcher->Deliver();
  EXPECT_EQ(ends_, 0);
  folder_.Write("go", "");
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(launcher->End().exit_code, 7);
}

TEST_F(Processes, ReleasedProgram_GoesOnAndItsEventsStop) {
  auto launcher = Create(100, 20);
  const std::string done = folder_.Native("done");
  ASSERT_TRUE(launcher->Start(BatchFile({ChildProgram("mass 1000000"), ChildProgram("late " + done)})).ok());
  ASSERT_TRUE(alarm_.Wait());
  launcher->Deliver();
  launcher.reset();
  const int calls = alarm_.calls();
  const std::size_t pieces = pieces_.size();
  EXPECT_TRUE(Eventually([&] { return folder_.Read("done") == "x"; }));
  Pause(50);
  EXPECT_EQ(alarm_.calls(), calls);
  EXPECT_EQ(pieces_.size(), pieces);
  EXPECT_EQ(ends_, 0);
}

TEST_F(Processes, OutputThatNobodyFetches_WaitsAndIsCompleteLater) {
  const auto launcher = Create(100);
  ASSERT_TRUE(launcher->Start(ChildProgram("mass 200000")).ok());
  Pause(200);
  EXPECT_LE(alarm_.calls(), 65);
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(Output().size(), 200000u);
}

TEST_F(Processes, LauncherDestroyedByItsOwnEvents_IsSafeAndItsEventsStop) {
  for (const bool at_end : {false, true}) {
    std::unique_ptr<Launcher> launcher = runner_->CreateLauncher(alarm_.Waker());
    launcher->Configure(10, 20);  // several pieces
    int calls = 0;
    const auto destroy = [&] {
      launcher.reset();
      ++calls;
    };
    if (at_end) launcher->process_ended = destroy;
    if (!at_end) launcher->data_received = [&](std::string_view) { destroy(); };
    ASSERT_TRUE(launcher->Start(ChildProgram("lines 20")).ok());
    Pause(100);
    while (calls == 0) {
      ASSERT_TRUE(alarm_.Wait());
      launcher->Deliver();
    }
    EXPECT_EQ(launcher, nullptr);
    EXPECT_EQ(calls, 1);
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
  testing::AddRubbishProgram(folder_, "rubbish.exe");
  EXPECT_FALSE(Create()->Start(folder_.Core("rubbish.exe")).ok());
  EXPECT_EQ(runner_->StartProcess(folder_.Core("rubbish.exe"), 0, 0), nullptr);
}

TEST_F(Processes, ManyProgramsAtOnce_AllEndAndLeaveNothing) {
  constexpr int kPrograms = 15;
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
  EXPECT_FALSE(testing::HasChildren());
}

TEST_F(Processes, EndAll_EndsProgramsWithAllThatTheyStarted) {
  const auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(BatchFile({ChildProgram("start " + folder_.Native("never")), "echo next"})).ok());
  DeliverUntilOutput(*launcher);
  const int grandchild = std::stoi(Output());
  EXPECT_TRUE(testing::IsAlive(grandchild));
  runner_->EndAll();
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(launcher->End().killed_by, testing::kEndedByUs);
  EXPECT_TRUE(Eventually([&] { return !testing::IsAlive(grandchild); }));
  EXPECT_THAT(Output(), ::testing::Not(HasSubstr("next")));
}

TEST_F(Processes, EndAll_AlsoEndsReleasedPrograms) {
  auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(ChildProgram("start " + folder_.Native("never"))).ok());
  DeliverUntilOutput(*launcher);
  const int grandchild = std::stoi(Output());
  launcher.reset();
  runner_->EndAll();
  EXPECT_TRUE(Eventually([&] { return !testing::IsAlive(grandchild); }));
}

TEST_F(Processes, EndAll_EndsEveryProgram) {
  std::vector<std::unique_ptr<Launcher>> launchers;
  int ended = 0;
  for (int i = 0; i < 3; ++i) {
    launchers.push_back(runner_->CreateLauncher(alarm_.Waker()));
    launchers.back()->process_ended = [&ended] { ++ended; };
    ASSERT_TRUE(launchers.back()->Start(ChildProgram("wait " + folder_.Native("never"))).ok());
  }
  runner_->EndAll();
  while (ended < 3) {
    ASSERT_TRUE(alarm_.Wait());
    for (const auto& launcher : launchers) launcher->Deliver();
  }
}

TEST_F(Processes, EndAllWithNothingRunning_DoesNothing) {
  const auto launcher = Create();
  RunToEnd(*launcher, ChildProgram("exit 0"));
  runner_->EndAll();
  EXPECT_TRUE(launcher->End().Succeeded());
}

TEST_F(Processes, StartedProcess_IsWaitedForWithoutLimit) {
  const auto process = runner_->StartProcess(ChildProgram("late " + folder_.Native("done")), 0, 0);
  ASSERT_NE(process, nullptr);
  EXPECT_TRUE(process->Wait(0, false));
  EXPECT_EQ(folder_.Read("done"), "x");
  EXPECT_TRUE(process->Wait(1, false));
}

TEST_F(Processes, StartedProcessThatRunsOn_TimesOut) {
  const auto process = runner_->StartProcess(ChildProgram("wait " + folder_.Native("go")), 0, 0);
  ASSERT_NE(process, nullptr);
  EXPECT_FALSE(process->Wait(20, false));
  folder_.Write("go", "");
  EXPECT_TRUE(process->Wait(testing::kFarTooLong, false));
  EXPECT_TRUE(process->Wait(-7, false));
}

TEST_F(Processes, StartedProcessWhoseHandleIsClosed_GoesOnAndLeavesNothing) {
  runner_->StartProcess(ChildProgram("late " + folder_.Native("done")), 0, 0).reset();
  EXPECT_TRUE(Eventually([&] { return folder_.Read("done") == "x"; }));
  EXPECT_TRUE(Eventually([] { return !testing::HasChildren(); }));
}

TEST_F(Processes, StartedProcessThatDoesNotExist_IsNull) {
  EXPECT_EQ(runner_->StartProcess(folder_.Core("missing.exe"), 0, 0), nullptr);
}

}  // namespace
}  // namespace discwright::host
