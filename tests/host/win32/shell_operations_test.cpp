// Tests of moves and renames with names that the shell of Windows cannot take.
#include "host/shell_operations.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

TEST(ShellOperation, NameThatTheCodePageLacks_IsRefused) {
  const TempFolder folder;
  folder.Write("file", "x");
  const ShellAnswer answer = RunShellOperation(
      {ShellVerb::kRename, nullptr, folder.Core("file"), folder.Core("漢"), kShellSilent + kShellNoConfirmation, ""});
  EXPECT_EQ(answer.number, 0x7C);
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

}  // namespace
}  // namespace discwright::host
