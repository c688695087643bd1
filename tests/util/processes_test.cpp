// Running programs, on fake programs.
#include "util/processes.h"

#include "tests/support/build_fixture.h"

namespace discwright::util {
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

using ShellAndWaitTest = ProcessesFixture;
using ASyncShellTest = ProcessesFixture;
using StartLauncherTest = ProcessesFixture;
using WaitWhileTest = ProcessesFixture;

TEST_F(ShellAndWaitTest, ProgramThatEnds_IsTrue) {
  EXPECT_TRUE(ShellAndWait(programs, "tool.exe /x", 250, false, 1));
  EXPECT_EQ(programs.started, std::vector<std::string>{"tool.exe /x"});
  EXPECT_EQ(programs.waits, std::vector<std::string>{"250 end"});
}

TEST_F(ShellAndWaitTest, WindowStyle_ReachesTheProgram) {
  ShellAndWait(programs, "tool.exe", 250, false, 0);
  ShellAndWait(programs, "tool.exe", 250, false, 7);
  EXPECT_EQ(programs.window_styles, (std::vector<int>{0, 7}));
}

TEST_F(ShellAndWaitTest, WaitForIdle_AsksForReadiness) {
  EXPECT_TRUE(ShellAndWait(programs, "tool.exe", 250, true, 1));
  EXPECT_EQ(programs.waits, std::vector<std::string>{"250 idle"});
}

TEST_F(ShellAndWaitTest, TimeoutOfZeroOrLess_WaitsWithoutLimit) {
  EXPECT_TRUE(ShellAndWait(programs, "tool.exe", 0, false, 1));
  EXPECT_TRUE(ShellAndWait(programs, "tool.exe", -7, false, 1));
  EXPECT_TRUE(ShellAndWait(programs, "tool.exe", 1, false, 1));
  EXPECT_EQ(programs.waits, (std::vector<std::string>{"0 end", "0 end", "1 end"}));
}

TEST_F(ShellAndWaitTest, TimeOver_IsFalseAndNothingIsShown) {
  programs.process_wait_result = false;
  EXPECT_FALSE(ShellAndWait(programs, "tool.exe", 5, false, 1));
  EXPECT_TRUE(user.messages.empty());
}

TEST_F(ShellAndWaitTest, ProgramThatCannotBeStarted_IsFalseWithoutWaiting) {
  programs.can_create = false;
  EXPECT_FALSE(ShellAndWait(programs, "tool.exe", 0, false, 1));
  EXPECT_TRUE(programs.waits.empty());
}

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
  WaitWhile(context, main.ASyncAppRunning, context.ASyncApp, kASyncPollInterval);
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_TRUE(user.messages.empty());
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(ASyncShellTest, ProgramThatFails_IsNotedWithTheLastItSaidAndNothingElseHappens) {
  programs.run = [](const std::string&) { return testing::FakeRun{{"no such ", "profile\r\n"}, {}, {3, ""}}; };
  ASyncShell(context, "tool.exe /x");
  WaitWhile(context, main.ASyncAppRunning, context.ASyncApp, kASyncPollInterval);
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
  WaitWhile(context, main.ASyncAppRunning, context.ASyncApp, kASyncPollInterval);
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].cause, "was killed by SIGSEGV");
}

// What a program that fails has said in these pieces, as it is noted.
class MuchOutput : public ASyncShellTest {
 protected:
  std::string Noted(const std::vector<std::string>& pieces) {
    programs.run = [pieces](const std::string&) { return testing::FakeRun{pieces, {}, {1, ""}}; };
    ASyncShell(context, "tool.exe");
    WaitWhile(context, main.ASyncAppRunning, context.ASyncApp, kASyncPollInterval);
    return notes.all().empty() ? "" : notes.all().back().cause;
  }
};

TEST_F(MuchOutput, OfManyLines_IsNotedFromAWholeLineOn) {
  std::string lines;
  for (int i = 10; i < 60; ++i) lines += "window " + std::to_string(i) + ", but no driver\n";
  const std::string noted = Noted({lines, "the end\r\n"});
  EXPECT_THAT(noted, ::testing::StartsWith("ended with exit code 1: ... window 4"));
  EXPECT_THAT(noted, ::testing::EndsWith("window 59, but no driver\nthe end"));
  EXPECT_GT(noted.size(), 450U);
}

TEST_F(MuchOutput, OfOneLine_IsNotedFromAWholeWordOn) {
  EXPECT_EQ(Noted({"START" + std::string(1000, 'a') + " and then", " the end"}),
            "ended with exit code 1: ... and then the end");
}

TEST_F(MuchOutput, OfOneWord_IsNotedByItsEnd) {
  EXPECT_EQ(Noted({std::string(1000, 'a')}), "ended with exit code 1: ... " + std::string(500, 'a'));
}

