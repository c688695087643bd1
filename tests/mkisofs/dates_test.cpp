// Tests of the date fields.
#include "tools/mkisofs/dates.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>

namespace discwright::tools::mkisofs {
namespace {

using ::testing::ElementsAre;

std::string Digits(std::int64_t seconds) {
  const VolumeTime time = MakeVolumeTime(seconds);
  EXPECT_EQ(time.back(), 0);
  return {time.begin(), time.end() - 1};
}

TEST(RecordingTime, Dates_AreStoredPartByPart) {
  EXPECT_THAT(MakeRecordingTime(0), ElementsAre(70, 1, 1, 0, 0, 0, 0));
  EXPECT_THAT(MakeRecordingTime(1000000000), ElementsAre(101, 9, 9, 1, 46, 40, 0));
  EXPECT_THAT(MakeRecordingTime(951827696), ElementsAre(100, 2, 29, 12, 34, 56, 0));
  EXPECT_THAT(MakeRecordingTime(-1), ElementsAre(69, 12, 31, 23, 59, 59, 0));
}

TEST(RecordingTime, BeforeAndAfterWhatCanBeStored_AreTheNearest) {
  EXPECT_THAT(MakeRecordingTime(std::numeric_limits<std::int64_t>::min()), ElementsAre(0, 1, 1, 0, 0, 0, 0));
  EXPECT_THAT(MakeRecordingTime(std::numeric_limits<std::int64_t>::max()), ElementsAre(255, 12, 31, 23, 59, 59, 0));
}

TEST(VolumeTime, Dates_AreDigitsAndAZone) {
  EXPECT_EQ(Digits(0), "1970010100000000");
  EXPECT_EQ(Digits(1000000000), "2001090901464000");
  EXPECT_EQ(Digits(253402300799), "9999123123595900");
  EXPECT_EQ(Digits(std::numeric_limits<std::int64_t>::max()), "9999123123595900");
  EXPECT_EQ(Digits(std::numeric_limits<std::int64_t>::min()), "0001010100000000");
}

TEST(VolumeTime, None_IsZeros) {
  const VolumeTime time = NoVolumeTime();
  EXPECT_EQ(std::string(time.begin(), time.end() - 1), "0000000000000000");
  EXPECT_EQ(time.back(), 0);
}

}  // namespace
}  // namespace discwright::tools::mkisofs
