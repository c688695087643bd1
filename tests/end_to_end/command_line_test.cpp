// Tests of the options, exit codes and messages of discwright-build.
#include "tests/end_to_end/build_test.h"

namespace discwright::testing {

namespace {

using ::testing::AllOf;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

class CommandLine : public BuildTest {
 protected:
  void TearDown() override { EXPECT_THAT(PartsOf(image), IsEmpty()); }

  // Runs a call that must not build anything. Returns its standard error.
  std::string Refused(const std::vector<std::string>& arguments, int exit_code) const {
    const Outcome outcome = Build(arguments);
    EXPECT_EQ(outcome.exit_code, exit_code) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(NoImageAt(image));
    return outcome.err;
  }

  static std::string InUtf16(const std::string& ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char letter : ascii) bytes.append({letter, '\0'});
    return bytes;
  }

  std::string SessionText(const fs::path& utilities) const {
    return "[Main]\r\nBootDisks = 1\r\nISOLocation = \"" + image.string() +
           "\"\r\nCleanSession = 1\r\n[Locations]\r\nVexaUtils = \"1\"\r\nVexaUtils_Dir = \"" + utilities.string() +
           "\"\r\n";
  }
};

}  // namespace

TEST_F(CommandLine, ImageMade_PrintsPlaceSizeAndDigest) {
  const Outcome outcome = Build();
  EXPECT_EQ(outcome.exit_code, 0);
  const std::string digest = RunProgram({"sha256sum", image.string()}).out.substr(0, 64);
  EXPECT_EQ(outcome.out, "Image:   " + image.string() + "\nSize:    " + std::to_string(fs::file_size(image)) +
                             " bytes\nSHA-256: " + digest + "\n");
}

