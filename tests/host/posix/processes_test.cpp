// Running real programs.
#include "host/processes.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "tests/host/launching.h"

namespace discwright::host {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using testing::Eventually;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Le;
using ::testing::Not;
using testing::Pause;
using ::testing::SizeIs;

// A program that has ended may stay listed for a while, until whoever inherited it has asked for its end.
bool IsAlive(int pid) {
  std::ifstream facts("/proc/" + std::to_string(pid) + "/stat");
  std::string number;
  std::string name;
  std::string state;
  return static_cast<bool>(facts >> number >> name >> state) && state != "Z" && state != "X";
}

class Processes : public testing::Launching {
 protected:
  // A shell script `name` in the test's folder; its command line.
  std::string Script(const std::string& commands, const std::string& name = "script.bat") const {
    folder_.Write(name, "cd '" + folder_.native() + "' || exit 99\n" + commands + "\n");
    return folder_.Core(name);
  }

  // The number that a script has written into a file once it is whole.
  int NumberIn(const std::string& name) const {
    EXPECT_TRUE(Eventually([&] { return folder_.Read(name).ends_with('\n'); }));
    return std::stoi(folder_.Read(name));
  }
};

TEST_F(Processes, OutputAndErrors_ArriveTogetherInOrder) {
  const auto launcher = Create();
  EXPECT_TRUE(RunToEnd(*launcher, Script("echo one; echo two >&2; echo three")).Succeeded());
  EXPECT_EQ(Output(), "one\ntwo\nthree\n");
}

TEST_F(Processes, Arguments_ReachTheProgram) {
  const auto launcher = Create();
  const std::string line = Script("for a in \"$@\"; do echo \"[$a]\"; done");
  RunToEnd(*launcher, line + " plain \"with blank\" \\\"q\\\" $HOME C:\\x\\");
  EXPECT_EQ(Output(), "[plain]\n[with blank]\n[\"q\"]\n[$HOME]\n[C:\\x\\]\n");
}

TEST_F(Processes, ProgramInAFolderWithAwkwardNames_IsRun) {
  for (const std::string name : {"with blank", "quo'te", "$HOME", "`id`", "line\nend", "Ümläut"}) {
    pieces_.clear();
    ends_ = 0;
    const auto launcher = Create();
    RunToEnd(*launcher, Script("echo ran", name + "/make cd.bat"));
    EXPECT_EQ(Output(), "ran\n") << name;
  }
}

TEST_F(Processes, TenThousandLines_ArriveWholeInOrderInPiecesOfWholeLines) {
  constexpr int kLines = 10000;
  const auto launcher = Create(1000);
  RunToEnd(*launcher, Script("i=1; while [ $i -le 10000 ]; do echo line $i; i=$((i+1)); done"));
  std::string expected;
  for (int i = 1; i <= kLines; ++i) expected += "line " + std::to_string(i) + "\n";
  EXPECT_TRUE(Output() == expected);
  EXPECT_THAT(pieces_, Each(SizeIs(Le(1000u))));
  for (const std::string& piece : pieces_) EXPECT_EQ(piece.back(), '\n');
  EXPECT_EQ(ends_, 1);
}

TEST_F(Processes, OutputWithoutLineEnds_IsCutAtTheBufferSize) {
  const auto launcher = Create(100);
  RunToEnd(*launcher, Script("head -c 100000 /dev/zero | tr '\\0' x"));
  EXPECT_TRUE(Output() == std::string(100000, 'x'));
  EXPECT_THAT(pieces_, Each(SizeIs(Le(100u))));
}

TEST_F(Processes, UnfinishedLine_IsDeliveredWhileTheProgramWaits) {
  const auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(Script("printf question; until [ -e go ]; do sleep 0.05; done")).ok());
  DeliverUntilOutput(*launcher);
  EXPECT_THAT(pieces_, ElementsAre("question"));
  EXPECT_EQ(ends_, 0);
  folder_.Write("go", "");
  DeliverUntilEnd(*launcher);
}

TEST_F(Processes, ProgramThatEndsAtOnce_StillDeliversItsEndOnce) {
  const auto launcher = Create();
  ASSERT_TRUE(launcher->Start(Script("exit 0")).ok());
  DeliverUntilEnd(*launcher);
  launcher->Deliver();
  launcher->Deliver();
  EXPECT_EQ(ends_, 1);
  EXPECT_THAT(pieces_, IsEmpty());
}

TEST_F(Processes, NothingIsDelivered_ExceptByDeliver) {
  const auto launcher = Create();
  ASSERT_TRUE(launcher->Start(Script("echo x")).ok());
  ASSERT_TRUE(Eventually([&] { return alarm_.calls() >= 2; }));
  EXPECT_THAT(pieces_, IsEmpty());
  EXPECT_EQ(ends_, 0);
  launcher->Deliver();
  EXPECT_THAT(pieces_, ElementsAre("x\n"));
  EXPECT_EQ(ends_, 1);
}

