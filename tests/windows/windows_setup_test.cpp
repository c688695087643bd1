// Tests of whole builds with Windows Setup and the recovery tools: the Windows programs and those of Linux build from
// the same discs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/end_to_end/chosen_discs.h"
#include "tests/end_to_end/program_copy.h"
#include "tests/end_to_end/small_disk.h"
#include "tests/end_to_end/trees.h"
#include "tests/end_to_end/waiting.h"
#include "tests/windows/windows_program.h"

namespace discwright::testing {

namespace {

using ::testing::HasSubstr;

using Environment = std::vector<std::pair<std::string, std::string>>;

// All of Windows 98/Me, because Windows 98 itself would answer what is left open from its registry.
const std::vector<std::string> kAnswers = {"--set", "ChkWin2KInfo_Unattend=1",
                                           "--set", "ChkWin9xInfo_MSBatch=1",
                                           "--set", "FrmWin2KInfo.TxtOwner=M\xC3\xBCller, S\xC3\xB6hne; 100%",
                                           "--set", "FrmWin9xInfo.TxtOwner=\"M\xC3\xBCller\"",
                                           "--set", "FrmWin9xInfo.TxtOrg=Home",
                                           "--set", "FrmWin9xInfo.TxtPCName=OLDPC",
                                           "--set", "FrmWin9xInfo.TxtWorkgroup=HOME",
                                           "--set", "ChkDelTree_Lang=1"};

class WindowsSetupOnWindows : public ::testing::TestWithParam<Family> {
 protected:
  void SetUp() override { discs.Insert(Shown::kUpperCase); }
  void TearDown() override { EXPECT_EQ(Fingerprint(discs.folder()), discs.fingerprint()); }

  // The older family's copies are of today: only a limit before the discs' own date gives all files one date.
  static Environment Limit() { return {{"SOURCE_DATE_EPOCH", GetParam() == Family::kNt ? "1000000000" : "900000000"}}; }

  Outcome BuildThere(const std::vector<std::string>& more = {}) const {
    return windows.Build(Join(Join(discs.Choices(WindowsPath), Output(WindowsPath(image))), more), Limit());
  }
  std::vector<std::string> ServicePack() const {
    const fs::path installer = place / "Pack 1.exe";
    fs::copy_file(fs::path(WINDOWS_TEST_PROGRAMS) / "service_pack.exe", installer);
    return {"--set", "ChkSlipstream=1", "--set", "TxtSP_exe=" + WindowsPath(installer)};
  }
  void ExpectNextBuildIsWhole() const {
    const Outcome outcome = BuildThere();
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_EQ(discs.DifferenceToImage(image, windows.folder()), "");
  }

  TemporaryFolder place;
  ChosenDiscs discs{place / "my discs \xC3\xBC"};
  WindowsProgram windows{place / "Disc wright \xC3\xBC", GetParam()};
  fs::path image = place / "there.iso";
};

INSTANTIATE_TEST_SUITE_P(Families, WindowsSetupOnWindows, ::testing::Values(Family::kNt, Family::k98),
                         [](const auto& family) { return family.param == Family::kNt ? "Nt" : "Windows98"; });

}  // namespace

TEST_P(WindowsSetupOnWindows, EverythingChosen_MakesTheTreeFileByFile) {
  ExpectNextBuildIsWhole();
  EXPECT_FALSE(fs::exists(windows / "advtemp"));
}

// There the discs' names show in lower case, as Linux mounts many of them.
TEST_P(WindowsSetupOnWindows, SameDiscsInBothWorlds_GiveTheSameImageToTheBit) {
  const Outcome there = BuildThere(kAnswers);
  ASSERT_EQ(there.exit_code, 0) << there.err;
  const ChosenDiscs lower(place / "lower");
  lower.Insert(Shown::kLowerCase);
  const ProgramCopy program(place / "program here");
  const Outcome here =
      program.Build(Join(lower.Choices(), Output(place / "here.iso"), kAnswers), {.environment = Limit()});
  ASSERT_EQ(here.exit_code, 0) << here.err;
  EXPECT_EQ(Difference(ReadWithBsdtar(place / "here.iso"), ReadWithBsdtar(image)), "");
  EXPECT_TRUE(ReadFile(place / "here.iso") == ReadFile(image));
}

// A folder of the tool's new name, a file of it, a file named like a folder of the CD, and a folder that it has, too.
TEST_P(WindowsSetupOnWindows, ToolDiscsThatHaveNamesOfTheCd_EndAlikeInBothWorlds) {
  WriteFile(discs.folder() / "erd" / "ERDC" / "OWN.TXT", "own");
  WriteFile(discs.folder() / "erd" / "ERDC" / "SETUPLDR.BIN", "own");
  WriteFile(discs.folder() / "oobc" / "OOBC", "a file");
  WriteFile(discs.folder() / "oobc" / "BOOT", "a file");
  WriteFile(discs.folder() / "oobc" / "WIN98" / "DEEP" / "NEW.TXT", "new");
  discs.Remember();
  const Outcome there = BuildThere();
  EXPECT_EQ(there.exit_code, 4) << there.err;
  const ProgramCopy program(place / "program here");
  const Outcome here = program.Build(Join(discs.Choices(), Output(place / "here.iso")), {.environment = Limit()});
  EXPECT_EQ(here.exit_code, 4) << here.err;
  EXPECT_EQ(Difference(ReadWithBsdtar(place / "here.iso"), ReadWithBsdtar(image)), "");
  EXPECT_EQ(LinesWith(here.err, "warning: ").size(), LinesWith(there.err, "warning: ").size()) << here.err << there.err;
}

// The dialog of Windows 98/Me does not find them again there, but nothing overwrites them either.
TEST_P(WindowsSetupOnWindows, AnswersOfAnEarlierBuild_AreUsedAgainIfNoneAreGiven) {
  ASSERT_EQ(BuildThere(kAnswers).exit_code, 0);
  const std::string first = ReadFile(windows / "vexacd/WIN98/MSBATCH.INF");
  ASSERT_EQ(BuildThere({"--set", "ChkWin9xInfo_MSBatch=1"}).exit_code, 0);
  EXPECT_EQ(ReadFile(windows / "vexacd/WIN98/MSBATCH.INF"), first);
}

TEST_P(WindowsSetupOnWindows, ServicePack_IsSlipstreamedByTheNtFamilyOnly) {
  const Outcome outcome = BuildThere(ServicePack());
  if (GetParam() == Family::kNt) {
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_TRUE(ReadFile(windows / "vexacd/I386/SVCPACK.INF").starts_with("-s:"));
  } else {
    EXPECT_EQ(outcome.exit_code, 4);
    EXPECT_THAT(outcome.err, HasSubstr("Can't Slipstream Service Pack: Can't integrate the Windows Service Pack if "
                                       "running in a Windows 9x environment"));
    EXPECT_EQ(discs.DifferenceToImage(image, windows.folder()), "");
  }
}

TEST_P(WindowsSetupOnWindows, SecondBuildOverReadOnlyLeftovers_MakesTheSameTree) {
  ASSERT_EQ(BuildThere().exit_code, 0);
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(windows / "vexacd")) {
    if (entry.is_regular_file()) fs::permissions(entry.path(), fs::perms::owner_read);
  }
  ExpectNextBuildIsWhole();
}

