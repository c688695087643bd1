// Facts about the machine.
#include "host/system.h"

#include <gmock/gmock.h>

namespace discwright::host {
namespace {

TEST(Today, Parts_AreWithinTheirRanges) {
  const Date today = Today();
  EXPECT_GE(today.year, 2024);
  EXPECT_THAT(today.month, ::testing::AllOf(::testing::Ge(1), ::testing::Le(12)));
  EXPECT_THAT(today.day, ::testing::AllOf(::testing::Ge(1), ::testing::Le(31)));
  EXPECT_FALSE(today.weekday.empty());
}

}  // namespace
}  // namespace discwright::host
