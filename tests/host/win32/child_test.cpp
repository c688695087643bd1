// Tests of running real programs: consoles, code pages, and exit codes of Windows.
#include <gmock/gmock.h>
#include <windows.h>

#include "tests/host/launching.h"

namespace discwright::host {
namespace {

using testing::ChildProgram;
using ::testing::HasSubstr;
using WindowsChild = testing::Launching;

TEST_F(WindowsChild, ArgumentsOfABatchFile_ReachIt) {
  const auto launcher = Create();
  RunToEnd(*launcher, BatchFile({"echo [%1] [%2]"}, "my script.bat") + " plain \"with blank\"");
  EXPECT_EQ(Output(), "[plain] [\"with blank\"]\r\n");
}

TEST_F(WindowsChild, OutputInTheCodePage_ArrivesAsText) {
  if (GetACP() != 1252) GTEST_SKIP() << "this Windows has another code page";
  const auto launcher = Create();
  RunToEnd(*launcher, ChildProgram("bytes"));
  EXPECT_EQ(Output(), "Jürgen\r\n");
}

TEST_F(WindowsChild, ExitCodeOfMinusOne_IsNoException) {
  const auto launcher = Create();
  EXPECT_EQ(RunToEnd(*launcher, ChildProgram("exit -1")).Text(), "ended with exit code -1");
}

TEST_F(WindowsChild, Console_IsNotSeen) {
  const auto launcher = Create();
  RunToEnd(*launcher, ChildProgram("console"));
  EXPECT_NE(Output(), "seen");
}

TEST_F(WindowsChild, NameThatTheCodePageLacks_FailsToStartAndSaysWhy) {
  const Status status = Create()->Start("C:\\\U0001F4BF.exe");
  EXPECT_THAT(status.cause, HasSubstr("code page"));
  EXPECT_EQ(runner_->StartProcess("C:\\\U0001F4BF.exe", 0, 0), nullptr);
}

}  // namespace
}  // namespace discwright::host
