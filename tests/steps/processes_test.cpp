// Tests of the programs that a build step runs. The programs are fake.
#include "steps/processes.h"

#include "tests/support/build_fixture.h"

namespace discwright::steps {
namespace {

class ProcessesFixture : public testing::BuildFixture {
 protected:
  void ExpectFailureReported(std::string_view cause) {
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.messages[0].text,
              "There appears to be a problem in your installation, try to manually register redirect.dll");
    EXPECT_EQ(user.messages[0].title, "Critical Error");
    EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kCritical);
    EXPECT_TRUE(user.messages[0].system_modal);
    EXPECT_EQ(cancelled, 1);
    ASSERT_EQ(notes.all().size(), 1U);
    EXPECT_EQ(notes.all()[0].place, "tool.exe /x");
    EXPECT_EQ(notes.all()[0].cause, cause);
  }
};

using ASyncShellTest = ProcessesFixture;
using StartLauncherTest = ProcessesFixture;
using WaitForASyncAppTest = ProcessesFixture;

TEST_F(ASyncShellTest, StartedProgram_SetsASyncAppRunningUntilItsEndIsDelivered) {
  ASyncShell(context, "tool.exe /x");
  EXPECT_TRUE(main.ASyncAppRunning);
  EXPECT_EQ(programs.started, std::vector<std::string>{"tool.exe /x"});
  EXPECT_EQ(programs.configured, std::vector<std::string>{"8192 1000"});
  ASSERT_NE(context.ASyncApp, nullptr);
  context.ASyncApp->Deliver();
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_EQ(cancelled, 0);
}

TEST_F(ASyncShellTest, ProgramThatSucceeds_LeavesNoNoteOfItsOutput) {
  programs.run = [](const std::string&) { return testing::FakeRun{{"one", "two"}, {}, {}}; };
  ASyncShell(context, "tool.exe");
  WaitForASyncApp(context);
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_TRUE(user.messages.empty());
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(ASyncShellTest, ProgramThatFails_IsNotedWithTheEndOfItsOutputAndNothingElseHappens) {
  programs.run = [](const std::string&) { return testing::FakeRun{{"no such ", "profile\r\n"}, {}, {3, ""}}; };
  ASyncShell(context, "tool.exe /x");
  WaitForASyncApp(context);
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(cancelled, 0);
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "tool.exe /x");
  EXPECT_EQ(notes.all()[0].cause, "ended with exit code 3: no such profile");
}

TEST_F(ASyncShellTest, ProgramThatIsKilledSilently_IsNotedWithTheSignal) {
  programs.run = [](const std::string&) { return testing::FakeRun{{}, {}, {0, "SIGSEGV"}}; };
  ASyncShell(context, "tool.exe /x");
  WaitForASyncApp(context);
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].cause, "was killed by SIGSEGV");
}

TEST_F(ASyncShellTest, NoLauncher_IsReportedAndCancelsAndLeavesTheFlagClear) {
  programs.can_create = false;
  ASyncShell(context, "tool.exe /x");
  ExpectFailureReported("could not be started: this system cannot run programs");
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_EQ(context.ASyncApp, nullptr);
}

TEST_F(ASyncShellTest, ProgramThatCannotBeStarted_IsReportedAndCancelsAndLeavesTheFlagClear) {
  programs.start_status = host::Status::Failure(host::ErrorClass::kNotFound, "no such program");
  ASyncShell(context, "tool.exe /x");
  ExpectFailureReported("could not be started: no such program");
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_EQ(context.ASyncApp, nullptr);
  EXPECT_EQ(programs.launchers_alive, 0);
}

TEST_F(ASyncShellTest, SecondProgram_ReleasesTheLauncherOfTheFirst) {
  ASyncShell(context, "one.exe");
  ASyncShell(context, "two.exe");
  EXPECT_EQ(programs.launchers_alive, 1);
}

TEST_F(StartLauncherTest, EndHandlerThatStartsTheNextProgram_IsWaitedForToo) {
  ASyncShell(context, "one.exe");
  bool again = true;
  context.ASyncApp->process_ended = [&] {
    if (again) ASyncShell(context, "two.exe");
    again = false;
  };
  WaitForASyncApp(context);
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_EQ(programs.started, (std::vector<std::string>{"one.exe", "two.exe"}));
}

TEST_F(StartLauncherTest, MasteringThatCannotBeStarted_IsReportedAndCancels) {
  programs.start_status = host::Status::Failure(host::ErrorClass::kNotFound, "no such program");
  EXPECT_FALSE(StartLauncher(context, context.LaunchApp, "tool.exe /x", 500, {}));
  ExpectFailureReported("could not be started: no such program");
  EXPECT_EQ(context.LaunchApp, nullptr);
}

TEST_F(WaitForASyncAppTest, RunningProgram_IsWaitedForWithTheUserInterfaceAlive) {
  programs.run = [](const std::string&) { return testing::FakeRun{{"a", "b"}, {}, {}}; };
  ASyncShell(context, "tool.exe");
  WaitForASyncApp(context);
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_EQ(user.waited, (std::vector<int>{1000, 1000, 1000}));
}

TEST_F(WaitForASyncAppTest, LauncherReleasedWhileTheProgramYields_EndsTheWait) {
  ASyncShell(context, "tool.exe");
  user.on_do_events = [&] { context.ASyncApp.reset(); };
  WaitForASyncApp(context);
  EXPECT_EQ(user.do_events_calls, 1);
}

}  // namespace
}  // namespace discwright::steps
