// Tests of Ctrl-C at every stage: the build ends with a message, and leaves neither a running program nor an image.
#include <csignal>
#include <functional>
#include <vector>

#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/left_files.h"

namespace discwright::testing {

namespace {

constexpr int kCancelled = 130;

// Waits for the file `first` and stops the process, so that a fast machine does not finish the build. False when the
// build has already made `last`.
bool CaughtInTheMiddle(RunningProgram& build, const fs::path& first, const fs::path& last) {
  const bool begun = WaitUntil([&] { return fs::exists(first) || build.HasEnded(); });
  build.Send(SIGSTOP);
  return begun && !build.HasEnded() && !fs::exists(last);
}

class Cancel : public BuildTest {
 protected:
  void ExpectCancelled(RunningProgram& build) const {
    const Outcome outcome = build.Wait();
    EXPECT_EQ(outcome.exit_code, kCancelled) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("Cancelling"));
    EXPECT_TRUE(NoImageAt(image));
    EXPECT_TRUE(AllProcessesEnd(place.path())) << ::testing::PrintToString(ProcessesIn(place.path()));
  }
  // Sends the signals to a build in the middle of a copy, and passes the build to `check`.
  void InterruptTheCopy(const std::vector<int>& signals, const std::function<void(RunningProgram&)>& check) const {
    for (int number = 10000; number < 16000; ++number) WriteFile(place / "tools" / std::to_string(number), "content");
    bool caught = false;
    for (int attempt = 0; attempt < 5 && !caught; ++attempt) {
      RunningProgram build(Command(Utilities(place / "tools")));
      caught = CaughtInTheMiddle(build, program / "vexacd/vexa/10000", program / "vexacd/vexa/15999");
      for (const int signal : signals) build.Send(signal);
      build.Send(SIGCONT);
      if (caught) check(build);
    }
    ASSERT_TRUE(caught) << "the copy was always faster than this test";
  }
  void ExpectNextBuildSucceeds() const {
    const Outcome outcome = Build();
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_TRUE(fs::exists(image));
  }
};

// Makes `levels` folders, each with two links to the next: so many ways lead through them that a count has no end.
void MakeLinkFarm(const fs::path& folder, int levels = 40) {
  for (int level = 0; level < levels; ++level) fs::create_directories(folder / std::to_string(level));
  for (int level = 0; level + 1 < levels; ++level) {
    for (const char* name : {"one", "two"}) {
      fs::create_directory_symlink(folder / std::to_string(level + 1), folder / std::to_string(level) / name);
    }
  }
  WriteFile(folder / std::to_string(levels - 1) / "file", "content");
}

// Whether the build is in a copy, which begins with counting.
bool IsCounting(RunningProgram& build) { return build.ErrorText().find("Preparing for Copy") != std::string::npos; }

}  // namespace

TEST_F(Cancel, WhileALinkFarmIsCounted_CopiesNothing) {
  MakeLinkFarm(place / "farm");
  RunningProgram build(Command(Utilities(place / "farm" / "0")), {.on_terminal = true});
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(program / "vexacd/vexa") && IsCounting(build); }));
  EXPECT_FALSE(build.HasEnded());
  build.Send(SIGINT);
  const Outcome outcome = build.Wait();
  EXPECT_EQ(outcome.exit_code, kCancelled) << outcome.err;
  EXPECT_THAT(outcome.err, HasSubstr("Cancelled."));
  EXPECT_THAT(outcome.err, ::testing::Not(HasSubstr("Fatal Error")));
  EXPECT_TRUE(fs::is_empty(program / "vexacd/vexa"));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(Cancel, TwiceWhileALargeTreeIsCopied_EndsAtOnce) {
  InterruptTheCopy({SIGINT, SIGTERM}, [&](RunningProgram& build) {
    const Outcome outcome = build.Wait();
    EXPECT_EQ(outcome.exit_code, kCancelled) << outcome.err;
    EXPECT_FALSE(fs::exists(program / "vexacd/vexa/15999"));
  });
}

