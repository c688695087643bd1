// Tests of listing symbolic links, pipes, devices and names that are not UTF-8, and of looking at single ones.
#include <gmock/gmock.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::TempFolder;

Entry OnlyEntry(const Listing& listing) {
  EXPECT_EQ(listing.value.size(), 1u);
  return listing.value.empty() ? Entry{} : listing.value[0];
}

TEST(ListFolder, LinkToAFileOrFolder_HasItsTargetsKindAndSize) {
  const TempFolder folder;
  const TempFolder elsewhere;
  elsewhere.Write("target", "1234567");
  folder.Link(elsewhere.Native("target"), "file");
  folder.Link(elsewhere.native(), "folder");
  const Listing listing = ListFolder(folder.Core(), "*.*");
  ASSERT_EQ(listing.value.size(), 2u);
  EXPECT_EQ(listing.value[0].kind, EntryKind::kFile);
  EXPECT_EQ(listing.value[0].size, 7);
  EXPECT_TRUE(listing.value[0].is_link);
  EXPECT_EQ(listing.value[1].kind, EntryKind::kFolder);
  EXPECT_TRUE(listing.value[1].is_link);
  EXPECT_FALSE(listing.value[1].loops);
}

TEST(ListFolder, BrokenLink_IsAFileOfSizeZeroMarkedBroken) {
  const TempFolder folder;
  folder.Link("nowhere", "link");
  const Entry entry = OnlyEntry(ListFolder(folder.Core(), "*.*"));
  EXPECT_TRUE(entry.broken && entry.is_link);
  EXPECT_EQ(entry.kind, EntryKind::kFile);
  EXPECT_EQ(entry.size, 0);
}

TEST(ListFolder, LinkToItself_IsListedWithTheSystemsReason) {
  const TempFolder folder;
  folder.Link("link", "link");
  const Entry entry = OnlyEntry(ListFolder(folder.Core(), "*.*"));
  EXPECT_FALSE(entry.broken);
  EXPECT_EQ(entry.problem.cause, "Too many levels of symbolic links");
}

TEST(ListFolder, LinkThroughAFile_IsBroken) {
  const TempFolder folder;
  folder.Write("sub/file", "");
  folder.Link("sub/file/below", "link");
  EXPECT_TRUE(ListFolder(folder.Core(), "link").value.at(0).broken);
}

TEST(ListFolder, FilesOfAFolderThatCannotBeSearched_AreListedWithTheirProblem) {
  const TempFolder folder;
  folder.Write("sub/file", "1234");
  folder.MakeFolder("sub/folder");
  folder.Link("file", "sub/link");
  folder.SetMode("", 0755);
  folder.SetMode("sub", 0644);
  Listing listing;
  {
    const testing::WithoutRights without;
    listing = ListFolder(folder.Core("sub"), "*.*");
  }
  ASSERT_EQ(listing.value.size(), 3u);
  EXPECT_TRUE(listing.status.ok());
  for (const Entry& entry : listing.value) {
    if (entry.kind == EntryKind::kFolder) continue;  // known without looking at it
    EXPECT_EQ(entry.problem.error, ErrorClass::kAccessDenied) << entry.name;
    EXPECT_FALSE(entry.broken) << entry.name;
    EXPECT_EQ(entry.size, 0) << entry.name;
  }
  EXPECT_EQ(listing.value[2].name, "link");
}

TEST(ListFolder, LinkIntoAFolderThatCannotBeSearched_IsNotCalledBroken) {
  const TempFolder folder;
  folder.Write("locked/file", "1234");
  folder.Link("locked/file", "link");
  folder.SetMode("", 0755);
  folder.SetMode("locked", 0);
  const testing::WithoutRights without;
  const Entry entry = ListFolder(folder.Core(), "link").value.at(0);
  EXPECT_FALSE(entry.broken);
  EXPECT_TRUE(entry.is_link);
  EXPECT_EQ(entry.problem.cause, "Permission denied");
}

TEST(ListFolder, LinkToOneOfItsOwnParents_Loops) {
  const TempFolder folder;
  folder.MakeFolder("a/b");
  folder.Link(".", "a/b/self");
  folder.Link("../..", "a/b/top");
  folder.Link("/", "a/b/root");
  folder.MakeFolder("a/b/plain");
  for (const Entry& entry : ListFolder(folder.Core("a\\b"), "*.*").value) {
    EXPECT_EQ(entry.loops, entry.is_link) << entry.name;
  }
}

