// Tests of deleting what killed runs left.
#include "host/left_files.h"

#include <gmock/gmock.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

TEST(RemoveLeftFiles, OnlyFilesWithNamesOfOurs_AreDeleted) {
  const TempFolder folder;
  for (const char* name : {".discwright-1-2", ".discwright-x.iso.part", ".discwright-x.iso.test"}) {
    folder.Write(name, "left");
  }
  for (const char* name : {".discwright-notes", "x.iso", "x.iso.part"}) folder.Write(name, "mine");
  folder.MakeFolder(".discwright-3-4");
  RemoveLeftFiles(folder.Core());
  EXPECT_THAT(folder.Names(), ElementsAre(".discwright-3-4", ".discwright-notes", "x.iso", "x.iso.part"));
}

TEST(RemoveLeftFiles, MissingFolder_IsNoFailure) { RemoveLeftFiles(TempFolder().Core("missing")); }

}  // namespace
}  // namespace discwright::host