TEST_F(CommandLine, Quiet_PrintsNothingOnSuccess) {
  const Outcome outcome = Build({"--quiet"});
  EXPECT_EQ(outcome.exit_code, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(fs::exists(image));
}

TEST_F(CommandLine, QuietWithAWarning_StillPrintsTheWarning) {
  WriteFile(place / "utilities" / ".hidden" / "a.txt", "a");
  WriteFile(place / "utilities" / "b.txt", "b");
  const Outcome outcome = Build(Join({"--quiet"}, Utilities(place / "utilities")));
  EXPECT_EQ(outcome.exit_code, 4);
  EXPECT_THAT(outcome.err, HasSubstr("warning: " + (place / "utilities" / ".hidden").string()));
}

TEST_F(CommandLine, Help_NamesEveryOptionAndEndsWithoutABuild) {
  const Outcome outcome = Build({"--help"});
  EXPECT_EQ(outcome.exit_code, 0);
  EXPECT_EQ(outcome.err, "");
  for (const char* option :
       {"--session FILE", "--save-session FILE", "-o, --output FILE.iso", "--set CONTROL=VALUE", "--password-file FILE",
        "--controls [PAGE]", "--force", "--quiet", "--help", "--version"}) {
    EXPECT_THAT(outcome.out, HasSubstr(option));
  }
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(CommandLine, Version_IsOneLine) {
  const Outcome outcome = Build({"--version"});
  EXPECT_EQ(outcome.exit_code, 0);
  EXPECT_THAT(outcome.out, MatchesRegex("discwright-build [0-9]+\\.[0-9]+\\.[0-9]+\n"));
  EXPECT_TRUE(NoImageAt(image));
}

TEST_F(CommandLine, UnknownOption_IsWrongUsage) {
  EXPECT_THAT(Refused({"--unheard-of"}, 2), AllOf(HasSubstr("unknown option '--unheard-of'"), HasSubstr("--help")));
  EXPECT_THAT(Refused({"left over word"}, 2), HasSubstr("unknown option 'left over word'"));
  EXPECT_THAT(Refused({"--session"}, 2), HasSubstr("--session needs FILE"));
}

TEST_F(CommandLine, EmptyValue_IsWrongUsage) {
  EXPECT_THAT(Refused({"--password-file", ""}, 2), HasSubstr("--password-file needs FILE"));
  EXPECT_THAT(Refused({"--session="}, 2), HasSubstr("--session needs FILE"));
  EXPECT_THAT(Refused({"-o", ""}, 2), HasSubstr("-o needs FILE.iso"));
}

TEST_F(CommandLine, WrongAssignment_IsWrongUsage) {
  EXPECT_THAT(Refused({"--set", "ChkVexaUtils"}, 2), HasSubstr("--set needs CONTROL=VALUE, not 'ChkVexaUtils'"));
  EXPECT_THAT(Refused({"--set", "NoSuchThing=1"}, 2), HasSubstr("--set: there is no control NoSuchThing"));
  EXPECT_THAT(Refused({"--set", "ChkVexaUtils=yes"}, 2), HasSubstr("--set: ChkVexaUtils: "));
  EXPECT_THAT(Refused({"--set", "CmdNext=1"}, 2), HasSubstr("--set: CmdNext: "));
}

TEST_F(CommandLine, PasswordAmongTheArguments_IsWrongUsageAndNotRepeated) {
  for (const char* control : {"TxtPass1", "txtpass2", "FrmDiscwright.TxtPass1"}) {
    const std::string told = Refused({"--set", std::string(control) + "=top-secret"}, 2);
    EXPECT_THAT(told, HasSubstr("--password-file"));
    EXPECT_THAT(told, Not(HasSubstr("top-secret")));
  }
}

TEST_F(CommandLine, MissingSessionFile_IsWrongUsage) {
  const std::string session = (place / "no such session.ini").string();
  EXPECT_THAT(Refused({"--session", session}, 2), HasSubstr(session + ": there is no such session file"));
}

// If such a file were read as plain text, the CD would lack everything that was chosen.
TEST_F(CommandLine, FileThatHoldsNoSession_IsWrongUsage) {
  for (const fs::path& file : {place / "notes.txt", program / "vexacd.ini"}) {
    WriteFile(file, InUtf16(SessionText(place / "tools")));
    EXPECT_THAT(Refused({"--session", file.string()}, 2), HasSubstr(file.string() + ": no choice of a session"));
  }
  EXPECT_THAT(Refused({}, 2), HasSubstr((program / "vexacd.ini").string() + ": no choice of a session"));
}

TEST_F(CommandLine, PasswordFileInUtf16_IsWrongUsage) {
  const fs::path file = place / "password";
  WriteFile(file, InUtf16("top-secret\r\n"));
  EXPECT_THAT(Refused({"--password-file", file.string()}, 2), HasSubstr(file.string() + ": is Unicode text of two"));
}

TEST_F(CommandLine, MissingPasswordFile_IsWrongUsage) {
  const std::string file = (place / "no such file").string();
  EXPECT_THAT(Refused({"--password-file", file}, 2), HasSubstr(file + ": "));
}

TEST_F(CommandLine, PasswordFileWithoutAPassword_IsWrongUsage) {
  const fs::path file = place / "password";
  for (const char* content : {"", "\n", "\r\nsecond line\n"}) {
    WriteFile(file, content);
    EXPECT_THAT(Refused({"--password-file", file.string()}, 2), HasSubstr(file.string() + ": its first line is empty"));
  }
}

TEST_F(CommandLine, MissingUtilitiesFolder_IsRefusedByItsPage) {
  EXPECT_EQ(Refused(Utilities(place / "missing"), 3),
            "Error: The Vexa Utilities folder doesn't exist !\nSelect a valid Directory\nTxtUtils_Loc: " +
                (place / "missing").string() +
                " does not exist.\n"
                "The page \"Vexa Utilities / Additional Files\" did not accept its choices.\n");
}

TEST_F(CommandLine, MissingImageFolder_IsRefusedByItsPage) {
  const Outcome outcome = program.Build(Output(place / "missing" / "rescue.iso"));
  EXPECT_EQ(outcome.exit_code, 3);
  EXPECT_EQ(outcome.err, "Error: ISO File destination is not correct, check again\nTxtISOLoc: The folder " +
                             (place / "missing").string() +
                             " does not exist: create it, or choose another place for the image.\n"
                             "The page \"Specify ISO File Options\" did not accept its choices.\n");
  EXPECT_FALSE(fs::exists(place / "missing"));
  EXPECT_FALSE(fs::exists(program / "vexacd"));
}

TEST_F(CommandLine, ImagePlaceIsAFolderOrAPipe_IsRefusedByItsPage) {
  ASSERT_EQ(RunProgram({"mkfifo", (place / "pipe").string()}).exit_code, 0);
  EXPECT_EQ(program.Build(Output(place / "pipe")).exit_code, 3);
  EXPECT_EQ(program.Build(Output(place.path())).exit_code, 3);
}

TEST_F(CommandLine, AdvancedToolsWithoutATool_BuildTheRest) {
  const Outcome outcome = Build({"--set", "ChkGet_Advtools=1", "--set", "ChkERDC=0", "--set", "ChkBCon=0"});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
}

TEST_F(CommandLine, Password_IsTheFirstLineAndIsNeverShown) {
  WriteFile(place / "password", "top-secret\nsecond line\n");
  for (const std::string& file : {(place / "password").string(), std::string("-")}) {
    const Outcome outcome = Build({"--password-file", file}, {.standard_input = "top-secret\r\n"});
    EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
    EXPECT_THAT(ReadFile(program / "vexacd/boot/scripts/main.cds"), HasSubstr("Set PasswordString=\"top-secret\"\r\n"));
    EXPECT_THAT(outcome.err + outcome.out, Not(HasSubstr("top-secret")));
  }
}

TEST_F(CommandLine, PathWithBlanks_IsTakenFromAnAssignment) {
  WriteFile(place / "  two  blanks" / "a.txt", "a");
  const Outcome outcome = Build(Utilities(place / "  two  blanks"));
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_TRUE(ReadWithBsdtar(image).contains("vexa/a.txt"));
}

TEST_F(CommandLine, RelativePaths_AreBelowTheWorkingFolder) {
  WriteFile(place / "work" / "my tools" / "a.txt", "a");
  const Outcome outcome =
      program.Build(Join(Output("out.iso"), Utilities("my tools")), {.working_folder = place / "work"});
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_THAT(outcome.out, StartsWith("Image:   " + (place / "work" / "out.iso").string() + "\n"));
  EXPECT_TRUE(ReadWithBsdtar(place / "work" / "out.iso").contains("vexa/a.txt"));
}

TEST_F(CommandLine, SessionGiven_IsUsedAndNotChanged) {
  WriteFile(place / "tools" / "from the session.txt", "a");
  const fs::path session = place / "a session.ini";
  WriteFile(session, SessionText(place / "tools"));
  const auto before = Fingerprint(place / "tools");
  const Outcome outcome = program.Build({"--session=" + session.string()});
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_TRUE(ReadWithBsdtar(image).contains("vexa/from the session.txt"));
  EXPECT_EQ(ReadFile(session), SessionText(place / "tools"));
  EXPECT_FALSE(fs::exists(program / "vexacd.ini"));
}

TEST_F(CommandLine, SessionThatShipsAsAnExample_MakesItsCdInTheWorkingFolder) {
  fs::create_directories(place / "work");
  const Outcome outcome = program.Build({"--quiet", "--session", program / "files/sessions/example_session.ini"},
                                        {.working_folder = place / "work"});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(ReadWithBsdtar(place / "work" / "rescue_cd.iso").contains("boot/images/vexastart.img"));
}

TEST_F(CommandLine, NoSessionGiven_ReadsTheOneInTheProgramFolder) {
  WriteFile(place / "tools" / "from the session.txt", "a");
  WriteFile(program / "vexacd.ini", SessionText(place / "tools"));
  const Outcome outcome = program.Build({});
  ASSERT_EQ(outcome.exit_code, 0) << outcome.err;
  EXPECT_TRUE(ReadWithBsdtar(image).contains("vexa/from the session.txt"));
  EXPECT_EQ(ReadFile(program / "vexacd.ini"), SessionText(place / "tools"));
}

TEST_F(CommandLine, OptionsAndSession_OptionsWin) {
  WriteFile(place / "tools" / "from the session.txt", "a");
  WriteFile(place / "others" / "from the option.txt", "b");
  WriteFile(program / "vexacd.ini", SessionText(place / "tools"));
  const fs::path other_image = place / "other.iso";
  ASSERT_EQ(program.Build(Join(Output(other_image), Utilities(place / "others"))).exit_code, 0);
  EXPECT_TRUE(NoImageAt(image));
  const Contents disc = Below(ReadWithBsdtar(other_image), "vexa");
  ASSERT_THAT(disc, SizeIs(1));
  EXPECT_TRUE(disc.contains("from the option.txt"));
}

}  // namespace discwright::testing
