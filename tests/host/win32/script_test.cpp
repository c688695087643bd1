// Tests of generated batch files. The real command interpreter runs them.
#include "host/script.h"

#include <gmock/gmock.h>
#include <windows.h>

#include "host/files.h"
#include "host/names.h"
#include "host/processes.h"
#include "host/system.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::HasSubstr;
using testing::TempFolder;

std::vector<std::string> AwkwardNames() {
  return {"plain",   "with blank", "it's",   "100%",      "%PATH%", "a & b", "semi;colon", "comma,",
          "equals=", "(x86)",      "caret^", "!history!", "-dash",  "Größe", "@at",        "~tilde~1"};
}

// Runs a script of the prologue and `commands`.
void RunScript(const TempFolder& folder, std::string_view script_folder, const std::string& commands) {
  std::string text;
  for (const std::string& line : ScriptPrologue(script_folder)) text.append(line).append(ScriptLineEnd());
  const std::string bytes = ScriptBytes(text + commands + std::string(ScriptLineEnd())).value;
  folder.Write("script.bat", bytes);
  const auto runner = SystemProgramRunner();
  const auto launcher = runner->CreateLauncher([] {});
  bool has_ended = false;
  launcher->process_ended = [&] { has_ended = true; };
  ASSERT_TRUE(launcher->Start(folder.Core("script.bat")).ok());
  for (int i = 0; i < 6000 && !has_ended; ++i) {
    Sleep(10);
    launcher->Deliver();
  }
  EXPECT_TRUE(has_ended);
}

TEST(ScriptPrologue, PlainFolder_GivesItsThreeLinesInLowerCase) {
  const auto lines = ScriptPrologue("C:\\NoWhere\\Program");
  EXPECT_EQ(lines[0], "@echo off");
  EXPECT_EQ(lines[1], "C:");
  EXPECT_EQ(lines[2], "cd c:\\nowhere\\program");
}

TEST(ScriptPrologue, FolderOnAnotherComputer_IsGivenADrive) {
  EXPECT_EQ(ScriptPrologue("\\\\server\\share\\disc")[2], "pushd \\\\server\\share\\disc");
}

TEST(ScriptPrologue, AwkwardFolders_BecomeTheCurrentFolderOfTheShell) {
  for (const std::string& name : AwkwardNames()) {
    const TempFolder folder;
    ASSERT_TRUE(MakeFolders(folder.Core(name)).ok()) << name;
    RunScript(folder, folder.Core(name), "echo here > marker");
    EXPECT_TRUE(CheckReadable(folder.Core(name) + "\\marker").ok())
        << name << ": " << ScriptPrologue(folder.Core(name))[2];
    EXPECT_EQ(folder.Names().size(), 2u) << name;
  }
}

TEST(ScriptPath, FolderThatHasAShortName_IsGivenByIt) {
  const TempFolder folder;
  folder.MakeFolder("A Long Folder Name");
  const std::string short_path = ShortPath(folder.Core("A Long Folder Name"));
  if (short_path.find(' ') != short_path.npos) GTEST_SKIP() << "this volume keeps no short names";
  EXPECT_EQ(ScriptPath(folder.Core("A Long Folder Name")), FoldCase(short_path));
  EXPECT_EQ(ScriptPath(folder.Core("A Long Folder Name\\New.ISO")), FoldCase(short_path) + "\\new.iso");
  EXPECT_EQ(ScriptPath(folder.Core("A Long Folder Name\\A New.ISO")), '"' + FoldCase(short_path) + "\\a new.iso\"");
}

TEST(ScriptPath, NewFileInAFolderThatIsNotThere_IsAsGivenInLowerCase) {
  EXPECT_EQ(ScriptPath("C:\\NoWhere\\Images\\New.ISO"), "c:\\nowhere\\images\\new.iso");
  EXPECT_EQ(ScriptPath("C:\\No Where\\New.ISO"), "\"c:\\no where\\new.iso\"");
  EXPECT_EQ(ScriptPath("C:\\NoWhere\\100%.iso"), "\"c:\\nowhere\\100%%.iso\"");
}

TEST(ScriptPath, NewFileInTheRootOfADrive_KeepsOneBackslash) { EXPECT_EQ(ScriptPath("C:\\New.ISO"), "c:\\new.iso"); }

TEST(ScriptPath, Quotes_AreDropped) { EXPECT_EQ(ScriptPath("\"C:\\NoWhere\\a\".iso"), "c:\\nowhere\\a.iso"); }

TEST(ScriptPath, SlashesAndRelativePaths_AreMadeAbsolute) {
  EXPECT_EQ(ScriptPath("C:/NoWhere/a.iso"), "c:\\nowhere\\a.iso");
  EXPECT_EQ(ScriptPath("new.iso"), ScriptPath(CurrentFolder() + "\\new.iso"));
}

TEST(ScriptPath, AwkwardPaths_AreOneArgumentOfTheShell) {
  for (const std::string& name : AwkwardNames()) {
    const TempFolder folder;
    const std::string image = folder.Core(name + ".iso");
    RunScript(folder, folder.Core(), "echo made > " + ScriptPath(image));
    EXPECT_TRUE(CheckReadable(image).ok()) << name << ": " << ScriptPath(image);
    EXPECT_EQ(folder.Names().size(), 2u) << name;
  }
}

TEST(ScriptProgram, Program_IsCalledByItsName) {
  EXPECT_EQ(ScriptProgram("mkisofs.exe"), "mkisofs.exe");
  EXPECT_EQ(ScriptProgram("my tool.exe"), "\"my tool.exe\"");
}

TEST(ScriptBytes, TextBeyondAscii_IsInTheCodePageThatShellsRead) {
  if (GetOEMCP() != 437 && GetOEMCP() != 850) GTEST_SKIP() << "this Windows has another code page";
  const std::string bytes = ScriptBytes("cd c:\\größe\r\n").value;
  EXPECT_EQ(bytes,
            "cd c:\\gr\x94\xE1"
            "e\r\n");
}

TEST(ScriptBytes, NameThatTheCodePageLacks_IsRefusedAndNotReplaced) {
  const Result<std::string> bytes = ScriptBytes(ScriptPath("C:\\\u65E5\u672C.iso"));
  EXPECT_THAT(bytes.status.cause, HasSubstr("code page"));
  EXPECT_EQ(bytes.value, "");
}

TEST(ScriptLineEnd, IsThatOfTheSystem) { EXPECT_EQ(ScriptLineEnd(), "\r\n"); }

}  // namespace
}  // namespace discwright::host
