// The program CreateDsk on a disk that becomes full.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/createdsk/program_folder.h"

namespace discwright::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

TEST(CreateDskOnAFullDisk, ImageThatCannotBeWrittenWhole_LeavesTheOlderOne) {
  const ProgramFolder folder;
  const std::filesystem::path program = folder.path() / "CreateDsk";
  std::filesystem::copy(CREATEDSK_PROGRAM, program);
  folder.AddDiskIni("");
  WriteFile(folder.Image(), "older");
  // A limit of the file size stands for a disk without room.
  const ShellEnd end = folder.Run("trap '' XFSZ; ulimit -f 100; " + ShellPath(program) + " -t 144 mine");
  EXPECT_EQ(end.exit_code, 1) << end.output;
  EXPECT_THAT(end.output, HasSubstr("mine.img cannot be written"));
  EXPECT_EQ(ReadFile(folder.Image()), "older");
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("CreateDsk", "files", "mine.img"));
}

}  // namespace
}  // namespace discwright::testing
