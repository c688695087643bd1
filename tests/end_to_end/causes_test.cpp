// Tests of the cause that is printed when a page refuses its choices, and of the spelling of paths in messages.
#include "tests/end_to_end/build_test.h"
#include "tests/end_to_end/left_files.h"

namespace discwright::testing {

namespace {

class Causes : public BuildTest {
 protected:
  void SetUp() override {
    WriteFile(place / "file", "a file");
    fs::create_directories(place / "empty");
    WriteFile(place / "other" / "a.txt", "something else");
    WriteFile(place / "xp cd" / "I386" / "SETUPLDR.BIN", "loader");
    WriteFile(place / "98 cd" / "WIN98" / "mini.cab", "cabinet");
    WriteFile(place / "erd cd" / "I386" / "SYSTEM32" / "CONFIG" / "SOFTWARE", "hive");
    WriteFile(place / "bluecon cd" / "I386" / "SYSTEM32" / "OOBCXXL.EXE", "tool");
  }
  std::string At(const std::string& name) const { return (place / name).string(); }

  // Expects that a page refuses `text` in a field, prints message and cause, and writes nothing.
  void ExpectRefused(const std::vector<std::string>& boxes, const std::string& field, const std::string& text,
                     const std::string& message, const std::string& cause, const std::string& page) const {
    std::vector<std::string> arguments = {"--set", field + "=" + text};
    for (const std::string& box : boxes) arguments = Join(arguments, {"--set", box + "=1"});
    const Outcome outcome = Build(arguments);
    EXPECT_EQ(outcome.exit_code, 3) << text;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "Error: " + message + "\n" + field + ": " + cause + "\nThe page \"" + page +
                               "\" did not accept its choices.\n");
    EXPECT_TRUE(NoImageAt(image));
    EXPECT_FALSE(fs::exists(program / "vexacd"));
  }
  // The causes that every field for a folder has.
  void ExpectFolderRefused(const std::vector<std::string>& boxes, const std::string& field, const std::string& message,
                           const std::string& page) const {
    const auto refused = [&](const std::string& text, const std::string& cause) {
      ExpectRefused(boxes, field, text, message, cause, page);
    };
    refused(At("missing"), At("missing") + " does not exist.");
    refused(At("file"), At("file") + " is a file: enter a folder.");
    refused("~/discs", "~/discs begins with \"~\", which is not expanded: write the whole path.");
    refused("\"" + At("other") + "\"", "\"" + At("other") +
                                           "\" has quotation marks, which count as part of the name: leave them "
                                           "out.");
  }
};

}  // namespace

TEST_F(Causes, SourceOfWindows2000) {
  const std::vector<std::string> boxes = {"ChkGet_Win2k"};
  const std::string message =
      "The selected folder doesn't contain a Windows 2000/XP installation !\nSelect your Windows setup source "
      "Directory";
  const std::string page = "Add Windows 2000/XP/2003 Setup (1)";
  ExpectFolderRefused(boxes, "Txt_i386_Loc", message, page);
  ExpectRefused(boxes, "Txt_i386_Loc", At("empty"), message, At("empty") + " is empty.", page);
  ExpectRefused(boxes, "Txt_i386_Loc", At("other"), message, "There is no file " + At("other/setupldr.bin") + ".",
                page);
  ExpectRefused(boxes, "Txt_i386_Loc", At("xp cd"), message,
                At("xp cd") + " is the root of the CD: did you mean " + At("xp cd/I386") + "?", page);
}