TEST_F(Processes, ExitCode_IsTold) {
  const auto launcher = Create();
  const ProcessEnd end = RunToEnd(*launcher, Script("exit 3"));
  EXPECT_EQ(end.exit_code, 3);
  EXPECT_EQ(end.killed_by, "");
  EXPECT_FALSE(end.Succeeded());
}

TEST_F(Processes, ProgramKilledBySignal_NamesIt) {
  const auto launcher = Create();
  const ProcessEnd end = RunToEnd(*launcher, Script("kill -KILL $$"));
  EXPECT_EQ(end.killed_by, "SIGKILL");
  EXPECT_FALSE(end.Succeeded());
}

TEST_F(Processes, SignalIgnoredByTheParent_IsNotIgnoredByTheProgram) {
  const auto old_handler = std::signal(SIGINT, SIG_IGN);
  const auto launcher = Create();
  const ProcessEnd end = RunToEnd(*launcher, Script("kill -INT $$"));
  std::signal(SIGINT, old_handler);
  EXPECT_EQ(end.killed_by, "SIGINT");
}

TEST_F(Processes, StandardInput_IsEmpty) {
  const auto launcher = Create();
  RunToEnd(*launcher, Script("cat; echo end"));
  EXPECT_EQ(Output(), "end\n");
}

TEST_F(Processes, EachProgram_HasAProcessGroupOfItsOwn) {
  const auto launcher = Create();
  RunToEnd(*launcher, Script("read -r pid name state parent group rest < /proc/self/stat; echo $group"));
  EXPECT_NE(std::stoi(Output()), getpgrp());
}

TEST_F(Processes, PipeOfOneProgram_IsNotInheritedByTheNext) {
  const auto first = Create();
  ASSERT_TRUE(first->Start(Script("readlink /proc/$$/fd/1 > pipe; until [ -e go ]; do sleep 0.05; done")).ok());
  ASSERT_TRUE(Eventually([&] { return folder_.Read("pipe").ends_with('\n'); }));
  const auto second = Create();
  ASSERT_TRUE(second->Start(Script("for f in /proc/$$/fd/*; do readlink $f; done", "second.bat")).ok());
  DeliverUntilEnd(*second);
  EXPECT_THAT(Output(), HasSubstr("pipe:"));
  EXPECT_THAT(Output(), Not(HasSubstr(folder_.Read("pipe"))));
}

TEST_F(Processes, LeftBehindProgramThatKeepsThePipe_DoesNotHoldTheEndBack) {
  const auto launcher = Create(8192, 20);
  RunToEnd(*launcher, Script("sleep 600 & echo $! > pid; echo last words"));
  EXPECT_EQ(Output(), "last words\n");
  EXPECT_EQ(ends_, 1);
  const int left_behind = NumberIn("pid");
  EXPECT_TRUE(IsAlive(left_behind));
  kill(left_behind, SIGKILL);
}

TEST_F(Processes, LeftBehindProgramThatGoesOnWriting_NeitherHoldsTheEndBackNorDies) {
  const auto launcher = Create(8192, 20);
  RunToEnd(*launcher, Script("(while :; do echo noise; done) & echo $! > pid"));
  const int left_behind = NumberIn("pid");
  EXPECT_EQ(ends_, 1);
  Pause(50);
  EXPECT_TRUE(IsAlive(left_behind));
  kill(left_behind, SIGKILL);
}

TEST_F(Processes, ProgramThatClosesItsOutput_EndsOnlyWhenItEnds) {
  const auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(Script("exec > /dev/null 2>&1; until [ -e go ]; do sleep 0.05; done; exit 7")).ok());
  Pause(100);
  launcher->Deliver();
  EXPECT_EQ(ends_, 0);
  folder_.Write("go", "");
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(launcher->End().exit_code, 7);
}

TEST_F(Processes, ReleasedProgram_GoesOnAndNothingFollows) {
  auto launcher = Create(100, 20);
  const std::string noise = "i=0; while [ $i -lt 20000 ]; do echo some more output; i=$((i+1)); done; echo ok > done";
  ASSERT_TRUE(launcher->Start(Script(noise)).ok());
  ASSERT_TRUE(alarm_.Wait());
  launcher->Deliver();
  launcher.reset();
  const int calls = alarm_.calls();
  const std::size_t pieces = pieces_.size();
  EXPECT_TRUE(Eventually([&] { return folder_.Read("done") == "ok\n"; }));
  Pause(50);
  EXPECT_EQ(alarm_.calls(), calls);
  EXPECT_EQ(pieces_.size(), pieces);
  EXPECT_EQ(ends_, 0);
}

