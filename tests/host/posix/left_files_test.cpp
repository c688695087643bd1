// Tests of temporary files that other programs hold, and of links with their names.
#include "host/left_files.h"

#include <gmock/gmock.h>

#include "host/posix/new_file.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

TEST(RemoveLeftFiles, FileThatIsBeingWritten_Stays) {
  const TempFolder folder;
  NewFile file;
  ASSERT_TRUE(file.CreateBeside(folder.Native("file"), 0600).ok());
  RemoveLeftFiles(folder.Core());
  EXPECT_EQ(folder.Names().size(), 1U);
  EXPECT_EQ(file.Commit().cause, "");
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST(RemoveLeftFiles, LinksAndPipes_AreNotOpened) {
  const TempFolder folder;
  folder.Write("precious", "content");
  folder.Link("precious", ".discwright-1-2");
  folder.Pipe(".discwright-3-4");
  RemoveLeftFiles(folder.Core());
  EXPECT_THAT(folder.Names(), ElementsAre(".discwright-1-2", ".discwright-3-4", "precious"));
}

}  // namespace
}  // namespace discwright::host
