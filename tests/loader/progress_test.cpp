// Tests of the line that shows how much of a file is loaded.
#include "boot/loader/progress.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace discwright::loader {
namespace {

std::string Line(std::string_view name, std::uint32_t done, std::uint32_t size) {
  std::array<char, 78> room{};
  return std::string(ProgressLine(name, done, size, room));
}

std::string Bar(std::size_t full) { return std::string(full, '\xDB') + std::string(20 - full, '\xB0'); }

TEST(ProgressLineTest, Part_IsShownAsABarAndPerCent) {
  EXPECT_EQ(Line("a/b", 0, 1000000), "Loading a/b " + Bar(0) + "   0 %");
  EXPECT_EQ(Line("a/b", 500 * 1024, 1000 * 1024), "Loading a/b " + Bar(10) + "  50 %");
  EXPECT_EQ(Line("a/b", 549 * 1024, 1000 * 1024), "Loading a/b " + Bar(10) + "  54 %");
  EXPECT_EQ(Line("a/b", 1000000, 1000000), "Loading a/b " + Bar(20) + " 100 %");
}

TEST(ProgressLineTest, SmallestAndLargestSizes_EndWith100PerCent) {
  for (const std::uint32_t size : {0U, 1U, 1023U, 1025U, 0xFFFFFFFFU}) {
    EXPECT_EQ(Line("a", size, size), "Loading a " + Bar(20) + " 100 %") << size;
  }
  EXPECT_EQ(Line("a", 0x7FFFFFFF, 0xFFFFFFFF), "Loading a " + Bar(9) + "  49 %");
  EXPECT_EQ(Line("a", 1, 1023), "Loading a " + Bar(0) + "   0 %");
}

TEST(ProgressLineTest, LongName_IsShownByItsEndAndLeavesRoomForTheBar) {
  const std::string line = Line(std::string(60, 'x') + "/end", 0, 1024);
  EXPECT_EQ(line, "Loading ..." + std::string(33, 'x') + "/end " + Bar(0) + "   0 %");
  EXPECT_LE(line.size(), 78U);
}

}  // namespace
}  // namespace discwright::loader
