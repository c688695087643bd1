// Tests of whole builds by the Windows programs, on both families of Windows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "tests/end_to_end/program_copy.h"
#include "tests/end_to_end/small_disk.h"
#include "tests/end_to_end/trees.h"
#include "tests/windows/windows_program.h"

namespace discwright::testing {

namespace {

using ::testing::HasSubstr;

const std::vector<std::pair<std::string, std::string>> kOldDate = {{"SOURCE_DATE_EPOCH", "1000000000"}};

// Files as they stand on old disks: blanks, umlauts, both letter cases, empty, read only, nested, alike.
void MakeTree(const fs::path& folder) {
  WriteFile(folder / "README.TXT", "read me\r\n");
  WriteFile(folder / "lower case.txt", "lower");
  WriteFile(folder /
                "Gr\xC3\xB6\xC3\x9F"
                "e \xC3\xBC"
                "ber alles.txt",
            "umlauts");
  WriteFile(folder / "empty", "");
  WriteFile(folder / "a.b.c.d", "periods");
  WriteFile(folder / "tr+_~1 (x) [y] {z}, = ; & % ^ ! @ # '`", "every character that a name may have");
  WriteFile(folder / "deep" / "deeper" / "Deepest" / "file.bin", std::string(100'000, 'd'));
  WriteFile(folder / "deep" / "copy of file.bin", std::string(100'000, 'd'));
  WriteFile(folder / "sector", std::string(2048, 's'));
  WriteFile(folder / "more than a sector", std::string(2049, 's'));
  fs::permissions(folder / "sector", fs::perms::owner_read);
  for (int number = 0; number < 60; ++number)
    WriteFile(folder / "many" / ("FILE" + std::to_string(number) + ".DLL"), std::string(number, 'm'));
}

std::vector<std::string> Choices(const std::string& tools, const std::string& additional, const std::string& image) {
  return {"--set", "ChkVexaUtils=1",       "--set", "TxtUtils_Loc=" + tools,
          "--set", "ChkAddFiles=1",        "--set", "TxtAddFiles_Loc=" + additional,
          "--set", "ChkGet_Vexanetplus=1", "-o",    image};
}

class WholeBuilds : public ::testing::TestWithParam<Family> {
 protected:
  void SetUp() override {
    MakeTree(place /
             "my t\xC3\xB6"
             "ols");
    WriteFile(place / "extra" / "AUTORUN.INF", "[autorun]\r\n");
    sources_ = Fingerprint(place /
                           "my t\xC3\xB6"
                           "ols");
  }
  void TearDown() override {
    EXPECT_EQ(Fingerprint(place / "my t\xC3\xB6"
                                  "ols"),
              sources_);
  }

  Outcome BuildOnWindows(const fs::path& image, const std::vector<std::string>& more = {}) const {
    return windows.Build(Join(Choices(WindowsPath(place / "my t\xC3\xB6"
                                                          "ols"),
                                      WindowsPath(place / "extra"), WindowsPath(image)),
                              more),
                         kOldDate);
  }
  Outcome BuildHere(const fs::path& image, const std::vector<std::string>& more = {}) const {
    const ProgramCopy here(place / "program here");
    return here.Build(Join(Choices((place / "my t\xC3\xB6"
                                            "ols")
                                       .string(),
                                   (place / "extra").string(), image.string()),
                           more),
                      {.environment = kOldDate});
  }

  TemporaryFolder place;
  WindowsProgram windows{place / "Disc wright \xC3\xBC", GetParam()};
  std::map<std::string, std::string> sources_;
};

INSTANTIATE_TEST_SUITE_P(Families, WholeBuilds, ::testing::Values(Family::kNt, Family::k98),
                         [](const auto& family) { return family.param == Family::kNt ? "Nt" : "Windows98"; });

}  // namespace

TEST_P(WholeBuilds, SameSessionInBothWorlds_GivesTheSameImageToTheBit) {
  const Outcome here = BuildHere(place / "here.iso");
  ASSERT_EQ(here.exit_code, 0) << here.err;
  const Outcome there = BuildOnWindows(place / "there.iso");
  ASSERT_EQ(there.exit_code, 0) << there.err;
  EXPECT_EQ(Difference(ReadWithBsdtar(place / "here.iso"), ReadWithBsdtar(place / "there.iso")), "");
  EXPECT_TRUE(ReadFile(place / "here.iso") == ReadFile(place / "there.iso"));
}

// Windows 98 has no hard links: there only the saving is missing.
TEST_P(WholeBuilds, DuplicatesLinkedWhereTheSystemCan_GiveTheSameImageToTheBit) {
  const std::vector<std::string> optimise = {"--set", "ChkOptimizeISO=1"};
  const bool has_links = GetParam() == Family::kNt;
  const Outcome here = BuildHere(place / "here.iso", has_links ? optimise : std::vector<std::string>());
  ASSERT_EQ(here.exit_code, 0) << here.err;
  const Outcome there = BuildOnWindows(place / "there.iso", optimise);
  ASSERT_EQ(there.exit_code, 0) << there.err;
  const std::string log = ReadFile(windows / "mkisofs.log");
  EXPECT_THAT(log, HasSubstr("Finding duplicate files"));
  EXPECT_THAT(log, has_links ? HasSubstr("1 files linked") : HasSubstr("has no hard links"));
  EXPECT_TRUE(ReadFile(place / "here.iso") == ReadFile(place / "there.iso"));
}

TEST_P(WholeBuilds, MissingLinker_IsReportedAndTheImageIsMade) {
  fs::remove(windows / "dfl.exe");
  const Outcome outcome = BuildOnWindows(place / "image.iso", {"--set", "ChkOptimizeISO=1"});
  EXPECT_EQ(outcome.exit_code, 4) << outcome.err;
  EXPECT_THAT(outcome.err, HasSubstr("duplicate files were stored more than once"));
  EXPECT_TRUE(ReadWithBsdtar(place / "image.iso").contains("vexa/README.TXT"));
}

TEST_P(WholeBuilds, ImageInAFolderWithBlanksAndUmlauts_IsMadeThere) {
  const fs::path image = place /
                         "Bilder f\xC3\xBC"
                         "r CDs" /
                         "my image.iso";
  fs::create_directories(image.parent_path());
  const Outcome outcome = BuildOnWindows(image);
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("SHA-256: "));
  EXPECT_TRUE(ReadWithBsdtar(image).contains("vexa/README.TXT"));
}

TEST_P(WholeBuilds, SecondBuildOverTheFirst_MakesTheSameImage) {
  ASSERT_EQ(BuildOnWindows(place / "first.iso").exit_code, 0);
  ASSERT_EQ(BuildOnWindows(place / "second.iso").exit_code, 0);
  EXPECT_TRUE(ReadFile(place / "first.iso") == ReadFile(place / "second.iso"));
}

// On Windows 95, 98 and Me files are written piece by piece over existing ones, so that the tail of a longer file
// stays.
TEST_P(WholeBuilds, AdditionalFileOverALongerOne_LeavesItsTailOnTheOlderFamily) {
  WriteFile(place / "extra" / "vexa" / "README.TXT", "ABC");
  ASSERT_EQ(BuildOnWindows(place / "image.iso").exit_code, 0);
  const std::string left = ReadFile(windows / "vexacd" / "vexa" / "README.TXT");
  EXPECT_EQ(left, GetParam() == Family::kNt ? "ABC" : "ABCd me\r\n");
}

TEST_P(WholeBuilds, ReadOnlyFilesOfAnEarlierBuild_DoNotStopTheNext) {
  ASSERT_EQ(BuildOnWindows(place / "image.iso").exit_code, 0);
  for (const auto& entry : fs::recursive_directory_iterator(windows / "vexacd"))
    if (entry.is_regular_file()) fs::permissions(entry.path(), fs::perms::owner_read);
  const Outcome again = BuildOnWindows(place / "image.iso");
  EXPECT_EQ(again.exit_code, 0) << again.err;
}

TEST_P(WholeBuilds, MissingMasteringTool_IsReportedFromTheLog) {
  fs::remove(windows / "mkisofs.exe");
  const Outcome outcome = BuildOnWindows(place / "image.iso");
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.err, HasSubstr("Operation Aborted"));
  EXPECT_TRUE(NoImageAt(place / "image.iso"));
}

TEST_P(WholeBuilds, DiskTooSmallForTheImage_IsReportedAndLeavesNothing) {
  const SmallDisk disk(place / "disk", 200'000);
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  const Outcome outcome = BuildOnWindows(place / "disk" / "image.iso");
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.err, HasSubstr("Not enough free space to complete the ISO file !!!"));
  EXPECT_TRUE(fs::is_empty(place / "disk"));
}

TEST_P(WholeBuilds, ProgramFolderThatCannotBeWrittenTo_IsReportedBeforeAnythingIsBuilt) {
  const SmallDisk disk(place / "read only", 64'000'000);
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  const WindowsProgram program(place / "read only" / "Discwright", GetParam());
  ASSERT_TRUE(disk.MakeReadOnly());
  const Outcome outcome = program.Build({"-o", WindowsPath(place / "image.iso")});
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.err, HasSubstr(WindowsPath(place / "read only" / "Discwright")));
  EXPECT_FALSE(fs::exists(place / "read only" / "Discwright" / "vexacd"));
  EXPECT_TRUE(NoImageAt(place / "image.iso"));
}

TEST_P(WholeBuilds, NameThatTheCodePageLacks_IsNamedWithItsPlace) {
  WriteFile(place / "extra" / "\xE6\x97\xA5\xE6\x9C\xAC.txt", "no such letters here");
  const Outcome outcome = BuildOnWindows(place / "image.iso");
  EXPECT_NE(outcome.exit_code, 0);
  EXPECT_THAT(outcome.err, HasSubstr("extra"));
  EXPECT_THAT(outcome.err, HasSubstr("code page"));
}

TEST_P(WholeBuilds, MissingSourceFolder_IsRefusedOnItsPage) {
  const Outcome outcome = windows.Build(
      {"--set", "ChkVexaUtils=1", "--set", "TxtUtils_Loc=Z:\\no such folder", "-o", WindowsPath(place / "image.iso")});
  EXPECT_EQ(outcome.exit_code, 3) << outcome.err;
}

}  // namespace discwright::testing