TEST_F(Causes, ServicePack) {
  const std::vector<std::string> boxes = {"ChkGet_Win2k", "ChkSlipstream"};
  const std::string message =
      "The selected Service pack file is not correct !\nSelect your Windows Service pack EXE file";
  const std::string page = "Add Windows 2000/XP/2003 Setup (1)";
  const auto refused = [&](const std::string& text, const std::string& cause) {
    const Outcome outcome = Build({"--set", "ChkGet_Win2k=1", "--set", "Txt_i386_Loc=" + At("xp cd/I386"), "--set",
                                   "ChkSlipstream=1", "--set", "TxtSP_exe=" + text});
    EXPECT_EQ(outcome.exit_code, 3);
    EXPECT_EQ(outcome.err, "Error: " + message + "\nTxtSP_exe: " + cause + "\nThe page \"" + page +
                               "\" did not accept its choices.\n");
    EXPECT_FALSE(fs::exists(program / "vexacd"));
  };
  refused(At("missing.exe"), At("missing.exe") + " does not exist.");
  refused("\"" + At("missing.exe") + "\"", At("missing.exe") + " does not exist.");
  refused(At("other"), At("other") + " is not a file: enter the path of the installer.");
  refused("", "The field is empty: enter the file of the service pack.");
  refused("~/sp.exe", "~/sp.exe begins with \"~\", which is not expanded: write the whole path.");
}

TEST_F(Causes, SourceOfWindows98) {
  const std::vector<std::string> boxes = {"ChkGet_Win9x"};
  const std::string message =
      "The selected folder doesn't contain a Windows 98/Me installation !\nSelect your Windows setup source Directory";
  const std::string page = "Add Windows 98/98SE/Me Setup";
  ExpectFolderRefused(boxes, "TxtWin9x_Loc", message, page);
  ExpectRefused(boxes, "TxtWin9x_Loc", At("empty"), message, At("empty") + " is empty.", page);
  ExpectRefused(boxes, "TxtWin9x_Loc", At("98 cd"), message,
                At("98 cd") + " is the root of the CD: did you mean " + At("98 cd/WIN98") + "?", page);
}

TEST_F(Causes, ErdCommander) {
  const std::vector<std::string> boxes = {"ChkGet_Advtools", "ChkERDC"};
  const std::string message =
      "ERD Commander 2002/2003 doesn't seem to be located in the selected directory\n"
      "Select ERD Commader 2002/2003 location";
  ExpectFolderRefused(boxes, "TxtERDC", message, "Advanced Tools");
  ExpectRefused(boxes, "TxtERDC", At("empty"), message, At("empty") + " is empty.", "Advanced Tools");
  ExpectRefused(boxes, "TxtERDC", At("erd cd/I386"), message,
                At("erd cd/I386") + " is a folder of the CD: did you mean its root, " + At("erd cd") + "?",
                "Advanced Tools");
}

TEST_F(Causes, BlueCon) {
  const std::vector<std::string> boxes = {"ChkGet_Advtools", "ChkBCon"};
  const std::string message =
      "O&O Blue Con XXL doesn't seem to be located in the selected directory\nSelect Blue Con XXL location";
  ExpectFolderRefused(boxes, "TxtBCon", message, "Advanced Tools");
  ExpectRefused(boxes, "TxtBCon", At("empty"), message, At("empty") + " is empty.", "Advanced Tools");
  ExpectRefused(boxes, "TxtBCon", At("bluecon cd/I386/"), message,
                At("bluecon cd/I386") + " is a folder of the CD: did you mean its root, " + At("bluecon cd") + "?",
                "Advanced Tools");
}

TEST_F(Causes, UtilitiesAndAdditionalFiles) {
  const std::string page = "Vexa Utilities / Additional Files";
  ExpectFolderRefused({"ChkVexaUtils"}, "TxtUtils_Loc",
                      "The Vexa Utilities folder doesn't exist !\nSelect a valid Directory", page);
  ExpectFolderRefused({"ChkAddFiles"}, "TxtAddFiles_Loc",
                      "The Additional files folder doesn't exist !\nSelect a valid Directory", page);
}

