// Tests of session files: strict reading, saving with --save-session, and no overwriting of other files.
#include <sys/mount.h>

#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/small_disk.h"

namespace discwright::testing {

namespace {

const std::vector<std::pair<std::string, std::string>> kOldDate = {{"SOURCE_DATE_EPOCH", "1000000000"}};

class Sessions : public BuildTest {
 protected:
  // Expects that a call is refused as wrong usage with this message, and writes nothing.
  void ExpectRefused(const std::vector<std::string>& arguments, const std::string& why) const {
    const Outcome outcome = Build(arguments);
    EXPECT_EQ(outcome.exit_code, 2) << ::testing::PrintToString(arguments);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "discwright-build: " + why + "\n" + kTryHelp);
    EXPECT_TRUE(NoImageAt(image));
    EXPECT_FALSE(fs::exists(program / "vexacd"));
  }
  Outcome BuildOnOldDate(const std::vector<std::string>& arguments) const {
    return program.Build(arguments, {.environment = kOldDate});
  }
  void MakeTools(const std::string& name) const {
    WriteFile(place / name / ("of " + name + ".txt"), name);
    fs::last_write_time(place / name / ("of " + name + ".txt"), fs::file_time_type{});
  }
  fs::path kept = place / "kept choices.ini";
};

std::vector<std::string> Keep(const fs::path& file) { return {"--save-session", file.string()}; }

}  // namespace

TEST_F(Sessions, UnknownKeys_AreReportedWithTheirLines) {
  const fs::path session = place / "hand made.ini";
  WriteFile(session,
            "; by hand\r\n[Main]\r\nWindowsXP=1\r\nWindows2K=yes\r\n\r\nCleanSession 1\r\nCleanSession=1\r\n"
            "CleanSession=0\r\n[Mian]\r\nx=1\r\n[Main]\r\n");
  const std::string at = session.string() + ": line ";
  ExpectRefused({"--session", session},
                at + "3: there is no key WindowsXP in section [Main]; did you mean Windows2K?\n" +  //
                    at + "4: Windows2K takes 0 or 1, not 'yes'\n" +                                 //
                    at +
                    "6: 'CleanSession 1' is neither a section nor a key with a value; a comment begins with ';'\n" +
                    at + "8: the key CleanSession appears again; only the first one is read\n" +  //
                    at + "9: there is no section [Mian]; did you mean [Main]?\n" +                //
                    at + "11: section [Main] appears again; only the first one is read");
  EXPECT_FALSE(fs::exists(program / "keyfile2.txt"));
}

TEST_F(Sessions, NameOfTheSession_IsShownAsItWasWritten) {
  WriteFile(place / "s.ini", "[Main]\nCleanSession = 1\nWindows2K = yes\n");
  const Outcome outcome = program.Build({"--session", "s.ini"}, {.working_folder = place.path()});
  EXPECT_EQ(outcome.exit_code, 2);
  EXPECT_EQ(outcome.err,
            std::string("discwright-build: s.ini: line 3: Windows2K takes 0 or 1, not 'yes'\n") + kTryHelp);
}

// The program's own session file is not checked line by line, so an error in it does not stop a build.
TEST_F(Sessions, OwnSessionOfTheProgram_IsNotReadStrictly) {
  WriteFile(program / "vexacd.ini", "[Main]\r\nWindowsXP=1\r\nCleanSession=1\r\n");
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_FALSE(fs::exists(program / "vexacd"));
}

TEST_F(Sessions, KeptChoicesWithOneThingChanged_MakeTheSameImageButForThat) {
  for (const char* name : {"tools", "extra", "other"}) MakeTools(name);
  const fs::path second = place / "second.iso";
  const fs::path third = place / "third.iso";
  const Outcome first = BuildOnOldDate(Join(Output(image), Keep(kept), Utilities(place / "tools"),
                                            AdditionalFiles(place / "extra"), {"--set", "ChkGet_Vexanetplus=1"}));
  ASSERT_EQ(first.exit_code, 0) << first.err;
  ASSERT_EQ(BuildOnOldDate(Join(Output(second), {"--session", kept.string()})).exit_code, 0);
  EXPECT_TRUE(ReadFile(image) == ReadFile(second));
  const Outcome changed = BuildOnOldDate(
      Join(Output(third), {"--session", kept.string()}, {"--set", "TxtUtils_Loc=" + (place / "other").string()}));
  ASSERT_EQ(changed.exit_code, 0) << changed.err;
  Contents expected = ReadWithBsdtar(image);
  expected["vexa/of other.txt"] = ReadWithBsdtar(third).at("vexa/of other.txt");
  expected.erase("vexa/of tools.txt");
  EXPECT_EQ(Difference(expected, ReadWithBsdtar(third)), "");
}

