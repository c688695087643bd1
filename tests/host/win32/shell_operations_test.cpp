// Moves and renames by the shell.
#include "host/shell_operations.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TempFolder;

// No progress window, and yes to every question.
constexpr std::uint16_t kQuietly = 4 + 16;

TEST(ShellOperation, MoveOfOneFile_MovesIt) {
  const TempFolder folder;
  folder.Write("from/file", "x");
  folder.MakeFolder("to");
  const ShellAnswer answer =
      RunShellOperation({ShellVerb::kMove, nullptr, folder.Core("from\\file"), folder.Core("to"), kQuietly, "Moving"});
  EXPECT_EQ(answer.number, 0);
  EXPECT_FALSE(answer.aborted);
  EXPECT_EQ(folder.Read("to/file"), "x");
  EXPECT_THAT(folder.Names("from"), IsEmpty());
}

TEST(ShellOperation, MoveOfAWildcard_MovesEveryFileAndFolder) {
  const TempFolder folder;
  folder.Write("from/one", "1");
  folder.Write("from/two.txt", "2");
  folder.Write("from/sub/three", "3");
  folder.MakeFolder("to");
  const ShellAnswer answer =
      RunShellOperation({ShellVerb::kMove, nullptr, folder.Core("from/*.*"), folder.Core("to"), kQuietly, ""});
  EXPECT_EQ(answer.number, 0);
  EXPECT_THAT(folder.Names("from"), IsEmpty());
  EXPECT_THAT(folder.Names("to"), ElementsAre("one", "sub", "two.txt"));
  EXPECT_EQ(folder.Read("to/sub/three"), "3");
}

TEST(ShellOperation, RenameOfAFolder_GivesItItsNewName) {
  const TempFolder folder;
  folder.Write("Übung/file", "x");
  const ShellAnswer answer =
      RunShellOperation({ShellVerb::kRename, nullptr, folder.Core("Übung"), folder.Core("new"), kQuietly, "Renaming"});
  EXPECT_EQ(answer.number, 0);
  EXPECT_THAT(folder.Names(), ElementsAre("new"));
}

TEST(ShellOperation, MissingSource_GivesTheServicesNumber) {
  const TempFolder folder;
  // 1024 is: no window for failures.
  const ShellAnswer answer = RunShellOperation(
      {ShellVerb::kRename, nullptr, folder.Core("missing"), folder.Core("new"), kQuietly + 1024, "Renaming"});
  EXPECT_NE(answer.number, 0);
}

TEST(ShellOperation, PathThatCannotBePassed_IsRefused) {
  const TempFolder folder;
  folder.Write("file", "x");
  for (const std::string& name : {std::string("漢"), std::string("a\0b", 3)}) {
    const ShellAnswer answer =
        RunShellOperation({ShellVerb::kRename, nullptr, folder.Core("file"), folder.Core(name), kQuietly, ""});
    EXPECT_EQ(answer.number, 0x7C);
  }
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  EXPECT_EQ(RunShellOperation({ShellVerb::kMove, nullptr, "", folder.Core(), kQuietly, ""}).number, 0x7C);
}

}  // namespace
}  // namespace discwright::host