TEST(ListFolder, LinksBetweenTwoFolders_LoopOnlyWhereTheWayComesBack) {
  const TempFolder folder;
  folder.MakeFolder("a");
  folder.MakeFolder("b");
  folder.Link("../b", "a/to_b");
  folder.Link("../a", "b/to_a");
  EXPECT_FALSE(OnlyEntry(ListFolder(folder.Core("a"), "*.*")).loops);
  EXPECT_TRUE(OnlyEntry(ListFolder(folder.Core("a\\to_b"), "*.*")).loops);
  EXPECT_FALSE(OnlyEntry(ListFolder(folder.Core("b"), "*.*")).loops);
}

TEST(ListFolder, PipesAndDevices_AreSpecialAndNeverOpened) {
  const TempFolder folder;
  folder.Pipe("pipe");
  folder.Link("/dev/zero", "zero");
  const Listing listing = ListFolder(folder.Core(), "*.*");
  ASSERT_EQ(listing.value.size(), 2u);
  EXPECT_EQ(listing.value[0].kind, EntryKind::kSpecial);
  EXPECT_EQ(listing.value[1].kind, EntryKind::kSpecial);
  EXPECT_TRUE(listing.value[1].is_link);
}

TEST(ListFolder, NameThatIsNotUtf8_IsListedAsItsBytesAndCanBeRead) {
  const TempFolder folder;
  folder.Write("b\xFCro.txt", "content");
  const Entry entry = OnlyEntry(ListFolder(folder.Core(), "B\xFCRO.*"));
  EXPECT_EQ(entry.name, "b\xFCro.txt");
  const std::string content = ReadWholeFile(folder.Core(entry.name)).value;
  EXPECT_EQ(content, "content");
}

TEST(Look, Links_AreFollowed) {
  const TempFolder folder;
  folder.Write("file", "1234");
  folder.Link("file", "link");
  folder.Link(".", "loop");
  EXPECT_EQ(Look(folder.Core("link")).value.size, 4);
  EXPECT_TRUE(Look(folder.Core("link")).value.is_link);
  EXPECT_TRUE(Look(folder.Core("loop")).value.loops);
}

TEST(Look, FileInAFolderThatCannotBeSearched_IsNotCalledMissing) {
  const TempFolder folder;
  folder.Write("sub/file", "1234");
  folder.Link("sub/file", "link");
  folder.Link("itself", "itself");
  folder.SetMode("", 0755);
  folder.SetMode("sub", 0644);
  EXPECT_EQ(Look(folder.Core("itself")).status.error, ErrorClass::kLoop);
  const testing::WithoutRights without;
  EXPECT_EQ(Look(folder.Core("sub\\file")).status.error, ErrorClass::kAccessDenied);
  EXPECT_EQ(Look(folder.Core("sub\\missing")).status.error, ErrorClass::kAccessDenied);
  EXPECT_EQ(Look(folder.Core("link")).status.error, ErrorClass::kAccessDenied);
}

TEST(Look, BrokenLink_IsNothing) {
  const TempFolder folder;
  folder.Link("nowhere", "link");
  EXPECT_EQ(Look(folder.Core("link")).status.error, ErrorClass::kNotFound);
}

TEST(ListFolder, NamesThatDifferInCase_AreAllListed) {
  const TempFolder folder;
  for (const char* name : {"b", "B"}) folder.Write(name, "");
  const Listing listing = ListFolder(folder.Core(), "*.*");
  ASSERT_EQ(listing.value.size(), 2u);
  EXPECT_EQ(listing.value[0].name + listing.value[1].name, "Bb");
}

TEST(Look, PipeOrDevice_IsSpecial) {
  const TempFolder folder;
  folder.Pipe("pipe");
  EXPECT_EQ(Look(folder.Core("pipe")).value.kind, EntryKind::kSpecial);
  EXPECT_EQ(Look("\\dev\\zero").value.kind, EntryKind::kSpecial);
}

TEST(CheckReadable, OnlyLinksToFiles) {
  const TempFolder folder;
  folder.Write("File", "");
  folder.Link("File", "link");
  folder.Link("nowhere", "broken");
  folder.Link("/dev/zero", "zero");
  folder.Pipe("pipe");
  EXPECT_TRUE(CheckReadable(folder.Core("link")).ok());
  for (const char* name : {"broken", "zero", "pipe"}) EXPECT_FALSE(CheckReadable(folder.Core(name)).ok()) << name;
}

}  // namespace
}  // namespace discwright::host
