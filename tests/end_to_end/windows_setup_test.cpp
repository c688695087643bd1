// Tests of whole builds with Windows Setup and the recovery tools, from synthetic CDs.
#include <csignal>

#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/chosen_discs.h"
#include "tests/end_to_end/left_files.h"
#include "tests/end_to_end/small_disk.h"

namespace discwright::testing {

namespace {

using ::testing::AllOf;
using ::testing::Not;

constexpr const char* kOwner = "M\xC3\xBCller, S\xC3\xB6hne; 100% \"A=B\"";

class WindowsSetup : public BuildTest {
 protected:
  void SetUp() override { discs.Insert(Shown::kUpperCase); }
  void TearDown() override { EXPECT_EQ(Fingerprint(discs.folder()), discs.fingerprint()); }

  Outcome BuildEverything(const std::vector<std::string>& more = {}, const Surroundings& surroundings = {}) const {
    return Build(Join(discs.Choices(), more), surroundings);
  }
  // The environment variable PATH with a fake command "wine" in front, a script of these lines.
  std::pair<std::string, std::string> PathWithWine(const std::string& lines) const {
    WriteFile(place / "commands" / "wine", "#!/bin/sh\n" + lines);
    fs::permissions(place / "commands" / "wine", fs::perms::owner_all);
    return {"PATH", (place / "commands").string() + ":" + std::getenv("PATH")};
  }
  std::vector<std::string> ServicePack() const {
    WriteFile(place / "my packs" / "Pack 1.exe", "MZ");
    return {"--set", "ChkSlipstream=1", "--set", "TxtSP_exe=" + (place / "my packs" / "Pack 1.exe").string()};
  }
  void ExpectNextBuildIsWhole() const {
    const Outcome outcome = BuildEverything();
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_EQ(discs.DifferenceToImage(image, program.folder()), "");
  }

  ChosenDiscs discs{place / "my discs \xC3\xBC"};
};

class EveryDisc : public WindowsSetup, public ::testing::WithParamInterface<Shown> {
 protected:
  // Builds a CD from one disc only and returns its files.
  Contents CdFrom(const Disc& disc, const std::string& name, const std::string& choice, const std::string& location,
                  const std::string& folder = "") const {
    const fs::path root = place / "one disc" / name;
    Insert(disc, root, GetParam());
    const auto before = Fingerprint(root);
    const Outcome outcome = Build({"--set", choice + "=1", "--set", location + "=" + (root / folder).string()});
    EXPECT_EQ(outcome.exit_code, 0) << name << ": " << outcome.err;
    EXPECT_EQ(Fingerprint(root), before);
    return ReadWithBsdtar(image);
  }
};

INSTANTIATE_TEST_SUITE_P(Letters, EveryDisc, ::testing::Values(Shown::kUpperCase, Shown::kLowerCase),
                         [](const auto& shown) { return shown.param == Shown::kUpperCase ? "Upper" : "Lower"; });

}  // namespace

TEST_F(WindowsSetup, EverythingChosen_MakesTheTreeFileByFile) {
  const Outcome outcome = BuildEverything();
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_EQ(discs.DifferenceToImage(image, program.folder()), "");
  EXPECT_FALSE(fs::exists(program / "advtemp"));
}

TEST_F(WindowsSetup, DiscsShownInLowerCase_MakeTheSameTree) {
  const ChosenDiscs lower(place / "lower");
  lower.Insert(Shown::kLowerCase);
  const Outcome outcome = Build(lower.Choices());
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_EQ(lower.DifferenceToImage(image, program.folder()), "");
}

TEST_F(WindowsSetup, SecondBuildOverReadOnlyLeftovers_MakesTheSameTree) {
  ASSERT_EQ(BuildEverything().exit_code, 0);
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(program / "vexacd")) {
    if (entry.is_regular_file()) fs::permissions(entry.path(), fs::perms::owner_read);
  }
  WriteLeftFile(program, "advtemp/I386/LEFT.OVR", "of a build that was killed");
  ExpectNextBuildIsWhole();
}

TEST_F(WindowsSetup, CleanSession_LeavesNothingOfTheDiscs) {
  const Outcome outcome = BuildEverything({"--set", "ChkCleanSession=1"});
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_FALSE(fs::exists(program / "vexacd"));
  EXPECT_FALSE(fs::exists(program / "advtemp"));
  EXPECT_FALSE(fs::exists(program / "keyfile2.txt"));
}

