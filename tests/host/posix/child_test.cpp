// Tests of running real programs: signals, process groups, and file descriptors.
#include <gmock/gmock.h>
#include <unistd.h>

#include <csignal>

#include "host/system.h"
#include "tests/host/launching.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using PosixChild = testing::Launching;

TEST_F(PosixChild, Arguments_ReachTheProgram) {
  const auto launcher = Create();
  const std::string line = BatchFile({"for a in \"$@\"; do echo \"[$a]\"; done"});
  RunToEnd(*launcher, line + " plain \"with blank\" \\\"q\\\" $HOME C:\\x\\");
  EXPECT_THAT(OutputLines(), ElementsAre("[plain]", "[with blank]", "[\"q\"]", "[$HOME]", "[C:\\x\\]"));
}

TEST_F(PosixChild, SignalIgnoredByTheParent_IsNotIgnoredByTheProgram) {
  const auto old_handler = std::signal(SIGINT, SIG_IGN);
  const auto launcher = Create();
  const ProcessEnd end = RunToEnd(*launcher, BatchFile({"kill -INT $$"}));
  std::signal(SIGINT, old_handler);
  EXPECT_EQ(end.killed_by, "SIGINT");
}

// Some parents start programs with SIGCHLD ignored. The system then keeps no exit codes.
TEST_F(PosixChild, FailureUnderAParentThatIgnoresTheEndOfItsChildren_IsKnown) {
  std::signal(SIGCHLD, SIG_IGN);
  SetUpSignals();
  const auto launcher = Create();
  EXPECT_EQ(RunToEnd(*launcher, BatchFile({"exit 7"})).exit_code, 7);
  std::signal(SIGXFSZ, SIG_DFL);
}

TEST_F(PosixChild, EachProgram_HasAProcessGroupOfItsOwn) {
  const auto launcher = Create();
  RunToEnd(*launcher, BatchFile({"read -r pid name state parent group rest < /proc/self/stat; echo $group"}));
  EXPECT_NE(std::stoi(Output()), getpgrp());
}

TEST_F(PosixChild, ProgramThatIgnoresEndAll_IsKilled) {
  const auto launcher = Create(8192, 20);
  ASSERT_TRUE(launcher->Start(BatchFile({"trap '' TERM", "echo ready", "while :; do sleep 1; done"})).ok());
  DeliverUntilOutput(*launcher);
  runner_->EndAll();
  DeliverUntilEnd(*launcher);
  EXPECT_EQ(launcher->End().killed_by, "SIGKILL");
}

TEST_F(PosixChild, PipeOfAProgram_IsNotInheritedByTheNext) {
  const auto first = Create();
  const std::string pipe_file = "'" + folder_.Native("pipe") + "'";
  const std::string never = "'" + folder_.Native("never") + "'";
  // Standard error, because some shells redirect their own standard output for a moment.
  ASSERT_TRUE(first
                  ->Start(BatchFile(
                      {"readlink /proc/$$/fd/2 > " + pipe_file, "until [ -e " + never + " ]; do sleep 0.05; done"}))
                  .ok());
  ASSERT_TRUE(testing::Eventually([&] { return folder_.Read("pipe").ends_with('\n'); }));
  const std::string pipe = folder_.Read("pipe");
  ASSERT_TRUE(pipe.starts_with("pipe:")) << pipe;
  const auto second = Create();
  RunToEnd(*second, BatchFile({"for f in /proc/$$/fd/*; do readlink $f; done"}, "second.bat"));
  EXPECT_THAT(Output(), HasSubstr("pipe:"));
  EXPECT_THAT(Output(), Not(HasSubstr(pipe)));
}

TEST_F(PosixChild, StartedProcessThatRuns_IsReadyForInput) {
  const auto process = runner_->StartProcess(testing::ChildProgram("wait " + folder_.Native("go")), 0, 0);
  ASSERT_NE(process, nullptr);
  EXPECT_TRUE(process->Wait(0, true));
  folder_.Write("go", "");
  EXPECT_TRUE(process->Wait(0, false));
}

}  // namespace
}  // namespace discwright::host