TEST_F(MuchOutput, OfExactlyWhatIsKept_IsNotedWhole) {
  EXPECT_EQ(Noted({std::string(500, 'a')}), "ended with exit code 1: " + std::string(500, 'a'));
}

TEST_F(ASyncShellTest, NoLauncherToBeHad_IsReportedAndCancelsAndLeavesTheFlagClear) {
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

TEST_F(StartLauncherTest, PiecesAndEnd_ArriveInOrderAndTheEndOnceAndLast) {
  programs.run = [](const std::string&) { return testing::FakeRun{{"a", "b"}, {}, {7, ""}}; };
  std::string events;
  ASSERT_TRUE(StartLauncher(
      context, context.LaunchApp, "tool.exe", 500, [&](std::string_view text) { events += text; },
      [&] { events += "."; }));
  for (int i = 0; i < 5; ++i) context.LaunchApp->Deliver();
  EXPECT_EQ(events, "ab.");
  EXPECT_EQ(context.LaunchApp->End().exit_code, 7);
  EXPECT_EQ(programs.configured, std::vector<std::string>{"8192 500"});
}

TEST_F(StartLauncherTest, ArrivingOutput_WakesTheUserInterface) {
  struct WakeCounter : testing::FakeUser {
    void Wake() override { ++wakes; }
    int wakes = 0;
  } waiting_user;
  Context waiting{windows, waiting_user, programs, notes, {}, {}, nullptr, nullptr, {}};
  ASSERT_TRUE(StartLauncher(waiting, waiting.LaunchApp, "tool.exe", 500, {}, {}));
  EXPECT_EQ(waiting_user.wakes, 1);
}

TEST_F(StartLauncherTest, HandlerThatReleasesItsLauncher_GetsNoFurtherEvents) {
  programs.run = [](const std::string&) { return testing::FakeRun{{"a", "b"}, {}, {}}; };
  bool running = true;
  std::string events;
  StartLauncher(
      context, context.LaunchApp, "tool.exe", 500,
      [&](std::string_view text) {
        context.LaunchApp.reset();
        events += text;
      },
      [&] { events += "."; });
  WaitWhile(context, running, context.LaunchApp, 500);
  EXPECT_EQ(events, "a");
  EXPECT_EQ(programs.launchers_alive, 0);
}

TEST_F(StartLauncherTest, EndHandlerThatStartsTheNextProgram_IsWaitedForToo) {
  ASyncShell(context, "one.exe");
  bool again = true;
  context.ASyncApp->process_ended = [&] {
    if (again) ASyncShell(context, "two.exe");
    again = false;
  };
  WaitWhile(context, main.ASyncAppRunning, context.ASyncApp, 1000);
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_EQ(programs.started, (std::vector<std::string>{"one.exe", "two.exe"}));
}

TEST_F(WaitWhileTest, NotRunning_IsLeftAtOnce) {
  bool running = false;
  WaitWhile(context, running, context.ASyncApp, 1000);
  EXPECT_EQ(user.do_events_calls, 0);
}

TEST_F(WaitWhileTest, ChildThatEndedBeforeTheWait_EndsItAtOnce) {
  ASyncShell(context, "tool.exe");
  WaitWhile(context, main.ASyncAppRunning, context.ASyncApp, 1000);
  EXPECT_FALSE(main.ASyncAppRunning);
  EXPECT_EQ(user.waited, std::vector<int>{1000});
}

TEST_F(WaitWhileTest, RunningProgram_LetsTheUserInterfaceLiveBeforeEveryDelivery) {
  programs.run = [](const std::string&) { return testing::FakeRun{{"a", "b"}, {}, {}}; };
  ASyncShell(context, "tool.exe");
  WaitWhile(context, main.ASyncAppRunning, context.ASyncApp, 250);
  EXPECT_EQ(user.waited, (std::vector<int>{250, 250, 250}));
}

TEST_F(WaitWhileTest, FlagClearedWhileTheProgramYields_EndsTheWaitWithoutAnotherDelivery) {
  bool running = true;
  bool ended = false;
  StartLauncher(context, context.LaunchApp, "tool.exe", 500, {}, [&] { ended = true; });
  user.on_do_events = [&] { running = false; };
  WaitWhile(context, running, context.LaunchApp, 500);
  EXPECT_FALSE(ended);
}

TEST_F(WaitWhileTest, LauncherReleasedWhileTheProgramYields_EndsTheWait) {
  ASyncShell(context, "tool.exe");
  user.on_do_events = [&] { context.ASyncApp.reset(); };
  WaitWhile(context, main.ASyncAppRunning, context.ASyncApp, 1000);
  EXPECT_EQ(user.do_events_calls, 1);
}

}  // namespace
}  // namespace discwright::util