TEST_F(Processes, OutputThatNobodyFetches_WaitsAndIsCompleteLater) {
  const auto launcher = Create(100);
  const std::string noise = "i=0; while [ $i -lt 20000 ]; do echo 0123456789; i=$((i+1)); done";
  ASSERT_TRUE(launcher->Start(Script(noise)).ok());
  Pause(200);
  EXPECT_LE(alarm_.calls(), 65);
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(Output().size(), 20000u * 11);
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
    ASSERT_TRUE(launcher->Start(Script("echo one; sleep 0.1; echo two")).ok());
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
  EXPECT_THAT(status.cause, HasSubstr("missing"));
}

TEST_F(Processes, FileThatTheSystemCannotRun_FailsToStart) {
  folder_.Write("rubbish", std::string("\x01\x02\x03\x04", 4));
  folder_.SetMode("rubbish", 0755);
  EXPECT_FALSE(Create()->Start(folder_.Core("rubbish")).ok());
  EXPECT_EQ(runner_->StartProcess(folder_.Core("rubbish"), 0, 0), nullptr);
}

TEST_F(Processes, ManyProgramsAtOnce_AllEndAndNoneStaysAZombie) {
  constexpr int kPrograms = 20;
  std::vector<std::unique_ptr<Launcher>> launchers;
  int ended = 0;
  for (int i = 0; i < kPrograms; ++i) {
    launchers.push_back(runner_->CreateLauncher(alarm_.Waker()));
    launchers.back()->process_ended = [&ended] { ++ended; };
    ASSERT_TRUE(launchers.back()->Start(Script("echo x")).ok());
  }
  while (ended < kPrograms) {
    ASSERT_TRUE(alarm_.Wait());
    for (const auto& launcher : launchers) launcher->Deliver();
  }
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(Processes, EndAll_EndsProgramsWithAllThatTheyStarted) {
  const auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(Script("sleep 600 & echo $! > pid; wait")).ok());
  const int grandchild = NumberIn("pid");
  runner_->EndAll();
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(launcher->End().killed_by, "SIGTERM");
  EXPECT_TRUE(Eventually([&] { return !IsAlive(grandchild); }));
}

TEST_F(Processes, EndAll_KillsWhatDoesNotListen) {
  const auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(Script("trap '' TERM; echo ready; while :; do sleep 1; done")).ok());
  DeliverUntilOutput(*launcher);
  runner_->EndAll();
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(launcher->End().killed_by, "SIGKILL");
}

TEST_F(Processes, EndAll_AlsoEndsReleasedPrograms) {
  auto launcher = Create();
  ASSERT_TRUE(launcher->Start(Script("echo $$ > pid; exec sleep 600")).ok());
  const int pid = NumberIn("pid");
  launcher.reset();
  runner_->EndAll();
  EXPECT_TRUE(Eventually([&] { return !IsAlive(pid); }));
}

TEST_F(Processes, EndAllWithNothingRunning_DoesNothing) {
  const auto launcher = Create();
  RunToEnd(*launcher, Script("exit 0"));
  runner_->EndAll();
  EXPECT_TRUE(launcher->End().Succeeded());
}

TEST_F(Processes, StartedProcess_IsWaitedForWithoutLimit) {
  const auto process = runner_->StartProcess(Script("sleep 0.1; echo x > done"), 0, 0);
  ASSERT_NE(process, nullptr);
  EXPECT_TRUE(process->Wait(0, false));
  EXPECT_EQ(folder_.Read("done"), "x\n");
  EXPECT_TRUE(process->Wait(1, false));
}

TEST_F(Processes, StartedProcessThatRunsOn_TimesOutButIsReadyForInput) {
  const auto process = runner_->StartProcess(Script("until [ -e go ]; do sleep 0.05; done"), 0, 0);
  ASSERT_NE(process, nullptr);
  EXPECT_FALSE(process->Wait(20, false));
  EXPECT_TRUE(process->Wait(0, true));
  folder_.Write("go", "");
  EXPECT_TRUE(process->Wait(0, false));
}

TEST_F(Processes, StartedProcessWhoseHandleIsClosed_GoesOnAndIsReaped) {
  runner_->StartProcess(Script("sleep 0.1; echo $$ > pid"), 0, 0).reset();
  const int pid = NumberIn("pid");
  EXPECT_TRUE(Eventually([&] { return !IsAlive(pid); }));
}

TEST_F(Processes, StartedProcessThatDoesNotExist_IsNull) {
  EXPECT_EQ(runner_->StartProcess(folder_.Core("missing"), 0, 0), nullptr);
}

}  // namespace
}  // namespace discwright::host
