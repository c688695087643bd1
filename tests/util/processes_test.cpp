// Tests of running other programs. The programs are fake.
#include "util/processes.h"

#include "tests/support/util_fixture.h"

namespace discwright::util {
namespace {

using ShellAndWaitTest = testing::UtilFixture;

class StartLauncherTest : public testing::UtilFixture {
 protected:
  std::unique_ptr<host::Launcher> launcher;

  host::Status Start(ProgramEvents events) {
    return StartLauncher(programs, user, launcher, "tool.exe", 500, std::move(events));
  }
};

class WaitWhileTest : public StartLauncherTest {
 protected:
  bool running = true;

  void StartAndWait(int poll_interval) {
    ASSERT_TRUE(Start({{}, [this] { running = false; }}).ok());
    WaitWhile(user, running, launcher, poll_interval);
  }
};

TEST_F(ShellAndWaitTest, ProgramThatEnds_IsTrue) {
  EXPECT_TRUE(ShellAndWait(programs, "tool.exe /x", 250, false, 1));
  EXPECT_EQ(programs.started, std::vector<std::string>{"tool.exe /x"});
  EXPECT_EQ(programs.window_styles, std::vector<int>{1});
  EXPECT_EQ(programs.creation_flag_values, std::vector<int>{0});
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

std::string TailOf(const std::vector<std::string>& pieces) {
  OutputTail tail;
  for (const std::string& piece : pieces) tail.Add(piece);
  return tail.Text();
}

TEST(OutputTail, ManyLines_BeginsWithACompleteLine) {
  std::string lines;
  for (int i = 10; i < 60; ++i) lines += "window " + std::to_string(i) + ", but no driver\n";
  const std::string last = TailOf({lines, "the end\r\n"});
  EXPECT_THAT(last, ::testing::StartsWith("... window 4"));
  EXPECT_THAT(last, ::testing::EndsWith("window 59, but no driver\nthe end"));
  EXPECT_GT(last.size(), 420U);
}

TEST(OutputTail, OneLine_BeginsWithACompleteWord) {
  EXPECT_EQ(TailOf({"START" + std::string(1000, 'a') + " and then", " the end"}), "... and then the end");
}

TEST(OutputTail, OneWord_IsItsLastCharacters) {
  EXPECT_EQ(TailOf({std::string(1000, 'a')}), "... " + std::string(500, 'a'));
}

TEST(OutputTail, UpToTheLimit_IsTheWholeOutput) {
  EXPECT_EQ(TailOf({std::string(500, 'a')}), std::string(500, 'a'));
  EXPECT_EQ(TailOf({}), "");
}

TEST_F(StartLauncherTest, PiecesAndEnd_ArriveInOrderAndTheEndOnceAndLast) {
  programs.run = [](const std::string&) { return testing::FakeRun{{"a", "b"}, {}, {7, ""}}; };
  std::string events;
  ASSERT_TRUE(Start({[&](std::string_view text) { events += text; }, [&] { events += "."; }}).ok());
  EXPECT_EQ(programs.started, std::vector<std::string>{"tool.exe"});
  for (int i = 0; i < 5; ++i) launcher->Deliver();
  EXPECT_EQ(events, "ab.");
  EXPECT_EQ(launcher->End().exit_code, 7);
  EXPECT_EQ(programs.configured, std::vector<std::string>{"8192 500"});
}

TEST_F(StartLauncherTest, ArrivingOutput_WakesTheUserInterface) {
  struct WakeCounter : testing::FakeUser {
    void Wake() override { ++wakes; }
    int wakes = 0;
  } waiting_user;
  ASSERT_TRUE(StartLauncher(programs, waiting_user, launcher, "tool.exe", 500, {}).ok());
  EXPECT_EQ(waiting_user.wakes, 1);
}

TEST_F(StartLauncherTest, SystemWithoutLaunchersOrProgramThatCannotBeStarted_IsAFailureWithoutALauncher) {
  programs.start_status = host::Status::Failure(host::ErrorClass::kNotFound, "no such program");
  EXPECT_EQ(Start({}).cause, "no such program");
  EXPECT_EQ(launcher, nullptr);
  EXPECT_EQ(programs.launchers_alive, 0);
  programs.can_create = false;
  EXPECT_EQ(Start({}).cause, "this system cannot run programs");
  EXPECT_EQ(launcher, nullptr);
}

TEST_F(StartLauncherTest, HandlerThatReleasesItsLauncher_GetsNoFurtherEvents) {
  programs.run = [](const std::string&) { return testing::FakeRun{{"a", "b"}, {}, {}}; };
  const bool running = true;
  std::string events;
  ASSERT_TRUE(Start({[&](std::string_view text) {
                       launcher.reset();
                       events += text;
                     },
                     [&] { events += "."; }})
                  .ok());
  WaitWhile(user, running, launcher, 500);
  EXPECT_EQ(events, "a");
  EXPECT_EQ(programs.launchers_alive, 0);
}

TEST_F(WaitWhileTest, NotRunning_IsLeftAtOnce) {
  ASSERT_TRUE(Start({}).ok());
  running = false;
  WaitWhile(user, running, launcher, 1000);
  EXPECT_EQ(user.do_events_calls, 0);
}

TEST_F(WaitWhileTest, NoLauncher_IsLeftAtOnce) {
  WaitWhile(user, running, launcher, 1000);
  EXPECT_EQ(user.do_events_calls, 0);
}

TEST_F(WaitWhileTest, ProgramThatEndedBeforeTheWait_EndsItAtOnce) {
  StartAndWait(1000);
  EXPECT_FALSE(running);
  EXPECT_EQ(user.waited, std::vector<int>{1000});
}

TEST_F(WaitWhileTest, RunningProgram_HandlesEventsBeforeEveryDelivery) {
  programs.run = [](const std::string&) { return testing::FakeRun{{"a", "b"}, {}, {}}; };
  StartAndWait(250);
  EXPECT_EQ(user.waited, (std::vector<int>{250, 250, 250}));
}

TEST_F(WaitWhileTest, FlagClearedWhileTheProgramYields_EndsTheWaitWithoutAnotherDelivery) {
  user.on_do_events = [this] { running = false; };
  bool ended = false;
  ASSERT_TRUE(Start({{}, [&] { ended = true; }}).ok());
  WaitWhile(user, running, launcher, 500);
  EXPECT_FALSE(ended);
}

}  // namespace
}  // namespace discwright::util
