// Tests of generated scripts. The real shell runs them.
#include "host/script.h"

#include <gmock/gmock.h>

#include <cstdio>

#include "host/files.h"
#include "host/names.h"
#include "host/system.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

std::vector<std::string> AwkwardNames() {
  return {"with blank",
          "single'quote",
          "double\"quote",
          "$HOME",
          "`touch trap`",
          "line\nend",
          "Ümläut",
          "100%",
          "a & b; c | d > e",
          "-dash",
          "back\xEF\x81\x9Cslash",
          "$(touch trap)",
          "!history",
          "*"};
}

// Runs a script of the prologue and `commands` with sh.
int RunScript(const TempFolder& folder, std::string_view script_folder, const std::string& commands) {
  std::string text;
  for (const std::string& line : ScriptPrologue(script_folder)) text.append(line).append(ScriptLineEnd());
  const std::string bytes = ScriptBytes(text + commands + std::string(ScriptLineEnd())).value;
  folder.Write("script", bytes);
  return std::system(("/bin/sh " + folder.Native("script")).c_str());
}

TEST(ScriptPrologue, PlainFolder_GivesItsThreeLines) {
  EXPECT_THAT(ScriptPrologue("\\nowhere\\Program Folder"),
              ElementsAre("#!/bin/sh", "# Made anew by every build.", "cd -- '/nowhere/Program Folder' || exit 1"));
}

TEST(ScriptPrologue, FolderWithAQuote_IsQuoted) {
  EXPECT_EQ(ScriptPrologue("\\it's")[2], "cd -- '/it'\\''s' || exit 1");
}

TEST(ScriptPrologue, FolderInAnotherCase_IsSpelledAsOnTheDisk) {
  const TempFolder folder;
  folder.MakeFolder("Program");
  EXPECT_EQ(ScriptPrologue(folder.Core("PROGRAM"))[2], "cd -- '" + folder.Native("Program") + "' || exit 1");
}

TEST(ScriptPrologue, AwkwardFolders_BecomeTheCurrentFolderOfARealShell) {
  for (const std::string& name : AwkwardNames()) {
    const TempFolder folder;
    ASSERT_TRUE(MakeFolders(folder.Core(name)).ok());
    EXPECT_EQ(RunScript(folder, folder.Core(name), "echo here > marker"), 0) << name;
    EXPECT_TRUE(CheckReadable(folder.Core(name) + "\\marker").ok()) << name;
    EXPECT_EQ(folder.Names().size(), 2u) << name;
  }
}

TEST(ScriptPrologue, MissingFolder_EndsTheScript) {
  const TempFolder folder;
  EXPECT_NE(RunScript(folder, folder.Core("missing"), "exit 0"), 0);
}

TEST(ScriptPath, AwkwardPaths_AreOneArgumentOfARealShell) {
  for (const std::string& name : AwkwardNames()) {
    const TempFolder folder;
    const std::string path = folder.Core(name);
    EXPECT_EQ(RunScript(folder, folder.Core(), "printf '%s' " + ScriptPath(path) + " > argument"), 0) << name;
    EXPECT_EQ(folder.Read("argument"), PathToNative(path)) << name;
    EXPECT_THAT(folder.Names(), ElementsAre("argument", "script")) << name;
  }
}

TEST(ScriptPath, NewFileInAFolderOfAnotherCase_KeepsItsOwnCase) {
  const TempFolder folder;
  folder.MakeFolder("Images");
  EXPECT_EQ(ScriptPath(folder.Core("IMAGES\\Rescue.ISO")), "'" + folder.Native("Images/Rescue.ISO") + "'");
}

TEST(ScriptPath, RelativePath_IsMadeAbsolute) {
  EXPECT_EQ(ScriptPath("-out.iso"), "'" + PathToNative(CurrentFolder()) + "/-out.iso'");
}

TEST(ScriptProgram, Exe_IsDroppedInAnyCase) {
  EXPECT_EQ(ScriptProgram("mkisofs.exe"), "./mkisofs");
  EXPECT_EQ(ScriptProgram("DFL.EXE"), "./DFL");
  EXPECT_EQ(ScriptProgram("plain"), "./plain");
}

TEST(ScriptProgram, AwkwardName_IsQuoted) { EXPECT_EQ(ScriptProgram("my tool.exe"), "'./my tool'"); }

TEST(ScriptProgram, ProgramOfTheFolder_IsRunByARealShell) {
  const TempFolder folder;
  folder.Write("tool", "#!/bin/sh\necho ran > ran\n");
  folder.SetMode("tool", 0755);
  EXPECT_EQ(RunScript(folder, folder.Core(), ScriptProgram("tool.exe")), 0);
  EXPECT_EQ(folder.Read("ran"), "ran\n");
}

}  // namespace
}  // namespace discwright::host