TEST_F(WindowsSetup, PatchedFiles_KeepTheirTimes) {
  ASSERT_EQ(BuildEverything().exit_code, 0);
  const Contents disc = ContentsOf(discs.folder() / "erd" / "I386");
  const Contents on_cd = Below(ReadWithBsdtar(image), "ERDC");
  for (const char* file : {"SETUPLDR.BIN", "TXTSETUP.SIF", "DOSNET.INF"}) {
    EXPECT_EQ(on_cd.at(file).seconds, disc.at(file).seconds) << file;
  }
}

// On Windows the shell refuses to rename a folder to an existing name. The program on Linux does the same.
TEST_F(WindowsSetup, ToolDiscThatHasTheToolsNewName_IsReportedAndItsFolderStaysI386) {
  WriteFile(discs.folder() / "erd" / "ERDC" / "OWN.TXT", "own");
  discs.Remember();
  const Outcome outcome = BuildEverything();
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, HasSubstr((program / "advtemp" / "I386").string() + ": could not be renamed to ERDC"));
  const Contents contents = ReadWithBsdtar(image);
  EXPECT_TRUE(contents.contains("ERDC/OWN.TXT"));
  EXPECT_FALSE(contents.contains("ERDC/SETUPLDR.BIN"));
  EXPECT_TRUE(contents.contains("OOBC/SETUPLDR.BIN"));
}

TEST_F(WindowsSetup, ToolDiscWithAFileNamedBoot_IsReportedAndAllElseIsOnTheCd) {
  WriteFile(discs.folder() / "erd" / "BOOT", "a file");
  discs.Remember();
  const Outcome outcome = BuildEverything();
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(LinesWith(outcome.err, "warning: "), SizeIs(1));
  EXPECT_THAT(outcome.err, HasSubstr((program / "advtemp" / "BOOT").string() + ": could not be moved onto the CD"));
  EXPECT_EQ(discs.DifferenceToImage(image, program.folder()), "");
}

TEST_P(EveryDisc, OfTheNtFamily_BringsItsSetupFolderAndTagFilesAndNothingElse) {
  std::map<std::string, Disc> discs_by_name = {{"2000", Windows2000Disc(0)}, {"2000 SP4", Windows2000Disc(4)}};
  for (int level = 1; level <= 3; ++level) {
    discs_by_name["Home SP" + std::to_string(level)] = WindowsXpDisc(Edition::kHome, level);
    discs_by_name["Professional SP" + std::to_string(level)] = WindowsXpDisc(Edition::kProfessional, level);
  }
  const std::string folder = GetParam() == Shown::kUpperCase ? "I386" : "i386";
  for (const auto& [name, disc] : discs_by_name) {
    const Contents contents = CdFrom(disc, name, "ChkGet_Win2k", "Txt_i386_Loc", folder);
    for (const auto& [path, bytes] : disc) {
      const bool is_tag = path.starts_with("WIN51") || path.starts_with("CDROM");
      EXPECT_EQ(contents.contains(path), is_tag || path.starts_with("I386/")) << name << " " << path;
    }
  }
}

TEST_P(EveryDisc, OfTheOlderFamily_GoesIntoTheFolderOfItsWindows) {
  for (const auto& [folder, disc] :
       std::map<std::string, Disc>{{"WIN98", Windows98Disc()}, {"WINME", WindowsMeDisc()}}) {
    const Contents contents = CdFrom(disc, folder, "ChkGet_Win9x", "TxtWin9x_Loc");
    for (const auto& [path, bytes] : disc) EXPECT_TRUE(contents.contains(folder + "/" + path)) << path;
  }
}

TEST_F(WindowsSetup, ExtraLanguages_AreLeftOut) {
  ASSERT_EQ(BuildEverything({"--set", "ChkDelTree_Lang=1"}).exit_code, 0);
  const Contents contents = ReadWithBsdtar(image);
  EXPECT_FALSE(contents.contains("I386/LANG"));
  EXPECT_TRUE(contents.contains("I386/DRIVER.CAB"));
}