TEST_F(Sessions, KeptChoices_HoldTheImagesPlaceAndPassTheStrictReading) {
  MakeTools("tools");
  ASSERT_EQ(Build(Join(Keep(kept), Utilities(place / "tools"))).exit_code, 0);
  EXPECT_THAT(ReadFile(kept), HasSubstr("ISOLocation    = " + image.string() + "\r\n"));
  fs::remove(image);
  const Outcome again = program.Build({"--session", kept.string()});
  EXPECT_EQ(again.exit_code, 0) << again.err;
  EXPECT_TRUE(ReadWithBsdtar(image).contains("vexa/of tools.txt"));
}

TEST_F(Sessions, KeptOverTheSessionItWasReadFrom_ChangesOnlyWhatWasChosen) {
  MakeTools("tools");
  ASSERT_EQ(Build(Join(Keep(kept), Utilities(place / "tools"))).exit_code, 0);
  std::string expected = ReadFile(kept);
  const std::string was = "OptimizeISO    = 0";
  ASSERT_THAT(expected, HasSubstr(was));
  expected.replace(expected.find(was), was.size(), "OptimizeISO    = 1");
  const Outcome outcome = program.Build(Join(Keep(kept), {"--session", kept.string(), "--set", "ChkOptimizeISO=1"}));
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_EQ(ReadFile(kept), expected);
}

TEST_F(Sessions, KeptOverAnOlderSession_ReplacesItUnasked) {
  WriteFile(kept, "[Main]\r\nCleanSession = 1\r\n");
  ASSERT_EQ(Build(Keep(kept)).exit_code, 0);
  EXPECT_THAT(ReadFile(kept), HasSubstr("CleanSession   = 0"));
}

TEST_F(Sessions, KeptOverAForeignFile_IsRefusedAndWithForceDone) {
  WriteFile(kept, "dear diary");
  ExpectRefused(Keep(kept), kept.string() +
                                " is a file of another kind: choose another name, or add "
                                "--force to replace it");
  EXPECT_EQ(ReadFile(kept), "dear diary");
  ASSERT_EQ(Build(Join(Keep(kept), {"--force"})).exit_code, 0);
  EXPECT_THAT(ReadFile(kept), HasSubstr("[Main]\r\nBootDisks      = 1\r\n"));
}

TEST_F(Sessions, KeptOverAFileThatTheRunNeeds_IsRefusedWithForceToo) {
  WriteFile(place / "secret", "top-secret\n");
  WriteFile(program / "keyfile2.txt", "[Win9xInfo]\r\nOwnerName=Ann\r\n");
  for (const fs::path& file : {place / "secret", program / "keyfile2.txt", program / "keyfile.txt"}) {
    for (const auto& force : {std::vector<std::string>{}, {"--force"}}) {
      const std::string before = ReadFile(file);
      ExpectRefused(Join(Keep(file), {"--password-file", (place / "secret").string()}, force),
                    file.string() + " is a file that this run needs: choose another name");
      EXPECT_EQ(ReadFile(file), before);
    }
  }
}

TEST_F(Sessions, KeptAtThePlaceOfTheImage_IsRefusedHoweverBothAreWritten) {
  const std::string why = image.string() + " is the name of the image: choose another name for the session";
  for (const auto& force : {std::vector<std::string>{}, {"--force"}}) ExpectRefused(Join(Keep(image), force), why);
  ExpectRefused(Keep(place / "RESCUE.ISO"),
                (place / "RESCUE.ISO").string() + " is the name of the image: choose another name for the session");
  fs::create_symlink(place.path(), place / "link");
  ExpectRefused(
      Keep(place / "link" / "rescue.iso"),
      (place / "link" / "rescue.iso").string() + " is the name of the image: choose another name for the session");
  const Outcome relative =
      program.Build(Join(Keep("rescue.iso"), {"--set", "TxtISOLoc=rescue.iso"}), {.working_folder = place.path()});
  EXPECT_EQ(relative.exit_code, 2);
  EXPECT_EQ(relative.err, "discwright-build: " + why + "\n" + kTryHelp);
  EXPECT_TRUE(NoImageAt(image));
  WriteFile(image, OlderImage());
  const Outcome over_an_image = Build(Join(Keep(image), {"--force"}));
  EXPECT_EQ(over_an_image.exit_code, 2);
  EXPECT_EQ(over_an_image.err, "discwright-build: " + why + "\n" + kTryHelp);
  EXPECT_TRUE(ReadFile(image) == OlderImage());
}

