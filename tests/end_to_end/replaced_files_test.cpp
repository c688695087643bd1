// Tests of the files that a build may replace: disc images always, other files only with --force.
#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

class ReplacedFiles : public BuildTest {
 protected:
  // Expects that a call is refused as wrong usage with one sentence, and changes no file.
  void ExpectRefused(const std::vector<std::string>& arguments, const std::string& why,
                     const Surroundings& surroundings = {}) const {
    const auto before = Fingerprint(place.path());
    const Outcome outcome = program.Build(arguments, surroundings);
    EXPECT_EQ(outcome.exit_code, 2) << ::testing::PrintToString(arguments);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "discwright-build: " + why + "\n" + kTryHelp);
    EXPECT_TRUE(WithoutProgramFolder(Fingerprint(place.path())) == WithoutProgramFolder(before)) << why;
    EXPECT_FALSE(fs::exists(program / "vexacd"));
  }
  void ExpectHoldsSomethingElse(const fs::path& file) const {
    ExpectRefused(Output(file), file.string() +
                                    " is a file of another kind: choose another name, or add --force to "
                                    "replace it");
  }
  // Expects a refusal with and without --force. `shown` is the name of the file as the disk spells it.
  void ExpectNeeded(const fs::path& file, const std::vector<std::string>& choices, const fs::path& shown) const {
    for (const auto& force : {std::vector<std::string>{}, {"--force"}}) {
      ExpectRefused(Join(Output(file), choices, force),
                    shown.string() + " is a file that this run needs: choose another name");
    }
  }
  void ExpectMade(const fs::path& file, const std::vector<std::string>& more = {}) const {
    const Outcome outcome = program.Build(Join(Output(file), more));
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_TRUE(ReadWithBsdtar(file).contains("boot/images/vexastart.img"));
  }

  fs::path Session() const {
    WriteFile(place / "my.ini", "[Main]\r\nCleanSession = 1\r\n");
    return place / "my.ini";
  }

 private:
  // Two differences are allowed: the test for write access changes the times of the folder, and a session its answers.
  std::map<std::string, std::string> WithoutProgramFolder(std::map<std::string, std::string> facts) const {
    facts.erase(program.folder().string());
    facts.erase((program / "keyfile2.txt").string());
    return facts;
  }
};

}  // namespace

TEST_F(ReplacedFiles, TextAtTheImagesPlace_IsRefusedAndStays) {
  WriteFile(place / "notes.txt", "many years of work");
  ExpectHoldsSomethingElse(place / "notes.txt");
}

// Files that almost look like a disc image: one byte too short, the mark one byte too early, another mark.
TEST_F(ReplacedFiles, NearlyADiscImageAtThePlace_IsRefusedAndStays) {
  for (const std::string& content : {std::string(32769, 'x') + "CD00", std::string(32768, 'x') + "CD001 and more",
                                     std::string(32769, 'x') + "CD002 and more", std::string("CD001")}) {
    WriteFile(place / "nearly.iso", content);
    ExpectHoldsSomethingElse(place / "nearly.iso");
  }
}

TEST_F(ReplacedFiles, TextReachedThroughALink_IsRefusedAndStays) {
  WriteFile(place / "notes.txt", "many years of work");
  fs::create_symlink(place / "notes.txt", place / "link.iso");
  ExpectHoldsSomethingElse(place / "link.iso");
}

TEST_F(ReplacedFiles, TextAtThePlaceWithForce_IsReplaced) {
  WriteFile(place / "notes.txt", "of no use");
  ExpectMade(place / "notes.txt", {"--force"});
}

TEST_F(ReplacedFiles, EmptyFileOrDiscImageAtThePlace_IsReplacedUnasked) {
  WriteFile(place / "empty.iso", "");
  ExpectMade(place / "empty.iso");
  WriteFile(place / "older.iso", OlderImage());
  ExpectMade(place / "older.iso");
  WriteFile(place / "shortest.iso", std::string(32769, '\0') + "CD001");
  ExpectMade(place / "shortest.iso");
}

TEST_F(ReplacedFiles, ImageOntoTheSession_IsRefusedHoweverItIsWritten) {
  const fs::path session = Session();
  fs::create_symlink(session, place / "link.iso");
  fs::create_hard_link(session, place / "second name.iso");
  fs::create_symlink(place.path(), place / "folder link");
  const std::vector<std::string> choices = {"--session", session.string()};
  for (const fs::path& written :
       {session, place / "link.iso", place / "second name.iso", place / "folder link" / "my.ini"}) {
    ExpectNeeded(written, choices, written);
  }
  ExpectNeeded(place / "MY.INI", choices, session);
}

TEST_F(ReplacedFiles, ImageOntoThePasswordFile_IsRefusedHoweverItIsWritten) {
  WriteFile(place / "secret", "top-secret\n");
  fs::create_symlink(place / "secret", place / "link.iso");
  const std::vector<std::string> choices = {"--password-file", (place / "secret").string()};
  for (const fs::path& written : {place / "secret", place / "link.iso"}) ExpectNeeded(written, choices, written);
  ExpectNeeded(place / "SECRET", choices, place / "secret");
}

// The program refuses these names even when no such files exist, because the build makes them later.
TEST_F(ReplacedFiles, ImageOntoAFileOfTheProgramItself_IsRefusedWhetherItIsThereOrNot) {
  for (const char* name : {"keyfile.txt", "keyfile2.txt", "vexacd.ini", "KeyFile2.TXT"}) {
    ExpectNeeded(program / name, {}, program / name);
  }
  const std::string answers = "[Win9xInfo]\r\nOwnerName=Ann\r\n";
  WriteFile(program / "keyfile.txt", answers);
  WriteFile(program / "keyfile2.txt", answers);
  for (const char* name : {"keyfile.txt", "keyfile2.txt"}) ExpectNeeded(program / name, {}, program / name);
  ExpectNeeded(program / "KEYFILE2.txt", {}, program / "keyfile2.txt");
  EXPECT_EQ(ReadFile(program / "keyfile2.txt"), answers);
}

TEST_F(ReplacedFiles, AnswersGivenInARefusedRun_AreNotKeptForTheNext) {
  WriteFile(place / "notes.txt", "many years of work");
  ExpectRefused(
      Join(Output(place / "notes.txt"), {"--set", "ChkWin9xInfo_MSBatch=1", "--set", "FrmWin9xInfo.TxtOwner=Ann"}),
      (place / "notes.txt").string() +
          " is a file of another kind: choose another name, or add "
          "--force to replace it");
  EXPECT_FALSE(fs::exists(program / "keyfile2.txt"));
}

TEST_F(ReplacedFiles, PasswordFromStandardInput_IsNoFileThatAnImageCouldReplace) {
  fs::create_directories(place / "work");
  const Outcome outcome = program.Build({"-o", "./-", "--password-file", "-"},
                                        {.working_folder = place / "work", .standard_input = "top-secret\n"});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_TRUE(ReadWithBsdtar(place / "work" / "-").contains("boot/images/vexastart.img"));
}

TEST_F(ReplacedFiles, WorkingFolderAsTheImage_IsCalledAFolder) {
  const Outcome outcome = program.Build({"-o", "."}, {.working_folder = place.path()});
  EXPECT_EQ(outcome.exit_code, 3);
  EXPECT_THAT(outcome.err,
              HasSubstr("TxtISOLoc: " + place.path().string() + " is a folder: add the name of the image."));
}

}  // namespace discwright::testing
