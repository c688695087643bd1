// Tests of the count of the clock's ticks.
#include "boot/loader/tick_count.h"

#include <gtest/gtest.h>

namespace discwright::loader {
namespace {

TEST(TickCount, Clock_IsCountedFromTheFirstLook) {
  TickCount ticks(1000);
  EXPECT_EQ(ticks.At(1000), 0U);
  EXPECT_EQ(ticks.At(1018), 18U);
  EXPECT_EQ(ticks.At(1018), 18U);
}

// The clock of the BIOS counts up to 1800AFh and begins at 0 again at midnight. The count must not go back then,
// because the menu would take that for the end of its waits.
TEST(TickCount, Midnight_IsNoJump) {
  TickCount ticks(0x1800A0);
  EXPECT_EQ(ticks.At(0x1800AF), 15U);
  EXPECT_EQ(ticks.At(3), 18U);
  EXPECT_EQ(ticks.At(20), 35U);
}

}  // namespace
}  // namespace discwright::loader
