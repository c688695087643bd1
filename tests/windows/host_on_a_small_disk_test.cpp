// Runs the tests of full disks in host_test.exe. A Windows program cannot mount a small disk, so this program mounts
// one for them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/end_to_end/small_disk.h"
#include "tests/end_to_end/trees.h"
#include "tests/windows/windows_program.h"

namespace discwright::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class HostOnASmallDisk : public ::testing::TestWithParam<Family> {};

INSTANTIATE_TEST_SUITE_P(Families, HostOnASmallDisk, ::testing::Values(Family::kNt, Family::k98),
                         [](const auto& family) { return family.param == Family::kNt ? "Nt" : "Windows98"; });

}  // namespace

TEST_P(HostOnASmallDisk, TestsOfFullDisks_RunAndPass) {
  const TemporaryFolder place;
  const SmallDisk disk(place / "disk", 1'000'000);
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  const fs::path tests = fs::path(WINDOWS_PROGRAM_FOLDER).parent_path() / "tests" / "host_test.exe";
  ASSERT_TRUE(fs::exists(tests)) << tests;
  const Outcome outcome = RunWindows(GetParam(), {tests.string(), "--gtest_filter=*FullDisk*:*DiskDoesNotHave*"},
                                     {{"DISCWRIGHT_SMALL_DISK", WindowsPath(place / "disk")}});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.out;
  EXPECT_THAT(outcome.out, HasSubstr("[  PASSED  ]"));
  EXPECT_THAT(outcome.out, Not(HasSubstr("[  SKIPPED ]")));
}

}  // namespace discwright::testing
