// A disk made from what is no file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/createdsk/program_folder.h"
#include "tools/createdsk/create_disk.h"

namespace discwright::tools {
namespace {

TEST(CreateDisk, DeviceAsSource_IsNoFile) {
  const testing::ProgramFolder folder;
  folder.AddDiskIni("[Files]\r\nA.TXT=zero\r\n");
  std::filesystem::create_symlink("/dev/zero", folder.Profile() / "zero");
  std::string path;
  EXPECT_THAT(CreateDisk({&kDiskFormats[0], "mine", false}, folder.Text(), path).failure,
              ::testing::HasSubstr("is not a file; correct A.TXT"));
}

}  // namespace
}  // namespace discwright::tools
