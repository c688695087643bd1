// Tests of the numbers that hard disks get when the menu came from one of them.
#include "boot/loader/drive_numbers.h"

#include <gmock/gmock.h>

#include <vector>

namespace discwright::loader {
namespace {

using ::testing::ElementsAre;

// The first four numbers.
std::vector<int> FirstOf(const DriveNumbers& numbers) { return {numbers.begin(), numbers.begin() + 4}; }

TEST(DriveNumbersTest, OwnDiskFirst_ComesLast) {
  EXPECT_THAT(FirstOf(NumbersWithout(0x80, 2)), ElementsAre(0x81, 0x80, 0x82, 0x83));
  EXPECT_THAT(FirstOf(NumbersWithout(0x80, 4)), ElementsAre(0x81, 0x82, 0x83, 0x80));
}

TEST(DriveNumbersTest, OwnDiskBetweenOthers_ComesLast) {
  EXPECT_THAT(FirstOf(NumbersWithout(0x81, 3)), ElementsAre(0x80, 0x82, 0x81, 0x83));
}

TEST(DriveNumbersTest, OwnDiskLastOrAlone_ChangesNothing) {
  EXPECT_EQ(NumbersWithout(0x80, 1), UnchangedNumbers());
  EXPECT_EQ(NumbersWithout(0x81, 2), UnchangedNumbers());
  EXPECT_EQ(NumbersWithout(0x8F, 16), UnchangedNumbers());
}

TEST(DriveNumbersTest, OwnDriveIsNoHardDisk_ChangesNothing) {
  for (const int own : {0x00, 0x7F, 0x82, 0x90, 0xE0, 0xFF}) {
    EXPECT_EQ(NumbersWithout(static_cast<std::uint8_t>(own), 2), UnchangedNumbers()) << own;
  }
  EXPECT_EQ(NumbersWithout(0x80, 0), UnchangedNumbers());
}

TEST(DriveNumbersTest, MoreDisksThanTheTableHas_KeepOneNumberEach) {
  const DriveNumbers numbers = NumbersWithout(0x80, 40);
  EXPECT_EQ(numbers.front(), 0x81);
  EXPECT_EQ(numbers[14], 0x8F);
  EXPECT_EQ(numbers.back(), 0x80);
  EXPECT_EQ(NumbersWithout(0x90, 40), UnchangedNumbers());
}

}  // namespace
}  // namespace discwright::loader
