// Tests of links and mount points as the kernel has them.
#include "host/folder_facts.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"
#include "tests/host/waiting.h"

namespace discwright::host {
namespace {

using testing::SmallDisk;
using testing::TempFolder;

std::string Real(const TempFolder& folder, const std::string& name) {
  return PathFromNative(std::filesystem::canonical(folder.native()).native()) + "\\" + name;
}

TEST(FactsOfFolder, FolderThatIsMadeAgain_HasAnotherIdentity) {
  const TempFolder folder;
  folder.MakeFolder("it");
  const std::string first = FactsOfFolder(folder.Core("it")).value.identity;
  if (first.starts_with("number")) GTEST_SKIP() << "this file system does not keep the times of making";
  // The clock of a file system moves in steps of some milliseconds.
  EXPECT_TRUE(testing::Eventually([&] {
    std::filesystem::remove(folder.Native("it"));
    folder.MakeFolder("it");
    return FactsOfFolder(folder.Core("it")).value.identity != first;
  }));
}

TEST(FactsOfFolder, Link_IsAFailure) {
  const TempFolder folder;
  folder.MakeFolder("target");
  folder.Link("target", "link");
  folder.Link("missing", "broken");
  EXPECT_EQ(FactsOfFolder(folder.Core("link")).status.error, ErrorClass::kWrongKind);
  EXPECT_EQ(FactsOfFolder(folder.Core("broken")).status.error, ErrorClass::kWrongKind);
}

TEST(FactsOfFolder, MountPoints_AreTold) {
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  EXPECT_TRUE(FactsOfFolder(disk.folder().Core()).value.is_mount_point);
  disk.folder().MakeFolder("users");
  disk.folder().MakeFolder("bound");
  const std::string bound = disk.folder().Native("bound");
  ASSERT_EQ(mount(disk.folder().Native("users").c_str(), bound.c_str(), nullptr, MS_BIND, nullptr), 0);
  EXPECT_TRUE(FactsOfFolder(disk.folder().Core("bound")).value.is_mount_point);
  EXPECT_FALSE(FactsOfFolder(disk.folder().Core("users")).value.is_mount_point);
  umount2(bound.c_str(), MNT_DETACH);
  EXPECT_FALSE(FactsOfFolder(disk.folder().Core("bound")).value.is_mount_point);
}

TEST(FollowedPath, LinksOfEveryKind_AreFollowedAlsoBeforeMissingParts) {
  const TempFolder folder;
  folder.MakeFolder("a/b");
  folder.Link(folder.Native("a"), "absolute");
  folder.Link("absolute/b", "relative");
  folder.Link("a/missing", "broken");
  EXPECT_EQ(FollowedPath(folder.Core("relative")), Real(folder, "a\\b"));
  EXPECT_EQ(FollowedPath(folder.Core("RELATIVE\\new\\file")), Real(folder, "a\\b\\new\\file"));
  EXPECT_EQ(FollowedPath(folder.Core("relative\\..\\x")), Real(folder, "a\\x"));
  EXPECT_EQ(FollowedPath(folder.Core("broken\\deep")), Real(folder, "a\\missing\\deep"));
  EXPECT_EQ(FollowedPath("\\"), "\\");
}

TEST(FollowedPath, LinkToItself_StaysAsItIsWritten) {
  const TempFolder folder;
  folder.Link("loop", "loop");
  EXPECT_EQ(FollowedPath(folder.Core("loop")), Real(folder, "loop"));
}

}  // namespace
}  // namespace discwright::host
