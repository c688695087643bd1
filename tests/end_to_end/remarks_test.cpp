// Tests of remarks, which do not stop a build, and of suggestions for misspelled names of controls.
#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

using ::testing::ElementsAre;

class Remarks : public BuildTest {
 protected:
  // Runs a build that must succeed, with --quiet, so that standard error has nothing but remarks. Returns its lines.
  std::vector<std::string> RemarksOf(const std::vector<std::string>& arguments, int exit_code = 0) const {
    const Outcome outcome = Build(Join({"--quiet"}, arguments));
    EXPECT_EQ(outcome.exit_code, exit_code) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(fs::exists(image));
    return LinesWith(outcome.err, "");
  }
  // Runs a call with a name that no control has. Returns the sentence of the failure.
  std::string Suggestion(const std::string& control) const {
    const Outcome outcome = Build({"--set", control + "=1"});
    EXPECT_EQ(outcome.exit_code, 2);
    EXPECT_TRUE(NoImageAt(image));
    EXPECT_FALSE(fs::exists(program / "vexacd"));
    return outcome.err;
  }
  static std::string Refused(const std::string& sentence) {
    return "discwright-build: --set: " + sentence + "\nTry 'discwright-build --help'.\n";
  }
  fs::path Xp() const {
    WriteFile(place / "xp" / "I386" / "SETUPLDR.BIN", "i386");
    return place / "xp" / "I386";
  }
};

}  // namespace

TEST_F(Remarks, ChoicesWithoutEffect_AreRemarkedOnAndTheImageIsMade) {
  EXPECT_THAT(
      RemarksOf({"--set", "TxtUtils_Loc=/nowhere", "--set", "ChkERDC=1"}),
      ElementsAre("remark: TxtUtils_Loc has no effect, because ChkVexaUtils is 0: set ChkVexaUtils=1 to use it.",
                  "remark: ChkERDC has no effect, because ChkGet_Advtools is 0: set ChkGet_Advtools=1 to use "
                  "it."));
}

TEST_F(Remarks, AdditionalFileThatReplacesOneOfTheCd_IsRemarkedOnAndIsOnTheCd) {
  WriteFile(place / "more" / "boot" / "Scripts" / "MAIN.CDS", "Show my own menu\n");
  EXPECT_THAT(RemarksOf({"--set", "ChkAddFiles=1", "--set", "TxtAddFiles_Loc=" + (place / "more").string()}),
              ElementsAre("remark: " + (place / "more" / "boot" / "Scripts" / "MAIN.CDS").string() +
                          ": replaces the file of the same name that is already on the CD"));
  EXPECT_EQ(ReadWithBsdtar(image).at("boot/scripts/main.cds"), ContentsOf(place / "more").at("boot/Scripts/MAIN.CDS"));
}

TEST_F(Remarks, FileThatTheBootFilesHide_IsNoted) {
  WriteFile(place / "utils" / "loader.bin", "mine");
  WriteFile(place / "utils" / "readme.txt", "read me");
  const std::vector<std::string> lines =
      RemarksOf({"--set", "ChkVexaUtils=1", "--set", "TxtUtils_Loc=" + (place / "utils").string()}, 4);
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_THAT(lines[0], HasSubstr("vexacd/vexa/loader.bin: will not be visible on the CD"));
  const Contents disc = ReadWithBsdtar(image);
  EXPECT_TRUE(disc.contains("vexa/readme.txt"));
  EXPECT_FALSE(disc.contains("vexa/loader.bin"));
}

TEST_F(Remarks, AnswersWithoutTheirSystem_AreReported) {
  EXPECT_THAT(
      RemarksOf({"--set", "FrmWin9xInfo.TxtOwner=Ann"}),
      ElementsAre("remark: FrmWin9xInfo.TxtOwner has no effect, because ChkGet_Win9x is 0: set ChkGet_Win9x=1 to "
                  "use it.",
                  "remark: FrmWin9xInfo.TxtOwner has no effect, because ChkWin9xInfo_Assis and ChkWin9xInfo_MSBatch "
                  "are 0: set one of them to 1 to use it."));
}

TEST_F(Remarks, ToolsPasswordAndBootDisks_AreReported) {
  EXPECT_THAT(
      RemarksOf({"--set", "ChkGet_Advtools=1", "--set", "ChkPassProtect=1", "--set", "ChkGet_Vexadisks=0"}),
      ElementsAre("remark: ChkGet_Vexadisks stays 1: the boot disks are part of every CD.",
                  "remark: ChkGet_Advtools is 1, but ChkERDC and ChkBCon are 0: no tool is added to the CD.",
                  "remark: ChkPassProtect is 1, but no password was given: the boot menu accepts an empty one."));
}

