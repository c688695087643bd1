// Tests of listing folders, and of looking at single paths.
#include <gmock/gmock.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

std::vector<std::string> NamesOf(const Listing& listing) {
  std::vector<std::string> names;
  for (const Entry& entry : listing.value) names.push_back(entry.name);
  return names;
}

TEST(ListFolder, EveryName_IsListedSortedBytewiseWithoutDots) {
  const TempFolder folder;
  for (const char* name : {"b", "C", "a.txt", ".hidden", "\xC3\xA4", "A"}) folder.Write(name, "");
  folder.MakeFolder("folder");
  EXPECT_THAT(NamesOf(ListFolder(folder.Core(), "*.*")),
              ElementsAre(".hidden", "A", "C", "a.txt", "b", "folder", "\xC3\xA4"));
}

TEST(ListFolder, FilesAndFolders_HaveKindAndSize) {
  const TempFolder folder;
  folder.Write("file", "12345");
  folder.MakeFolder("folder");
  const Listing listing = ListFolder(folder.Core(), "*");
  ASSERT_TRUE(listing.status.ok());
  ASSERT_EQ(listing.value.size(), 2u);
  EXPECT_EQ(listing.value[0].kind, EntryKind::kFile);
  EXPECT_EQ(listing.value[0].size, 5);
  EXPECT_EQ(listing.value[1].kind, EntryKind::kFolder);
  EXPECT_EQ(listing.value[1].size, 0);
  EXPECT_FALSE(listing.value[0].is_link || listing.value[1].is_link);
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
  EXPECT_TRUE(listing.value.empty());
}

TEST(ListFolder, MissingFolderOrFile_IsNotFound) {
  const TempFolder folder;
  folder.Write("file", "");
  EXPECT_EQ(ListFolder(folder.Core("missing"), "*.*").status.error, ErrorClass::kNotFound);
  EXPECT_EQ(ListFolder(folder.Core("file"), "*.*").status.error, ErrorClass::kNotFound);
  EXPECT_EQ(ListFolder("", "*.*").status.error, ErrorClass::kNotFound);
}

TEST(Look, FileInAnotherCase_IsDescribedByItsRealName) {
  const TempFolder folder;
  folder.Write("Setup.Exe", "123");
  const auto entry = Look(folder.Core("SETUP.EXE"));
  ASSERT_TRUE(entry.ok());
  EXPECT_EQ(entry.value.name, "Setup.Exe");
  EXPECT_EQ(entry.value.kind, EntryKind::kFile);
  EXPECT_EQ(entry.value.size, 3);
}

TEST(Look, FolderAndRoot_AreFolders) {
  const TempFolder folder;
  EXPECT_EQ(Look(folder.Core() + "\\").value.kind, EntryKind::kFolder);
  EXPECT_EQ(Look("\\").value.kind, EntryKind::kFolder);
}

TEST(Look, MissingPath_IsNothing) {
  const TempFolder folder;
  EXPECT_EQ(Look(folder.Core("missing")).status.error, ErrorClass::kNotFound);
  EXPECT_EQ(Look("").status.error, ErrorClass::kNotFound);
}

TEST(CheckReadable, OnlyFiles) {
  const TempFolder folder;
  folder.Write("File", "");
  EXPECT_TRUE(CheckReadable(folder.Core("FILE")).ok());
  for (const char* name : {"", "missing"}) EXPECT_FALSE(CheckReadable(folder.Core(name)).ok()) << name;
}

}  // namespace
}  // namespace discwright::host