TEST_F(Sessions, FolderThatIsMissingOrAFolderItself_IsReportedAndNothingIsBuilt) {
  const std::vector<std::pair<fs::path, std::string>> places = {
      {place / "missing" / "kept.ini", "No such file or directory"}, {place.path(), "Is a directory"}};
  for (const auto& [file, cause] : places) {
    const Outcome outcome = Build(Keep(file));
    EXPECT_EQ(outcome.exit_code, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, file.string() + ": the choices could not be saved: " + cause + "\n");
    EXPECT_TRUE(NoImageAt(image));
    EXPECT_FALSE(fs::exists(program / "vexacd"));
  }
  EXPECT_FALSE(fs::exists(place / "missing"));
}

TEST_F(Sessions, FullOrReadOnlyDisk_IsReportedAndTheOldChoicesStay) {
  const SmallDisk disk(place / "disk", 1024 * 1024);
  if (!disk.IsMounted()) GTEST_SKIP() << disk.Reason();
  kept = place / "disk" / "kept.ini";
  WriteFile(kept, "[Main]\r\nCleanSession = 1\r\n");
  disk.FillUpTo(0);
  const auto expect_lost_nothing = [&](const std::string& cause) {
    const Outcome outcome = Build(Keep(kept));
    EXPECT_EQ(outcome.exit_code, 1);
    EXPECT_EQ(outcome.err, kept.string() + ": the choices could not be saved: " + cause + "\n");
    EXPECT_EQ(ReadFile(kept), "[Main]\r\nCleanSession = 1\r\n");
    EXPECT_THAT(PartsOf(kept), IsEmpty());
    EXPECT_TRUE(NoImageAt(image));
  };
  expect_lost_nothing("No space left on device");
  ASSERT_TRUE(disk.MakeReadOnly());
  expect_lost_nothing("Read-only file system");
}

TEST_F(Sessions, Password_IsNeverStoredInASession) {
  WriteFile(place / "secret", "top-secret\n");
  const Outcome outcome = Build(Join(Keep(kept), {"--password-file", (place / "secret").string()}));
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_THAT(ReadFile(kept), Not(HasSubstr("top-secret")));
  EXPECT_THAT(ReadFile(program / "vexacd.ini") + ReadFile(program / "keyfile2.txt"), Not(HasSubstr("top-secret")));
}

TEST_F(Sessions, ChoicesThatAPageRefuses_AreNotKept) {
  EXPECT_EQ(Build(Join(Keep(kept), Utilities(place / "missing"))).exit_code, 3);
  EXPECT_FALSE(fs::exists(kept));
}

TEST_F(Sessions, ServicePack_IsReportedAsNotKeptInTheSession) {
  WriteFile(place / "pack.exe", "MZ");
  WriteFile(place / "xp" / "I386" / "SETUPLDR.BIN", "i386");
  const Outcome outcome = Build(Join(
      Keep(kept), {"--quiet", "--set", "ChkGet_Win2k=1", "--set", "Txt_i386_Loc=" + (place / "xp" / "I386").string(),
                   "--set", "ChkSlipstream=1", "--set", "TxtSP_exe=" + (place / "pack.exe").string()}));
  EXPECT_THAT(LinesWith(outcome.err, "remark: "),
              ::testing::ElementsAre("remark: A session file cannot hold ChkSlipstream: add --set ChkSlipstream=1 when "
                                     "you use it."));
  EXPECT_THAT(ReadFile(kept), HasSubstr("SP_exe         = \"" + (place / "pack.exe").string() + "\"\r\n"));
}

TEST_F(Sessions, ChoiceLongerThanASessionHolds_IsWarnedOf) {
  const fs::path folder = place / std::string(120, 'l');
  WriteFile(folder / "a.txt", "a");
  const Outcome outcome = Build(Join(Keep(kept), Utilities(folder)));
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(LinesWith(outcome.err, "warning: "),
              ::testing::ElementsAre("warning: " + kept.string() +
                                     ": The value of VexaUtils_Dir in section Locations is longer than 99 characters; "
                                     "the rest will be ignored when the file is read."));
}

}  // namespace discwright::testing