TEST_F(Remarks, HotfixesAndDomain_AreReported) {
  const std::vector<std::string> xp = {"--set", "ChkGet_Win2k=1",      "--set", "Txt_i386_Loc=" + Xp().string(),
                                       "--set", "ChkWin2KInfo_Assis=1"};
  EXPECT_THAT(RemarksOf(Join(xp, {"--set", "ChkHotfix=1", "--set", "OptJoinDomain=True"})),
              ElementsAre("remark: ChkHotfix has no effect, because this version integrates no hotfixes.",
                          "remark: OptJoinDomain has no effect, because Setup gets the name as that of a workgroup."));
}

TEST_F(Remarks, NameThatSetupRefuses_IsReported) {
  const std::vector<std::string> xp = {"--set", "ChkGet_Win2k=1",      "--set", "Txt_i386_Loc=" + Xp().string(),
                                       "--set", "ChkWin2KInfo_Assis=1"};
  EXPECT_THAT(RemarksOf(Join(xp, {"--set", "FrmWin2KInfo.TxtPCName=MY OLD PC"})),
              ElementsAre("remark: FrmWin2KInfo.TxtPCName: the computer name 'MY OLD PC' contains a blank"));
}

TEST_F(Remarks, AnswersOfAnEarlierBuild_AreReported) {
  const std::vector<std::string> xp = {"--set", "ChkGet_Win2k=1",         "--set", "Txt_i386_Loc=" + Xp().string(),
                                       "--set", "ChkWin2KInfo_Unattend=1"};
  EXPECT_THAT(RemarksOf(Join(xp, {"--set", "FrmWin2KInfo.TxtOwner=Ann"})), IsEmpty());
  EXPECT_THAT(RemarksOf(xp), ElementsAre("remark: Windows 2000/XP/2003 Setup gets the answers of an earlier "
                                         "build, from " +
                                         (program / "keyfile2.txt").string() + "."));
  EXPECT_THAT(ReadFile(program / "vexacd" / "I386" / "WINNT.SIF"), HasSubstr("Ann"));
}

TEST_F(Remarks, BoxesOfAGivenSession_AreRemarkedOnAndThoseOfTheProgramsOwnAreNot) {
  const std::string session = "[Main]\r\nCleanSession = 0\r\n[AdvTools]\r\nAdd_ERDCmdr = 1\r\n";
  WriteFile(place / "my.ini", session);
  EXPECT_THAT(RemarksOf({"--session", (place / "my.ini").string()}),
              ElementsAre("remark: ChkERDC has no effect, because ChkGet_Advtools is 0: set ChkGet_Advtools=1 to use "
                          "it."));
  WriteFile(program / "vexacd.ini", session);
  EXPECT_THAT(RemarksOf({}), IsEmpty());
}

TEST_F(Remarks, BesideWarnings_DoNotChangeTheExitCode) {
  WriteFile(place / "tools" / ".hidden" / "a.txt", "a");
  WriteFile(place / "tools" / "b.txt", "b");
  const auto lines = RemarksOf(Join(Utilities(place / "tools"), {"--set", "ChkERDC=1"}), 4);
  ASSERT_THAT(lines, SizeIs(3));
  EXPECT_THAT(lines[0], ::testing::StartsWith("remark: ChkERDC has no effect"));
  EXPECT_THAT(lines[1], ::testing::StartsWith("warning: " + (place / "tools" / ".hidden").string() + ": "));
  EXPECT_EQ(lines[2], "The image was made, with 1 warning (see above).");
}

TEST_F(Remarks, MisspelledControl_IsReportedWithTheLikelyName) {
  EXPECT_EQ(Suggestion("ChkVexaUtil"),
            Refused("there is no control ChkVexaUtil; did you mean ChkVexaUtils (Vexa Utilities)?"));
  EXPECT_EQ(Suggestion("OptimizeISO"), Refused("there is no control OptimizeISO; did you mean ChkOptimizeISO (Optimize "
                                               "the ISO file size by encoding duplicate files)?"));
  EXPECT_EQ(Suggestion("additional files"),
            Refused("there is no control additional files; did you mean ChkAddFiles (Additional Files)?"));
  EXPECT_EQ(Suggestion("Rumpelstiltskin"), Refused("there is no control Rumpelstiltskin"));
  EXPECT_EQ(Suggestion("TxtOwner"), Refused("two windows have a control TxtOwner; write FrmWin2KInfo.TxtOwner or "
                                            "FrmWin9xInfo.TxtOwner"));
}

}  // namespace discwright::testing