TEST_F(Causes, PlaceOfTheImage) {
  const auto refused = [&](const std::vector<std::string>& arguments, const std::string& cause,
                           const std::string& more = "") {
    const Outcome outcome = program.Build(arguments);
    EXPECT_EQ(outcome.exit_code, 3);
    EXPECT_EQ(outcome.err, "Error: ISO File destination is not correct, check again\nTxtISOLoc: " + cause + "\n" +
                               more + "The page \"Specify ISO File Options\" did not accept its choices.\n");
    EXPECT_FALSE(fs::exists(program / "vexacd"));
  };
  refused({"--set", "TxtISOLoc="}, "The field is empty: enter the path of the image.",
          "Use -o FILE.iso to name the image file.\n");
  refused({"--set", "TxtISOLoc=~/cd.iso"}, "~/cd.iso begins with \"~\", which is not expanded: write the whole path.");
  refused({"-o", At("empty")}, At("empty") + " is a folder: add the name of the image.");
  refused({"-o", At("empty") + "/"}, At("empty") + " is a folder: add the name of the image.");
  refused({"-o", At("file/cd.iso")}, At("file") + " is not a folder: choose another place for the image.");
  refused({"-o", At("missing/cd.iso")},
          "The folder " + At("missing") + " does not exist: create it, or choose another place for the image.");
  refused({"-o", "/dev/null"}, "/dev/null is a device or a pipe: choose another name.");
  fs::create_symlink(place / "nowhere", place / "link.iso");
  refused({"-o", At("link.iso")},
          At("link.iso") + " is a link whose target is missing: remove it, or choose another name.");
}

TEST_F(Causes, PlaceThatABuildEmpties) {
  WriteLeftFile(program, "vexacd/mine/a.txt", "a");
  const Outcome outcome = Build(Utilities(program / "vexacd" / "mine"));
  EXPECT_EQ(outcome.exit_code, 3);
  EXPECT_EQ(outcome.err, "Error: The selected location is in " + (program / "vexacd").string() +
                             ", which every build empties !\nSelect a location outside of it\nTxtUtils_Loc: " +
                             (program / "vexacd" / "mine").string() +
                             " would be deleted.\nThe page \"Vexa Utilities / Additional Files\" did not accept its "
                             "choices.\n");
  EXPECT_EQ(ReadFile(program / "vexacd" / "mine" / "a.txt"), "a");
}

// A backslash in a message would be a path that is not spelled as on Linux.
TEST_F(Causes, MessagesOfFailedBuilds_HaveNoBackslashes) {
  const auto expect_none = [&](const std::string& what, const Outcome& outcome) {
    EXPECT_NE(outcome.exit_code, 0) << what;
    EXPECT_THAT(outcome.err, Not(HasSubstr("\\"))) << what;
    program.RestoreProgram("mkisofs");
    program.RestoreProgram("CreateDsk");
    fs::remove(image);
  };
  program.ReplaceProgram("mkisofs", "echo no luck >&2\nexit 3\n");
  expect_none("mastering fails", Build());
  WriteFile(image, OlderImage());
  program.ReplaceProgram("mkisofs", "exit 3\n");
  expect_none("mastering fails over an older image", Build());
  program.ReplaceProgram("mkisofs", "while [ \"$1\" != -output ]; do shift; done\nmkdir \"$2\"\n");
  const Outcome folder = Build();
  EXPECT_THAT(folder.err, Not(HasSubstr("\\")));
  fs::remove_all(image);
  program.ReplaceProgram("CreateDsk", "echo no disk >&2\nexit 1\n");
  expect_none("disk program fails", Build());
  fs::remove(program / "CreateDsk");
  const Outcome no_program = Build();
  EXPECT_THAT(no_program.err, Not(HasSubstr("\\")));
  fs::copy_file(fs::path(program / "dfl"), program / "CreateDsk", fs::copy_options::overwrite_existing);
  program.RestoreProgram("CreateDsk");
  fs::remove_all(program / "files" / "bootsect");
  fs::remove_all(program / "files" / "inf_files");
  WriteFile(place / "tools" / ".hidden" / "a.txt", "a");
  expect_none("nothing is there", Build(Join(Utilities(place / "tools"),
                                             {"--set", "ChkGet_Win2k=1", "--set", "Txt_i386_Loc=" + At("xp cd/I386"),
                                              "--set", "ChkWin2KInfo_Unattend=1"})));
  fs::remove_all(program / "files" / "vexacd");
  expect_none("no template", Build());
}

}  // namespace discwright::testing
