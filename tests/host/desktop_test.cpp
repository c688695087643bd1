// Tests of drives and home folders.
#include "host/desktop.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "host/system.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

TEST(DriveRoots, EveryRoot_EndsInASeparatorAndIsAFolderOrADriveWithoutADisc) {
  ASSERT_FALSE(DriveRoots().empty());
  for (const std::string& root : DriveRoots()) {
    EXPECT_EQ(root.back(), '\\') << root;
    std::error_code error;
    const bool is_there = std::filesystem::exists(PathToNative(root), error);
    EXPECT_TRUE(error || !is_there || std::filesystem::is_directory(PathToNative(root), error)) << root;
  }
}

TEST(DriveRoots, CurrentFolder_IsBelowOneOfThem) {
  const std::string folder = FoldCase(CurrentFolder());
  const std::vector<std::string> roots = DriveRoots();
  EXPECT_TRUE(std::any_of(roots.begin(), roots.end(), [&](const std::string& root) {
    return folder.starts_with(FoldCase(root));
  })) << folder;
}

}  // namespace
}  // namespace discwright::host