TEST_F(WindowsSetup, Answers_ReachSetupInWindows1252) {
  ASSERT_EQ(BuildEverything({"--set", "ChkWin2KInfo_Unattend=1", "--set", "ChkWin9xInfo_MSBatch=1", "--set",
                             std::string("FrmWin2KInfo.TxtOwner=") + kOwner, "--set",
                             std::string("FrmWin9xInfo.TxtOwner=") + kOwner, "--set", "FrmWin2KInfo.TxtWorkgroup=HOME",
                             "--set", "OptJoinDomain=1"})
                .exit_code,
            0);
  const std::string in_code_page = "\"M\xFCller, S\xF6hne; 100% \"A=B\"\"";
  const std::string winnt = ReadFile(program / "vexacd" / "I386" / "WINNT.SIF");
  EXPECT_THAT(winnt, HasSubstr("FullName=" + in_code_page + "\r\n"));
  // OptJoinDomain does not reach the answer file: the build always writes the workgroup.
  EXPECT_THAT(winnt, HasSubstr("JoinWorkgroup=HOME\r\n"));
  EXPECT_THAT(winnt, HasSubstr("UnattendedInstall=Yes\r\n"));
  const std::string msbatch = ReadFile(program / "vexacd" / "WIN98" / "MSBATCH.INF");
  EXPECT_THAT(msbatch, HasSubstr("Name=" + in_code_page + "\r\n"));
  EXPECT_TRUE(ReadWithBsdtar(image).contains("I386/WINNT.SIF"));
}

TEST_F(WindowsSetup, AnswersOfASession_AreWrittenWithoutADialog) {
  const fs::path session = place / "session.ini";
  WriteFile(session, "[Main]\r\nWindows2K=1\r\n[Win2K_Info]\r\nIn_Unattend=1\r\nOwnerName=\"Ann\"\r\nSourceDir=\"" +
                         (discs.folder() / "xp" / "I386").string() + "\"\r\n");
  const Outcome outcome = Build({"--session", session.string()});
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_THAT(ReadFile(program / "vexacd" / "I386" / "WINNT.SIF"), HasSubstr("FullName=Ann\r\n"));
}

TEST_F(WindowsSetup, AnswersOfAnEarlierBuild_AreUsedAgainIfNoneAreGiven) {
  const std::vector<std::string> wanted = {"--set", "ChkWin2KInfo_Unattend=1", "--set", "ChkWin9xInfo_MSBatch=1"};
  const std::vector<std::string> given = {"--set", "FrmWin2KInfo.TxtOwner=Ann", "--set", "FrmWin9xInfo.TxtOwner=Bob"};
  ASSERT_EQ(BuildEverything(Join(wanted, given)).exit_code, 0);
  ASSERT_EQ(BuildEverything(wanted).exit_code, 0);
  EXPECT_THAT(ReadFile(program / "vexacd" / "I386" / "WINNT.SIF"), HasSubstr("FullName=Ann\r\n"));
  EXPECT_THAT(ReadFile(program / "vexacd" / "WIN98" / "MSBATCH.INF"), HasSubstr("Name=Bob\r\n"));
}

TEST_F(WindowsSetup, OwnScript_KeepsTheNamesThatNobodyGivesBesideIt) {
  const fs::path script = place / "my script.sif";
  WriteFile(script, "[UserData]\nFullName=\"Bob Own\"\nOrgName=Acme\nComputerName=BOBPC\n");
  ASSERT_EQ(BuildEverything({"--set", "ChkWin2KInfo_Unattend=1", "--set", "FrmWin2KInfo.TxtOrg=Other", "--set",
                             "TxtTemplate=" + script.string()})
                .exit_code,
            0);
  EXPECT_THAT(ReadFile(program / "vexacd" / "I386" / "WINNT.SIF"),
              HasSubstr("FullName=Bob Own\nOrgName=Other\nComputerName=BOBPC\n"));
}

TEST_F(WindowsSetup, AnswersThatCannotBeStored_AreReported) {
  fs::create_directory(program / "keyfile2.txt");
  const Outcome outcome = BuildEverything({"--set", "ChkWin2KInfo_Unattend=1", "--set", "ChkWin9xInfo_MSBatch=1"});
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, AllOf(HasSubstr("your answers for Windows 98/Me Setup could not be written"),
                                 HasSubstr("your answers for Windows 2000/XP/2003 Setup could not be written"),
                                 HasSubstr("Windows Setup gets no answers from the CD")));
}

