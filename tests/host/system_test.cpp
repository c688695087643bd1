// Tests of facts about the machine.
#include "host/system.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

TEST(ProgramFolder, FolderToUse_IsReturnedFromThenOn) {
  const std::string before = ProgramFolder();
  UseProgramFolder("\\elsewhere");
  EXPECT_EQ(ProgramFolder(), "\\elsewhere");
  UseProgramFolder(before);
}

TEST(Today, Parts_AreWithinTheirRanges) {
  const Date today = Today();
  EXPECT_GE(today.year, 2024);
  EXPECT_THAT(today.month, ::testing::AllOf(::testing::Ge(1), ::testing::Le(12)));
  EXPECT_THAT(today.day, ::testing::AllOf(::testing::Ge(1), ::testing::Le(31)));
  EXPECT_FALSE(today.weekday.empty());
}

TEST(ClaimFolder, FolderThatIsClaimed_IsRefusedUntilItsClaimGoes) {
  const testing::TempFolder folder;
  const testing::TempFolder other;
  std::shared_ptr<void> claim = ClaimFolder(folder.Core());
  EXPECT_NE(claim, nullptr);
  EXPECT_EQ(ClaimFolder(folder.Core()), nullptr);
  EXPECT_NE(ClaimFolder(other.Core()), nullptr);
  claim.reset();
  EXPECT_NE(ClaimFolder(folder.Core()), nullptr);
}

}  // namespace
}  // namespace discwright::host
