// Tests of the Windows tools by themselves. The output of each is compared with that of the same tool on Linux.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "tests/end_to_end/program_copy.h"
#include "tests/end_to_end/trees.h"
#include "tests/mkisofs/loaders.h"
#include "tests/windows/windows_program.h"

namespace discwright::testing {

namespace {

using ::testing::HasSubstr;

class Tools : public ::testing::TestWithParam<Family> {
 protected:
  TemporaryFolder place;
  ProgramCopy here{place / "here"};
  WindowsProgram there{place / "there", GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Families, Tools, ::testing::Values(Family::kNt, Family::k98),
                         [](const auto& family) { return family.param == Family::kNt ? "Nt" : "Windows98"; });

// Times of all kinds: before 1980, whole and broken seconds, after the date that is asked for.
void SpreadTimes(const fs::path& folder) {
  std::int64_t step = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::chrono::sys_seconds time{std::chrono::seconds(300'000'000 + 86'399'999 * (step++ % 17))};
    fs::last_write_time(entry.path(), std::chrono::file_clock::from_sys(time) + std::chrono::milliseconds(250 * step));
  }
}

}  // namespace

TEST_P(Tools, SameTree_IsMasteredToTheSameBits) {
  for (int folder = 0; folder < 40; ++folder) {
    const fs::path below =
        place / "tree" / ("Folder " + std::to_string(folder % 8)) / ("\xC3\x84 " + std::to_string(folder));
    for (int file = 0; file < 12; ++file)
      WriteFile(below / ("file" + std::to_string(file) + (file % 2 == 0 ? ".TXT" : "")),
                std::string(folder * 97 + file, 'x'));
  }
  WriteFile(place / "tree" / "boot" / "loader.bin", MakeLoader());
  SpreadTimes(place / "tree");
  const std::vector<std::string> options = {
      "-volid", "VEXA_RESCUE",    "-iso-level",      "4",     "-no-emul-boot", "-boot-load-size",
      "4",      "-eltorito-boot", "boot/loader.bin", "-hide", "boot.catalog",  "-output"};
  const std::vector<std::pair<std::string, std::string>> date = {{"SOURCE_DATE_EPOCH", "1300000000"}};
  const Outcome linux_run =
      RunProgram(Join({(here / "mkisofs").string()}, options,
                      std::vector<std::string>{(place / "here.iso").string(), (place / "tree").string()}),
                 {.environment = date});
  ASSERT_EQ(linux_run.exit_code, 0) << linux_run.err;
  const Outcome windows_run =
      RunWindows(GetParam(),
                 Join({(there / "mkisofs.exe").string()}, options,
                      std::vector<std::string>{WindowsPath(place / "there.iso"), WindowsPath(place / "tree")}),
                 date);
  ASSERT_EQ(windows_run.exit_code, 0) << windows_run.err;
  EXPECT_EQ(Difference(ReadWithBsdtar(place / "here.iso"), ReadWithBsdtar(place / "there.iso")), "");
  EXPECT_TRUE(ReadFile(place / "here.iso") == ReadFile(place / "there.iso"));
  EXPECT_EQ(ReadFile(place / "there.iso").substr(510, 2), "\x55\xAA");  // the boot record for disks is there
  EXPECT_FALSE(fs::exists(place / ".discwright-there.iso.part"));
}

TEST_P(Tools, UnknownOption_IsRefusedAndLeavesNothing) {
  WriteFile(place / "tree" / "a", "a");
  const Outcome outcome = RunWindows(GetParam(), {(there / "mkisofs.exe").string(), "-rock", "-o",
                                                  WindowsPath(place / "a.iso"), WindowsPath(place / "tree")});
  EXPECT_EQ(outcome.exit_code, 2);
  EXPECT_THAT(outcome.err, HasSubstr("-rock"));
  EXPECT_TRUE(NoImageAt(place / "a.iso"));
}

TEST_P(Tools, SameProfile_GivesTheSameFloppyImage) {
  const std::vector<std::pair<std::string, std::string>> date = {{"SOURCE_DATE_EPOCH", "1300000000"}};
  const Outcome linux_run =
      RunProgram({(here / "CreateDsk").string(), "-t", "288", "linkwellplus288"}, {.environment = date});
  ASSERT_EQ(linux_run.exit_code, 0) << linux_run.err;
  const Outcome windows_run =
      RunWindows(GetParam(), {(there / "CreateDsk.exe").string(), "-t", "288", "linkwellplus288"}, date);
  ASSERT_EQ(windows_run.exit_code, 0) << windows_run.err;
  const auto image_in = [](const fs::path& folder) {
    for (const auto& entry : fs::directory_iterator(folder))
      if (entry.path().extension() == ".img") return entry.path();
    return fs::path();
  };
  const fs::path image = image_in(place / "here");
  ASSERT_FALSE(image.empty());
  EXPECT_TRUE(ReadFile(image) == ReadFile(place / "there" / image.filename()));
}

}  // namespace discwright::testing