TEST_F(WindowsSetup, Password_IsWrittenIntoTheBootScript) {
  WriteFile(place / "password", "s\xC3\xBC\xC3\x9F\nsecond line\n");
  ASSERT_EQ(BuildEverything({"--password-file", (place / "password").string()}).exit_code, 0);
  EXPECT_THAT(ReadFile(program / "vexacd/boot/scripts/main.cds"),
              AllOf(HasSubstr("Set PasswordRequest=1\r\n"), HasSubstr("Set PasswordString=\"s\xFC\xDF\"\r\n")));
}

TEST_F(WindowsSetup, ServicePack_IsStartedThroughWineAndWaitedFor) {
  const auto path = PathWithWine("printf '%s\\n' \"$#\" \"$@\" > '" + (place / "arguments").string() +
                                 "'\n"
                                 "echo slipped > '" +
                                 (program / "vexacd/I386/SVCPACK.INF").string() + "'\n");
  const Outcome outcome = BuildEverything(ServicePack(), {.environment = {path}});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  std::string tree = (program / "vexacd").string();
  std::replace(tree.begin(), tree.end(), '/', '\\');
  EXPECT_EQ(ReadFile(place / "arguments"),
            "2\n" + (place / "my packs" / "Pack 1.exe").string() + "\n-s:Z:" + tree + "\n");
  EXPECT_TRUE(ReadWithBsdtar(image).contains("I386/SVCPACK.INF"));
}

TEST_F(WindowsSetup, ServicePackThatFails_IsReported) {
  const auto path = PathWithWine("echo wrong language\nexit 3\n");
  const Outcome outcome = BuildEverything(ServicePack(), {.environment = {path}});
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, AllOf(HasSubstr("warning: \"" + (place / "commands" / "wine").string() + "\" \""),
                                 HasSubstr("wrong language")));
}

TEST_F(WindowsSetup, NoWine_IsReportedAndTheBuildGoesOnWithoutTheServicePack) {
  const Outcome outcome = BuildEverything(ServicePack(), {.environment = {{"PATH", place.path().string()}}});
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, HasSubstr("Can't Slipstream Service Pack: "));
  EXPECT_EQ(discs.DifferenceToImage(image, program.folder()), "");
}

TEST_F(WindowsSetup, ServicePackThatIsNoWindowsProgram_IsReportedAndNothingIsStarted) {
  const auto path = PathWithWine(": > '" + (place / "begun").string() + "'\n");
  const std::vector<std::string> choices = ServicePack();
  WriteFile(place / "my packs" / "Pack 1.exe", "PK");
  const Outcome outcome = BuildEverything(choices, {.environment = {path}});
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, HasSubstr((place / "my packs" / "Pack 1.exe").string() + " is not a Windows program"));
  EXPECT_FALSE(fs::exists(place / "begun"));
  EXPECT_EQ(discs.DifferenceToImage(image, program.folder()), "");
}

TEST_F(WindowsSetup, CtrlCDuringTheServicePack_EndsTheBuildAfterIt) {
  const auto path = PathWithWine(": > '" + (place / "begun").string() + "'\nwhile [ ! -e '" +
                                 (place / "go on").string() + "' ]; do sleep 0.05; done\n");
  RunningProgram build(Command(Join(discs.Choices(), ServicePack())), {.environment = {path}});
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(place / "begun"); }));
  build.Send(SIGINT);
  WriteFile(place / "go on", "");
  const Outcome outcome = build.Wait();
  EXPECT_EQ(outcome.exit_code, 130) << outcome.err;
  EXPECT_TRUE(NoImageAt(image));
  ExpectNextBuildIsWhole();
}

TEST_F(WindowsSetup, ToolWithoutItsLoader_IsReportedAndTheBuildGoesOn) {
  fs::remove(discs.folder() / "erd/I386/SETUPLDR.BIN");
  discs.Remember();
  const Outcome outcome = BuildEverything();
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, HasSubstr("SETUPLDR.BIN: is missing"));
  EXPECT_TRUE(ReadWithBsdtar(image).contains("ERDC/TXTSETUP.SIF"));
}

