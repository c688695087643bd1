// Listing folders and looking at single paths.
#include <gmock/gmock.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

std::vector<std::string> NamesOf(const Listing& listing) {
  std::vector<std::string> names;
  for (const Entry& entry : listing.entries) names.push_back(entry.name);
  return names;
}

Entry OnlyEntry(const Listing& listing) {
  EXPECT_EQ(listing.entries.size(), 1u);
  return listing.entries.empty() ? Entry{} : listing.entries[0];
}

TEST(ListFolder, EveryName_IsListedSortedBytewiseWithoutDots) {
  const TempFolder folder;
  for (const char* name : {"b", "B", "a.txt", ".hidden", "\xC3\xA4", "A"}) folder.Write(name, "");
  folder.MakeFolder("folder");
  EXPECT_THAT(NamesOf(ListFolder(folder.Core(), "*.*")),
              ElementsAre(".hidden", "A", "B", "a.txt", "b", "folder", "\xC3\xA4"));
}

TEST(ListFolder, FilesAndFolders_HaveKindAndSize) {
  const TempFolder folder;
  folder.Write("file", "12345");
  folder.MakeFolder("folder");
  const Listing listing = ListFolder(folder.Core(), "*");
  ASSERT_TRUE(listing.status.ok());
  ASSERT_EQ(listing.entries.size(), 2u);
  EXPECT_EQ(listing.entries[0].kind, EntryKind::kFile);
  EXPECT_EQ(listing.entries[0].size, 5);
  EXPECT_EQ(listing.entries[1].kind, EntryKind::kFolder);
  EXPECT_EQ(listing.entries[1].size, 0);
  EXPECT_FALSE(listing.entries[0].is_link || listing.entries[1].is_link);
}

TEST(ListFolder, Pattern_IsMatchedInAnyCase) {
  const TempFolder folder;
  for (const char* name : {"WIN51IP", "win51ip.sp1", "setup.exe", "Übung"}) folder.Write(name, "");
  EXPECT_THAT(NamesOf(ListFolder(folder.Core(), "Win51*.*")), ElementsAre("WIN51IP", "win51ip.sp1"));
  EXPECT_THAT(NamesOf(ListFolder(folder.Core(), "SETUP.EXE")), ElementsAre("setup.exe"));
  EXPECT_THAT(NamesOf(ListFolder(folder.Core(), "ü*.*")), ElementsAre("Übung"));
}

TEST(ListFolder, FolderInAnotherCaseWithTrailingSeparator_IsListed) {
  const TempFolder folder;
  folder.Write("Folder/file", "");
  EXPECT_THAT(NamesOf(ListFolder(folder.Core("FOLDER\\"), "*.*")), ElementsAre("file"));
}

TEST(ListFolder, EmptyFolder_IsAnEmptySuccess) {
  const TempFolder folder;
  const Listing listing = ListFolder(folder.Core(), "*.*");
  EXPECT_TRUE(listing.status.ok());
  EXPECT_TRUE(listing.entries.empty());
}

TEST(ListFolder, MissingFolderOrFile_IsNotFound) {
  const TempFolder folder;
  folder.Write("file", "");
  EXPECT_EQ(ListFolder(folder.Core("missing"), "*.*").status.error, ErrorClass::kNotFound);
  EXPECT_EQ(ListFolder(folder.Core("file"), "*.*").status.error, ErrorClass::kNotFound);
  EXPECT_EQ(ListFolder("", "*.*").status.error, ErrorClass::kNotFound);
}

TEST(ListFolder, LinkToAFileOrFolder_HasItsTargetsKindAndSize) {
  const TempFolder folder;
  const TempFolder elsewhere;
  elsewhere.Write("target", "1234567");
  folder.Link(elsewhere.Native("target"), "file");
  folder.Link(elsewhere.native(), "folder");
  const Listing listing = ListFolder(folder.Core(), "*.*");
  ASSERT_EQ(listing.entries.size(), 2u);
  EXPECT_EQ(listing.entries[0].kind, EntryKind::kFile);
  EXPECT_EQ(listing.entries[0].size, 7);
  EXPECT_TRUE(listing.entries[0].is_link);
  EXPECT_EQ(listing.entries[1].kind, EntryKind::kFolder);
  EXPECT_TRUE(listing.entries[1].is_link);
  EXPECT_FALSE(listing.entries[1].loops);
}

