// Tests of moves and renames by the shell, for all systems.
#include "host/shell_operations.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TempFolder;

constexpr std::uint16_t kQuietly = kShellSilent + kShellNoConfirmation;
constexpr int kInvalidFiles = 0x7C;

class ShellOperationTest : public ::testing::Test {
 protected:
  void Perform(ShellVerb verb, std::string_view source, std::string_view destination) {
    const ShellAnswer answer =
        RunShellOperation({verb, nullptr, folder_.Core(source), folder_.Core(destination), kQuietly, "Moving"});
    EXPECT_EQ(answer.number, 0) << source << " -> " << destination;
    EXPECT_FALSE(answer.aborted);
  }

  TempFolder folder_;
};

TEST_F(ShellOperationTest, MoveOfOneFile_MovesIt) {
  folder_.Write("from/file", "x");
  folder_.MakeFolder("to");
  Perform(ShellVerb::kMove, "from\\file", "to");
  EXPECT_EQ(folder_.Read("to/file"), "x");
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
}

TEST_F(ShellOperationTest, MoveOfAWildcard_MovesEveryFileAndFolder) {
  folder_.Write("from/one", "1");
  folder_.Write("from/two.txt", "2");
  folder_.Write("from/sub/three", "3");
  folder_.MakeFolder("to");
  Perform(ShellVerb::kMove, "from/*.*", "to");
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
  EXPECT_THAT(folder_.Names("to"), ElementsAre("one", "sub", "two.txt"));
  EXPECT_EQ(folder_.Read("to/sub/three"), "3");
}

TEST_F(ShellOperationTest, MoveOfAWildcardWithAQuestionMark_MovesWhatMatches) {
  folder_.Write("from/b1", "1");
  folder_.Write("from/B", "2");
  folder_.Write("from/b12", "3");
  folder_.MakeFolder("to");
  Perform(ShellVerb::kMove, "from\\B?2", "to");
  EXPECT_THAT(folder_.Names("from"), ElementsAre("B", "b1"));
  EXPECT_THAT(folder_.Names("to"), ElementsAre("b12"));
}

TEST_F(ShellOperationTest, MoveOfAFolderIntoAFolder_MovesItWhole) {
  folder_.Write("from/sub/deep/file", "x");
  folder_.Write("to/other", "y");
  Perform(ShellVerb::kMove, "from\\sub", "to");
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
  EXPECT_THAT(folder_.Names("to"), ElementsAre("other", "sub"));
  EXPECT_EQ(folder_.Read("to/sub/deep/file"), "x");
}

TEST_F(ShellOperationTest, MoveToAMissingName_GivesThatName) {
  folder_.Write("file", "1");
  folder_.Write("folder/file", "2");
  Perform(ShellVerb::kMove, "file", "new file");
  Perform(ShellVerb::kMove, "folder", "new folder");
  EXPECT_THAT(folder_.Names(), ElementsAre("new file", "new folder"));
  EXPECT_EQ(folder_.Read("new file"), "1");
  EXPECT_EQ(folder_.Read("new folder/file"), "2");
}

TEST_F(ShellOperationTest, MoveOntoAReadOnlyFile_OverwritesIt) {
  folder_.Write("from/file", "new");
  folder_.Write("to/file", "a long old content");
  folder_.SetReadOnly("to/file");
  Perform(ShellVerb::kMove, "from\\file", "to");
  EXPECT_EQ(folder_.Read("to/file"), "new");
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
}

TEST_F(ShellOperationTest, MoveOfAReadOnlyFile_LeavesItReadOnly) {
  folder_.Write("from/file", "x");
  folder_.SetReadOnly("from/file");
  folder_.MakeFolder("to");
  Perform(ShellVerb::kMove, "from\\file", "to");
  EXPECT_TRUE(folder_.IsReadOnly("to/file"));
  EXPECT_THAT(folder_.Names("from"), IsEmpty());
}

TEST_F(ShellOperationTest, MoveOfAFileOrFolderToWhereItIs_ChangesNothing) {
  folder_.Write("folder/sub/file", "x");
  Perform(ShellVerb::kMove, "folder\\sub", "folder");
  Perform(ShellVerb::kMove, "folder\\sub\\file", "folder\\sub");
  EXPECT_EQ(folder_.Read("folder/sub/file"), "x");
}

TEST_F(ShellOperationTest, Rename_GivesAFileOrFolderItsNewName) {
  folder_.Write("Übung/file", "x");
  Perform(ShellVerb::kRename, "Übung/file", "Übung/second name");
  Perform(ShellVerb::kRename, "Übung", "new");
  EXPECT_THAT(folder_.Names(), ElementsAre("new"));
  EXPECT_EQ(folder_.Read("new/second name"), "x");
}

TEST_F(ShellOperationTest, RenameToANameThatIsThere_IsRefusedAndLosesNothing) {
  for (const char* name : {"a folder", "second folder"}) folder_.Write(std::string(name) + "/file", name);
  for (const char* name : {"a file", "second file"}) folder_.Write(name, name);
  for (const char* from : {"a folder", "a file"}) {
    for (const char* to : {"second folder", "second file"}) {
      const ShellAnswer answer =
          RunShellOperation({ShellVerb::kRename, nullptr, folder_.Core(from), folder_.Core(to), kQuietly, ""});
      EXPECT_EQ(answer.number, 183) << from << " to " << to;
    }
  }
  EXPECT_THAT(folder_.Names(), ElementsAre("a file", "a folder", "second file", "second folder"));
  EXPECT_THAT(folder_.Names("second folder"), ElementsAre("file"));
  EXPECT_EQ(folder_.Read("second folder/file"), "second folder");
  EXPECT_EQ(folder_.Read("second file"), "second file");
}

TEST_F(ShellOperationTest, FileWhosePlaceAFolderHas_StaysAndAllOthersAreMoved) {
  for (const char* name : {"a", "boot", "c", "d/file"}) folder_.Write(std::string("from/") + name, name);
  folder_.MakeFolder("to/boot");
  RunShellOperation({ShellVerb::kMove, nullptr, folder_.Core("from\\*.*"), folder_.Core("to"), kQuietly, ""});
  EXPECT_THAT(folder_.Names("from"), ElementsAre("boot"));
  EXPECT_THAT(folder_.Names("to"), ElementsAre("a", "boot", "c", "d"));
  EXPECT_THAT(folder_.Names("to/boot"), IsEmpty());
}

TEST_F(ShellOperationTest, RenameOfWhatIsMissing_GivesANumber) {
  // 1024 is: no window for failures.
  const ShellAnswer answer = RunShellOperation(
      {ShellVerb::kRename, nullptr, folder_.Core("missing"), folder_.Core("new"), kQuietly + 1024, "Renaming"});
  EXPECT_NE(answer.number, 0);
  EXPECT_THAT(folder_.Names(), IsEmpty());
}

TEST_F(ShellOperationTest, EmptyPathOrOneWithANul_IsRefused) {
  folder_.Write("file", "x");
  const std::string file = folder_.Core("file");
  for (const ShellVerb verb : {ShellVerb::kMove, ShellVerb::kRename}) {
    for (const std::string& path : {std::string(), folder_.Core(std::string("a\0b", 3))}) {
      EXPECT_EQ(RunShellOperation({verb, nullptr, path, file, kQuietly, ""}).number, kInvalidFiles);
      EXPECT_EQ(RunShellOperation({verb, nullptr, file, path, kQuietly, ""}).number, kInvalidFiles);
    }
  }
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

}  // namespace
}  // namespace discwright::host
