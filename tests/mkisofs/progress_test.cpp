// Tests of the progress lines.
#include "tools/mkisofs/progress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace discwright::tools::mkisofs {
namespace {

constexpr std::uint64_t kLine = 10485760;  // bytes from one line to the next

TEST(Progress, Percent_HasTwoDecimalsAndIsAlignedToTheRight) {
  std::ostringstream said;
  Progress progress(said, kLine * 20);
  progress.Show(kLine);
  progress.Show(kLine * 20 * 2 / 3);
  EXPECT_EQ(said.str(), "  5.00% done\n 66.66% done\n");
}

TEST(Progress, LittleMore_IsNotShown) {
  std::ostringstream said;
  Progress progress(said, kLine * 20);
  progress.Show(kLine - 1);
  progress.Show(kLine);
  progress.Show(kLine * 2 - 1);
  EXPECT_EQ(said.str(), "  5.00% done\n");
}

TEST(Progress, TheWhole_IsNeverHundredPercent) {
  std::ostringstream said;
  Progress progress(said, kLine * 20);
  progress.Show(kLine * 20 - 1);
  progress.Show(kLine * 20);
  EXPECT_EQ(said.str(), " 99.99% done\n");
}

TEST(Progress, End_CountsExtentsAndWholeMegabytes) {
  std::ostringstream said;
  Progress progress(said, 1);
  progress.ShowEnd(34418);
  progress.ShowEnd(511);
  EXPECT_EQ(said.str(), "34418 extents written (67 Mb)\n511 extents written (0 Mb)\n");
}

TEST(Progress, Boot_SaysEltorito) {
  std::ostringstream said;
  Progress(said, 1).ShowBoot(4);
  EXPECT_EQ(said.str(), "Eltorito boot image: 4 sectors are loaded, no emulation\n");
}

}  // namespace
}  // namespace discwright::tools::mkisofs
