// Tests of CreateDsk with a device as a source and on a full disk, which need calls of Linux.
#include "tools/createdsk/create_disk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/createdsk/program_folder.h"

namespace discwright::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

TEST(CreateDisk, DeviceAsSource_IsNoFile) {
  const ProgramFolder folder;
  folder.AddDiskIni("[Files]\r\nA.TXT=zero\r\n");
  std::filesystem::create_symlink("/dev/zero", folder.Profile() / "zero");
  std::string path;
  EXPECT_THAT(tools::CreateDisk({&tools::kDiskFormats[0], "mine", false}, folder.Text(), path).failure,
              HasSubstr("is not a file; correct A.TXT"));
}

TEST(CreateDskOnAFullDisk, ImageThatCannotBeWrittenWhole_LeavesTheOlderOne) {
  const ProgramFolder folder;
  const std::filesystem::path program = folder.path() / "CreateDsk";
  std::filesystem::copy(CREATEDSK_PROGRAM, program);
  folder.AddDiskIni("");
  WriteFile(folder.Image(), "older");
  // A limit on the size of files stands for a full disk.
  const ShellEnd end = folder.Run("trap '' XFSZ; ulimit -f 100; " + ShellPath(program) + " -t 144 mine");
  EXPECT_EQ(end.exit_code, 1) << end.output;
  EXPECT_THAT(end.output, HasSubstr("mine.img cannot be written"));
  EXPECT_EQ(ReadFile(folder.Image()), "older");
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("CreateDsk", "files", "mine.img"));
}

}  // namespace
}  // namespace discwright::testing