TEST_P(WindowsSetupOnWindows, CabinetThatAnotherProgramHolds_IsReportedAndTheBuildGoesOn) {
  const fs::path cabinet = discs.folder() / "xp/I386/DRIVER.CAB";
  RunningProgram holder(
      WindowsCommand(GetParam(), {(fs::path(WINDOWS_TEST_PROGRAMS) / "hold_file.exe").string(), WindowsPath(cabinet),
                                  WindowsPath(place / "ready"), WindowsPath(place / "stop")}));
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(place / "ready") || holder.HasEnded(); }));
  const Outcome outcome = BuildThere();
  WriteFile(place / "stop", "");
  EXPECT_EQ(holder.Wait().exit_code, 0);
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, HasSubstr("\\xp\\I386\\DRIVER.CAB: could not be copied"));
  ExpectNextBuildIsWhole();
}

TEST_P(WindowsSetupOnWindows, DiskFullInTheMiddleOfTheSetupFiles_IsReportedAndTheNextBuildWorks) {
  const SmallDisk disk(place / "disk", 256 * kMegabyte);
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  const WindowsProgram on_disk(place / "disk" / "program", GetParam());
  fs::remove(discs.folder() / "xp/I386/DRIVER.CAB");
  WriteFile(discs.folder() / "xp/I386/DRIVER.CAB", std::string(20 * kMegabyte, 'l'));
  discs.Remember();
  disk.FillUpTo(15 * kMegabyte);  // the boot disks take six
  const std::vector<std::string> arguments = Join(discs.Choices(WindowsPath), Output(WindowsPath(image)));
  const Outcome full = on_disk.Build(arguments);
  EXPECT_THAT(full.exit_code, ::testing::AnyOf(1, 4)) << full.err;
  EXPECT_THAT(full.err, HasSubstr("\\xp\\I386\\DRIVER.CAB: could not be copied"));
  fs::remove(place / "disk" / "filler");
  const Outcome outcome = on_disk.Build(arguments);
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_TRUE(ReadWithBsdtar(image).contains("I386/DRIVER.CAB"));
}

// The installer is a Windows program on Linux, too: there the command "wine" starts it.
TEST(WindowsSetupOnLinux, ServicePack_IsSlipstreamedThroughWine) {
  const TemporaryFolder place;
  const ChosenDiscs discs(place / "discs");
  discs.Insert(Shown::kLowerCase);
  const ProgramCopy program(place / "Disc wright \xC3\xBC");
  fs::copy_file(fs::path(WINDOWS_TEST_PROGRAMS) / "service_pack.exe", place / "Pack 1.exe");
  MakeWineCommand(place / "bin");
  const Outcome outcome =
      program.Build(Join({"--set", "ChkSlipstream=1", "--set", "TxtSP_exe=" + (place / "Pack 1.exe").string()},
                         discs.Choices(), Output(place / "image.iso")),
                    {.environment = {{"PATH", (place / "bin").string() + ":" + std::getenv("PATH")}}});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_TRUE(ReadWithBsdtar(place / "image.iso").contains("I386/SVCPACK.INF"));
}

}  // namespace discwright::testing