TEST(ListFolder, BrokenLink_IsAFileOfSizeZeroMarkedBroken) {
  const TempFolder folder;
  folder.Link("nowhere", "link");
  const Entry entry = OnlyEntry(ListFolder(folder.Core(), "*.*"));
  EXPECT_TRUE(entry.broken && entry.is_link);
  EXPECT_EQ(entry.kind, EntryKind::kFile);
  EXPECT_EQ(entry.size, 0);
}

TEST(ListFolder, LinkToItself_IsBroken) {
  const TempFolder folder;
  folder.Link("link", "link");
  EXPECT_TRUE(OnlyEntry(ListFolder(folder.Core(), "*.*")).broken);
}

TEST(ListFolder, LinkToOneOfItsOwnParents_Loops) {
  const TempFolder folder;
  folder.MakeFolder("a/b");
  folder.Link(".", "a/b/self");
  folder.Link("../..", "a/b/top");
  folder.Link("/", "a/b/root");
  folder.MakeFolder("a/b/plain");
  for (const Entry& entry : ListFolder(folder.Core("a\\b"), "*.*").entries) {
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
  ASSERT_EQ(listing.entries.size(), 2u);
  EXPECT_EQ(listing.entries[0].kind, EntryKind::kSpecial);
  EXPECT_EQ(listing.entries[1].kind, EntryKind::kSpecial);
  EXPECT_TRUE(listing.entries[1].is_link);
}

TEST(ListFolder, NameThatIsNotUtf8_IsListedAsItsBytesAndCanBeRead) {
  const TempFolder folder;
  folder.Write("b\xFCro.txt", "content");
  const Entry entry = OnlyEntry(ListFolder(folder.Core(), "B\xFCRO.*"));
  EXPECT_EQ(entry.name, "b\xFCro.txt");
  std::string content;
  EXPECT_TRUE(ReadWholeFile(folder.Core(entry.name), content).ok());
  EXPECT_EQ(content, "content");
}

TEST(Look, FileInAnotherCase_IsDescribedByItsRealName) {
  const TempFolder folder;
  folder.Write("Setup.Exe", "123");
  const auto entry = Look(folder.Core("SETUP.EXE"));
  ASSERT_TRUE(entry.has_value());
  EXPECT_EQ(entry->name, "Setup.Exe");
  EXPECT_EQ(entry->kind, EntryKind::kFile);
  EXPECT_EQ(entry->size, 3);
}

TEST(Look, FolderAndRoot_AreFolders) {
  const TempFolder folder;
  EXPECT_EQ(Look(folder.Core() + "\\")->kind, EntryKind::kFolder);
  EXPECT_EQ(Look("\\")->kind, EntryKind::kFolder);
}

TEST(Look, Links_AreFollowed) {
  const TempFolder folder;
  folder.Write("file", "1234");
  folder.Link("file", "link");
  folder.Link(".", "loop");
  EXPECT_EQ(Look(folder.Core("link"))->size, 4);
  EXPECT_TRUE(Look(folder.Core("link"))->is_link);
  EXPECT_TRUE(Look(folder.Core("loop"))->loops);
}

TEST(Look, NothingOrABrokenLink_IsNothing) {
  const TempFolder folder;
  folder.Link("nowhere", "link");
  EXPECT_FALSE(Look(folder.Core("missing")).has_value());
  EXPECT_FALSE(Look(folder.Core("link")).has_value());
  EXPECT_FALSE(Look("").has_value());
}

TEST(Look, PipeOrDevice_IsSpecial) {
  const TempFolder folder;
  folder.Pipe("pipe");
  EXPECT_EQ(Look(folder.Core("pipe"))->kind, EntryKind::kSpecial);
  EXPECT_EQ(Look("\\dev\\zero")->kind, EntryKind::kSpecial);
}

TEST(CanRead, OnlyRegularFilesAndLinksToThem) {
  const TempFolder folder;
  folder.Write("File", "");
  folder.Link("File", "link");
  folder.Link("nowhere", "broken");
  folder.Link("/dev/zero", "zero");
  folder.Pipe("pipe");
  EXPECT_TRUE(CanRead(folder.Core("FILE")));
  EXPECT_TRUE(CanRead(folder.Core("link")));
  for (const char* name : {"", "missing", "broken", "zero", "pipe"}) EXPECT_FALSE(CanRead(folder.Core(name))) << name;
}

}  // namespace
}  // namespace discwright::host