TEST_F(Cancel, WhileTheOldWorkspaceIsDeleted_LeavesTheRestOfIt) {
  WriteLeftFile(program, "vexacd/old/10000", "content");
  for (int number = 10001; number < 16000; ++number) {
    WriteFile(program / "vexacd/old" / std::to_string(number), "content");
  }
  bool caught = false;
  for (int attempt = 0; attempt < 5 && !caught; ++attempt) {
    RunningProgram build(Command());
    const bool begun = WaitUntil([&] { return !fs::exists(program / "vexacd/old/10000") || build.HasEnded(); });
    build.Send(SIGSTOP);
    caught = begun && !build.HasEnded() && fs::exists(program / "vexacd/old/15999");
    build.Send(SIGINT);
    build.Send(SIGCONT);
    if (caught) ExpectCancelled(build);
  }
  ASSERT_TRUE(caught) << "the deletion was always faster than this test";
  EXPECT_TRUE(fs::exists(program / "vexacd/old/15999"));
  EXPECT_FALSE(fs::exists(program / "vexacd/boot"));
  ExpectNextBuildSucceeds();
}

TEST_F(Cancel, WhileCopying_EndsAfterTheCopy) {
  InterruptTheCopy({SIGINT}, [&](RunningProgram& build) { ExpectCancelled(build); });
  ExpectNextBuildSucceeds();
}

TEST_F(Cancel, WhileMastering_EndsTheMasteringAndItsPartlyWrittenImage) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    fs::remove(program / "begun");
    MasteringBeginsAndHangs();
    RunningProgram build(Command());
    ASSERT_TRUE(WaitUntil([&] { return HasBegun(); }));
    EXPECT_THAT(PartsOf(image), SizeIs(1));
    build.Send(signal);
    ExpectCancelled(build);
  }
  program.RestoreProgram("mkisofs");
  ExpectNextBuildSucceeds();
}

TEST_F(Cancel, CtrlCOnATerminalWhileMastering_EndsEverything) {
  MasteringBeginsAndHangs();
  RunningProgram build(Command());
  ASSERT_TRUE(WaitUntil([&] { return HasBegun(); }));
  build.SendToGroup(SIGINT);
  ExpectCancelled(build);
}

TEST_F(Cancel, CtrlCOnATerminalWhileADiskIsMade_LetsItFinishAndIsNoFailure) {
  fs::rename(program / "CreateDsk", program / "CreateDsk.real");
  program.ReplaceProgram("CreateDsk", ": > begun\nsleep 0.3\nexec ./CreateDsk.real \"$@\"\n");
  RunningProgram build(Command(), {.working_folder = program.folder()});
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(program / "begun"); }));
  build.SendToGroup(SIGINT);
  ExpectCancelled(build);
}

TEST_F(Cancel, OlderImageAtThePlace_StaysUntouched) {
  WriteFile(image, OlderImage());
  MasteringBeginsAndHangs();
  RunningProgram build(Command());
  ASSERT_TRUE(WaitUntil([&] { return HasBegun(); }));
  build.Send(SIGINT);
  EXPECT_EQ(build.Wait().exit_code, kCancelled);
  EXPECT_TRUE(ReadFile(image) == OlderImage());
  EXPECT_THAT(PartsOf(image), IsEmpty());
}

TEST_F(Cancel, MasteringThatIgnoresTheSignal_IsStillEnded) {
  program.ReplaceProgram("mkisofs", "trap '' INT TERM HUP\n: > begun\nsleep 600\nsleep 600\n");
  RunningProgram build(Command());
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(program / "begun"); }));
  build.Send(SIGINT);
  ExpectCancelled(build);
}

TEST_F(Cancel, TwiceWhileADiskIsMade_EndsAtOnce) {
  program.ReplaceProgram("CreateDsk", ": > begun\nsleep 600\n");
  RunningProgram build(Command(), {.working_folder = program.folder()});
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(program / "begun"); }));
  build.Send(SIGINT);
  ASSERT_TRUE(WaitUntil([&] { return build.ErrorText().find("Cancelling") != std::string::npos; }));
  EXPECT_FALSE(build.HasEnded());
  build.Send(SIGINT);
  ExpectCancelled(build);
}

}  // namespace discwright::testing
