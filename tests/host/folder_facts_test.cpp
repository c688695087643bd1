// Tests of what tells one folder from another.
#include "host/folder_facts.h"

#include <gmock/gmock.h>

#include "host/system.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::TempFolder;

std::string IdentityOf(const std::string& core_path) {
  const Result<FolderFacts> facts = FactsOfFolder(core_path);
  EXPECT_TRUE(facts.ok()) << facts.status.cause;
  EXPECT_FALSE(facts.value.is_mount_point);
  return facts.value.identity;
}

TEST(FactsOfFolder, FolderThatIsFilledOrRenamed_KeepsItsIdentity) {
  const TempFolder folder;
  folder.MakeFolder("one");
  const std::string identity = IdentityOf(folder.Core("one"));
  EXPECT_NE(identity, "");
  folder.Write("one/file", "x");
  EXPECT_EQ(IdentityOf(folder.Core("one")), identity);
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me only know the path of a folder";
  std::filesystem::rename(folder.Path("one"), folder.Path("two"));
  EXPECT_EQ(IdentityOf(folder.Core("two")), identity);
}

TEST(FactsOfFolder, FileOrNothing_IsAFailure) {
  const TempFolder folder;
  folder.Write("file", "x");
  EXPECT_EQ(FactsOfFolder(folder.Core("file")).status.error, ErrorClass::kWrongKind);
  EXPECT_EQ(FactsOfFolder(folder.Core("missing")).status.error, ErrorClass::kNotFound);
}

TEST(FollowedPath, PathWithoutLinks_IsMadeAbsolute) {
  const TempFolder folder;
  folder.MakeFolder("a/b");
  const std::string real = PathFromNative(testing::TextOf(std::filesystem::canonical(folder.Path("a"))));
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no links";
  EXPECT_EQ(FoldCase(FollowedPath(folder.Core("a\\b\\.."))), FoldCase(real));
  EXPECT_EQ(FoldCase(FollowedPath(folder.Core("a/new/deep"))), FoldCase(real + "\\new\\deep"));
}

}  // namespace
}  // namespace discwright::host
