// Tests of builds that are killed: no image stands under its final name, and the next build succeeds.
#include <chrono>
#include <csignal>
#include <set>
#include <thread>

#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kMoments = 10;

std::set<std::string> NamesIn(const fs::path& folder) {
  std::set<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    names.insert(entry.path().filename().string());
  return names;
}

class KilledBuild : public BuildTest {
 protected:
  void SetUp() override {
    for (int number = 0; number < 1000; ++number) {
      WriteFile(place / "tools" / std::to_string(number % 20) / std::to_string(number), std::string(2000, 'c'));
    }
  }

  const std::vector<std::string> choices = Utilities(place / "tools");
};

}  // namespace

TEST_F(KilledBuild, AtTenMoments_NextBuildMakesTheSameDisc) {
  const auto start = Clock::now();
  ASSERT_EQ(Build(choices).exit_code, 0);
  const auto whole = Clock::now() - start;
  const Contents disc = WithoutTimes(ReadWithBsdtar(image));
  for (int moment = 1; moment <= kMoments; ++moment) {
    SCOPED_TRACE("killed after " + std::to_string(moment) + "/11 of the time that a build takes");
    fs::remove(image);
    RunningProgram build(Command(choices));
    std::this_thread::sleep_for(whole * moment / (kMoments + 1));
    build.Send(SIGKILL);
    const bool was_killed = build.Wait().killed_by == SIGKILL;
    if (was_killed && fs::exists(image)) {
      EXPECT_EQ(Difference(disc, WithoutTimes(ReadWithBsdtar(image))), "");
    }
    // Starts at once, while programs of the killed build may still be running.
    const Outcome next = Build(choices);
    EXPECT_EQ(next.exit_code, 0) << next.err;
    EXPECT_EQ(Difference(disc, WithoutTimes(ReadWithBsdtar(image))), "");
    EXPECT_TRUE(AllProcessesEnd(place.path()));
    EXPECT_THAT(PartsOf(image), IsEmpty());
  }
}

TEST_F(KilledBuild, LeftFilesOfEveryKind_AreGoneAfterTheNextBuild) {
  ASSERT_EQ(Build().exit_code, 0);
  const std::set<std::string> names = NamesIn(program.folder());
  // What a run can leave when it is killed in the middle of a step.
  for (const char* name : {"discwright.tmp", "vexawin.img", "vexalinkwell.img", ".discwright-12345-0"}) {
    WriteFile(program / name, "left");
  }
  for (const char* name : {".discwright-rescue.iso.part", ".discwright-rescue.iso.test", ".discwright-12345-1"}) {
    WriteFile(place / name, "left");
  }
  WriteFile(place / "rescue.iso.part", "mine");
  EXPECT_EQ(Build().exit_code, 0);
  EXPECT_EQ(NamesIn(program.folder()), names);
  EXPECT_THAT(PartsOf(image), ::testing::ElementsAre("rescue.iso.part"));
  EXPECT_EQ(ReadFile(place / "rescue.iso.part"), "mine");
}

TEST_F(KilledBuild, WhileMastering_WhatStillRunsOfItCannotSpoilTheNextImage) {
  const fs::path go_on = place / "go on";
  program.ReplaceProgram("mkisofs",
                         "while [ \"$1\" != -output ]; do shift; done\n"
                         "exec 3> \"${2%/*}/.discwright-${2##*/}.part\"\n"
                         ": > begun\n"
                         "until [ -e '" +
                             go_on.string() +
                             "' ]; do sleep 0.1; done\n"
                             "echo more of the killed build >&3\n");
  RunningProgram build(Command());
  ASSERT_TRUE(WaitUntil([&] { return HasBegun(); }));
  build.Send(SIGKILL);
  EXPECT_EQ(build.Wait().killed_by, SIGKILL);
  EXPECT_FALSE(fs::exists(image));
  program.RestoreProgram("mkisofs");
  const Outcome next = Build();
  EXPECT_EQ(next.exit_code, 0) << next.err;
  const auto made = ReadFile(image);
  WriteFile(go_on, "");
  EXPECT_TRUE(AllProcessesEnd(place.path()));
  EXPECT_TRUE(ReadFile(image) == made);
  EXPECT_THAT(PartsOf(image), IsEmpty());
}

}  // namespace discwright::testing
