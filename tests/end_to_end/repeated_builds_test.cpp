// Tests of several builds in one program folder, which must not influence each other.
#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/left_files.h"

namespace discwright::testing {

namespace {

class RepeatedBuilds : public BuildTest {};

}  // namespace

TEST_F(RepeatedBuilds, SecondBuildWithOtherChoices_HoldsNothingOfTheFirst) {
  WriteFile(place / "first" / "only first.txt", "1");
  WriteFile(place / "second" / "only second.txt", "2");
  const fs::path first_image = place / "first.iso";
  ASSERT_EQ(
      program.Build(Join(Output(first_image), Utilities(place / "first"), AdditionalFiles(place / "first"))).exit_code,
      0);
  ASSERT_EQ(Build(AdditionalFiles(place / "second")).exit_code, 0);
  const Contents first = ReadWithBsdtar(first_image);
  const Contents second = ReadWithBsdtar(image);
  EXPECT_TRUE(first.contains("vexa/only first.txt"));
  EXPECT_TRUE(first.contains("only first.txt"));
  EXPECT_TRUE(second.contains("only second.txt"));
  EXPECT_FALSE(second.contains("only first.txt"));
  EXPECT_FALSE(second.contains("vexa"));
}

TEST_F(RepeatedBuilds, SameImageAgain_IsReplaced) {
  WriteFile(place / "first" / "1.txt", "1");
  WriteFile(place / "second" / "2.txt", "2");
  ASSERT_EQ(Build(Utilities(place / "first")).exit_code, 0);
  ASSERT_EQ(Build(Utilities(place / "second")).exit_code, 0);
  const Contents disc = Below(ReadWithBsdtar(image), "vexa");
  EXPECT_TRUE(disc.contains("2.txt"));
  EXPECT_FALSE(disc.contains("1.txt"));
}

TEST_F(RepeatedBuilds, ReadOnlyLeftoversInTheWorkspace_AreGone) {
  WriteLeftFile(program, "vexacd/left over/read only.txt", "old");
  fs::permissions(program / "vexacd" / "left over" / "read only.txt", fs::perms::owner_read);
  fs::permissions(program / "vexacd" / "left over", fs::perms::owner_read | fs::perms::owner_exec);
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_FALSE(ReadWithBsdtar(image).contains("left over"));
}

TEST_F(RepeatedBuilds, CleanSessionChosen_LeavesOnlyTheLog) {
  const auto folder_before = WithoutTimes(ContentsOf(program.folder()));
  ASSERT_EQ(Build({"--set", "ChkCleanSession=1"}).exit_code, 0);
  auto folder_after = WithoutTimes(ContentsOf(program.folder()));
  EXPECT_EQ(folder_after.erase("mkisofs.log"), 1U);
  EXPECT_EQ(Difference(folder_before, folder_after), "");
}

TEST_F(RepeatedBuilds, BuildDuringAnother_IsRefusedAndSpoilsNothing) {
  WriteFile(place / "tools" / "a.txt", "a");
  program.ReplaceProgram("dfl", ": > begun\nuntil [ -e '" + (place / "go on").string() +
                                    "' ]; do sleep 0.05; done\necho '0 files linked, 0 bytes saved'\n");
  RunningProgram first(
      Command(Join(Utilities(place / "tools"), std::vector<std::string>{"--set", "ChkOptimizeISO=1"})));
  ASSERT_TRUE(WaitUntil([&] { return HasBegun(); }));
  const fs::path other_image = place / "other.iso";
  const Outcome second = program.Build(Output(other_image));
  WriteFile(place / "go on", "");
  EXPECT_EQ(second.exit_code, 1);
  EXPECT_THAT(second.err,
              ::testing::StartsWith("Another build is under way in the program folder " + program.folder().string()));
  EXPECT_TRUE(NoImageAt(other_image));
  const Outcome outcome = first.Wait();
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_TRUE(ReadWithBsdtar(image).contains("vexa/a.txt"));
}

}  // namespace discwright::testing
