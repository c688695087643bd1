// Tests of Ctrl-C at every stage: the build ends with a message, and leaves neither a running program nor an image.
#include <csignal>

#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

constexpr int kCancelled = 130;

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
  void ExpectNextBuildSucceeds() const {
    const Outcome outcome = Build();
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_TRUE(fs::exists(image));
  }
};

// Waits for the file `first` and stops the process, so that a fast machine does not finish the build. False when the
// build has already made `last`.
bool CaughtInTheMiddle(RunningProgram& build, const fs::path& first, const fs::path& last) {
  const bool begun = WaitUntil([&] { return fs::exists(first) || build.HasEnded(); });
  build.Send(SIGSTOP);
  return begun && !build.HasEnded() && !fs::exists(last);
}

}  // namespace

TEST_F(Cancel, WhileCopying_EndsAfterTheCopy) {
  for (int number = 10000; number < 16000; ++number) WriteFile(place / "tools" / std::to_string(number), "content");
  bool caught = false;
  for (int attempt = 0; attempt < 5 && !caught; ++attempt) {
    RunningProgram build(Command(Utilities(place / "tools")));
    caught = CaughtInTheMiddle(build, program / "vexacd/vexa/10000", program / "vexacd/vexa/15999");
    build.Send(SIGINT);
    build.Send(SIGCONT);
    if (caught) ExpectCancelled(build);
  }
  ASSERT_TRUE(caught) << "the copy was always faster than this test";
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