TEST_F(WindowsSetup, SetupFolderWithoutItsLoader_IsRefusedByItsPage) {
  fs::remove(discs.folder() / "xp/I386/SETUPLDR.BIN");
  discs.Remember();
  const Outcome outcome = BuildEverything();
  EXPECT_EQ(outcome.exit_code, 3);
  EXPECT_THAT(outcome.err, HasSubstr("doesn't contain a Windows 2000/XP installation"));
  EXPECT_FALSE(fs::exists(program / "vexacd"));
}

// A file that can be opened but not read, as on a scratched disc.
TEST_F(WindowsSetup, UnreadableCabinetInTheMiddle_IsReportedAndTheBuildGoesOn) {
  for (const char* cabinet : {"xp/I386/DRIVER.CAB", "98/BASE5.CAB"}) {
    const fs::path file = discs.folder() / cabinet;
    const std::string bytes = ReadFile(file);
    fs::remove(file);
    fs::create_symlink("/proc/self/mem", file);
    discs.Remember();
    const Outcome outcome = BuildEverything();
    EXPECT_EQ(outcome.exit_code, 4);
    EXPECT_THAT(outcome.err, HasSubstr("warning: " + file.string() + ": could not be copied"));
    EXPECT_EQ(Fingerprint(discs.folder()), discs.fingerprint());
    fs::remove(file);
    WriteFile(file, bytes);
    discs.Remember();
    ExpectNextBuildIsWhole();
  }
}

TEST_F(WindowsSetup, SetupFilesOfTwoGigabytes_EndTheBuildWithTheirBox) {
  const std::vector<std::pair<std::string, std::string>> steps = {{"xp/I386", "Windows 2000/XP installation"},
                                                                  {"98", "Windows 98/Me installation"},
                                                                  {"erd", "Windows 2000/XP installation"}};
  for (const auto& [folder, what] : steps) {
    const fs::path large = discs.folder() / folder / "LARGE.CAB";
    WriteFile(large, "");
    fs::resize_file(large, 1ULL << 31U);  // a sparse file, which takes no disk space
    const Outcome outcome = BuildEverything();
    EXPECT_EQ(outcome.exit_code, 1);
    EXPECT_THAT(outcome.err,
                HasSubstr("Fatal Error: A fatal Error occured while integrating the " + what + ", operation halted"));
    EXPECT_TRUE(NoImageAt(image));
    fs::remove(large);
  }
  discs.Remember();
  ExpectNextBuildIsWhole();
}

TEST_F(WindowsSetup, MissingAnswerTemplate_EndsTheBuildWithItsBox) {
  fs::remove_all(program / "files" / "inf_files");
  const Outcome outcome = BuildEverything({"--set", "ChkWin2KInfo_Unattend=1"});
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_THAT(outcome.err, AllOf(HasSubstr("win2k_template.inf"),
                                 HasSubstr("Fatal Error: A fatal Error occured while integrating the Windows 2000/XP "
                                           "installation, operation halted")));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(WindowsSetup, MissingBootSectors_AreReported) {
  fs::remove_all(program / "files" / "bootsect");
  const Outcome outcome = BuildEverything();
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, AllOf(HasSubstr("w2ksect.bin"), HasSubstr("erdc.bin"), HasSubstr("oobc.bin")));
}

TEST_F(WindowsSetup, DiskFullInTheMiddleOfTheSetupFiles_IsReportedAndTheNextBuildWorks) {
  const SmallDisk disk(place / "disk", 256 * kMegabyte);
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  const ProgramCopy on_disk(place / "disk" / "program");
  WriteFile(discs.folder() / "xp/I386/LARGE.CAB", std::string(20 * kMegabyte, 'l'));
  discs.Remember();
  disk.FillUpTo(15 * kMegabyte);  // the boot disks take 6 MB
  const Outcome full = on_disk.Build(Join(Output(image), discs.Choices()));
  EXPECT_THAT(full.exit_code, ::testing::AnyOf(1, 4)) << full.err;
  EXPECT_THAT(full.err, HasSubstr("warning: " + (discs.folder() / "xp/I386/LARGE.CAB").string() + ": "));
  EXPECT_THAT(full.err, HasSubstr("No space left on device"));
  fs::remove(place / "disk" / "filler");
  const Outcome outcome = on_disk.Build(Join(Output(image), discs.Choices()));
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_TRUE(ReadWithBsdtar(image).contains("I386/LARGE.CAB"));
}

}  // namespace discwright::testing
