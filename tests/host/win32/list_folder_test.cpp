// Tests of listing names that the code page lacks, short names, devices and links to folders.
#include "tests/host/win32/folder_link.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <map>

#include "host/files.h"
#include "host/system.h"
#include "host/win32/errors.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::FolderLink;
using testing::TempFolder;

std::vector<std::string> NamesOf(const Listing& listing) {
  std::vector<std::string> names;
  for (const Entry& entry : listing.value) names.push_back(entry.name);
  return names;
}

std::map<std::string, Entry> ByName(const Listing& listing) {
  std::map<std::string, Entry> entries;
  for (const Entry& entry : listing.value) entries[entry.name] = entry;
  return entries;
}

TEST(ListFolder, NameThatTheCodePageLacks_IsListedAndCannotBeCopied) {
  const TempFolder folder;
  folder.Write("漢字.txt", "content");
  const Listing listing = ListFolder(folder.Core(), "*.*");
  ASSERT_THAT(NamesOf(listing), ElementsAre("??.txt"));
  EXPECT_EQ(listing.value[0].size, 7);
  const Status copied = CopyFileWithProgress(folder.Core(listing.value[0].name), folder.Core("copy"), nullptr);
  EXPECT_EQ(copied.cause, NameNotInCodePage().cause);
  EXPECT_EQ(folder.Names().size(), 1u);
}

TEST(ListFolder, FolderWhoseNameTheCodePageLacks_IsListedAndCannotBeEntered) {
  const TempFolder folder;
  folder.Write("漢/file", "");
  const Listing listing = ListFolder(folder.Core(), "*.*");
  ASSERT_THAT(NamesOf(listing), ElementsAre("?"));
  EXPECT_EQ(listing.value[0].kind, EntryKind::kFolder);
  EXPECT_EQ(ListFolder(folder.Core("?"), "*.*").status.cause, NameNotInCodePage().cause);
}

TEST(ListFolder, NameThatIsListedLikeAnother_IsNotMistakenForIt) {
  const TempFolder folder;
  folder.Write("Ax.txt", "right");
  folder.Write("\xC4\x80x.txt", "another, whose first letter the system gives as an A");
  const Listing listing = ListFolder(folder.Core(), "*.*");
  ASSERT_THAT(NamesOf(listing), ElementsAre("Ax.txt", "Ax.txt?"));
  EXPECT_EQ(listing.value[0].size, 5);
  const Status copied = CopyFileWithProgress(folder.Core("Ax.txt?"), folder.Core("copy"), nullptr);
  EXPECT_EQ(copied.cause, NameNotInCodePage().cause);
}

TEST(ListFolder, TwoNamesListedLikeOneThatIsNotThere_AreBothOutOfReach) {
  const TempFolder folder;
  folder.Write("\xC4\x80.txt", "");
  folder.Write("\xC4\x82.txt", "");
  EXPECT_THAT(NamesOf(ListFolder(folder.Core(), "*.*")), ElementsAre("A.txt?", "A.txt?"));
}

TEST(ListFolder, Pattern_IsNotMatchedAgainstShortNames) {
  const TempFolder folder;
  for (const char* name : {"page.html", "page.htm", "a long name.text"}) folder.Write(name, "");
  EXPECT_THAT(NamesOf(ListFolder(folder.Core(), "*.HTM")), ElementsAre("page.htm"));
  EXPECT_THAT(NamesOf(ListFolder(folder.Core(), "*.tex")), ElementsAre());
  EXPECT_THAT(NamesOf(ListFolder(folder.Core(), "*~*")), ElementsAre());
}

TEST(ListFolder, HiddenAndSystemFiles_AreListed) {
  const TempFolder folder;
  folder.Write("hidden", "");
  folder.Write("system", "");
  ASSERT_NE(SetFileAttributesW(folder.Path("hidden").c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
  ASSERT_NE(SetFileAttributesW(folder.Path("system").c_str(), FILE_ATTRIBUTE_SYSTEM), 0);
  EXPECT_THAT(NamesOf(ListFolder(folder.Core(), "*.*")), ElementsAre("hidden", "system"));
}

TEST(ListFolder, RootOfADrive_IsListed) {
  const std::string root = CurrentFolder().substr(0, 3);
  EXPECT_TRUE(ListFolder(root, "*.*").status.ok());
  EXPECT_TRUE(ListFolder(root + "\\", "*.*").status.ok());
  EXPECT_FALSE(ListFolder(root, "*.*").value.empty());
}

TEST(ListFolder, DriveThatIsNotThere_IsNotFound) {
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const std::string root = std::string(1, letter) + ":\\";
    if (GetDriveTypeA(root.c_str()) != DRIVE_NO_ROOT_DIR) continue;
    EXPECT_EQ(ListFolder(root, "*.*").status.error, ErrorClass::kNotFound);
    return;
  }
}

TEST(ListFolder, LinkToAFolder_IsAFolderThatIsALink) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no links";
  const TempFolder folder;
  folder.Write("target/file", "x");
  const FolderLink link(folder, "target", "link");
  if (!link.made()) GTEST_SKIP() << "links cannot be made here";
  auto entries = ByName(ListFolder(folder.Core(), "*.*"));
  EXPECT_TRUE(entries["link"].is_link);
  EXPECT_FALSE(entries["link"].loops);
  EXPECT_FALSE(entries["target"].is_link);
  EXPECT_EQ(entries["link"].kind, EntryKind::kFolder);
  EXPECT_THAT(NamesOf(ListFolder(folder.Core("link"), "*.*")), ElementsAre("file"));
  EXPECT_TRUE(SameFolder(folder.Core("link"), folder.Core("target")));
}

TEST(ListFolder, LinkToOneOfItsOwnParents_Loops) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no links";
  const TempFolder folder;
  folder.MakeFolder("a/b/c");
  const FolderLink link(folder, "a", "a/b/up");
  if (!link.made()) GTEST_SKIP() << "links cannot be made here";
  auto entries = ByName(ListFolder(folder.Core("a/b"), "*.*"));
  EXPECT_TRUE(entries["up"].loops);
  EXPECT_FALSE(entries["c"].loops);
  EXPECT_TRUE(Look(folder.Core("a\\b\\up")).value.loops);
}

TEST(RemoveFile, LinkToAFolder_IsRemovedItself) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no links";
  const TempFolder folder;
  folder.Write("target/file", "x");
  const FolderLink link(folder, "target", "link");
  if (!link.made()) GTEST_SKIP() << "links cannot be made here";
  if (link.is_of_wine()) GTEST_SKIP() << "Wine cannot remove its links";
  EXPECT_TRUE(RemoveFile(folder.Core("link")).ok());
  EXPECT_THAT(folder.Names(), ElementsAre("target"));
  EXPECT_EQ(folder.Read("target/file"), "x");
}

TEST(Look, Roots_AreFolders) {
  const std::string drive = CurrentFolder().substr(0, 3);
  EXPECT_EQ(Look(drive).value.kind, EntryKind::kFolder);
  EXPECT_EQ(Look("\\").value.kind, EntryKind::kFolder);
}

TEST(Look, ShortName_LeadsToTheLongOne) {
  const TempFolder folder;
  folder.Write("A long file name.text", "123");
  const std::string shortened = ShortPath(folder.Core("A long file name.text"));
  if (shortened.empty() || shortened.ends_with(".text")) GTEST_SKIP() << "this disk makes no short names";
  EXPECT_EQ(Look(shortened).value.name, "A long file name.text");
}

TEST(Look, Device_IsSpecialAndNeverOpened) {
  const TempFolder folder;
  for (const char* name : {"NUL", "com1", "aux.txt"}) {
    EXPECT_EQ(Look(folder.Core(name)).value.kind, EntryKind::kSpecial) << name;
    EXPECT_FALSE(CheckReadable(folder.Core(name)).ok()) << name;
    EXPECT_EQ(WriteWholeFile(folder.Core(name), "x").error, ErrorClass::kWrongKind) << name;
    EXPECT_EQ(CopyFileWithProgress(folder.Core(name), folder.Core("to"), nullptr).error, ErrorClass::kWrongKind);
  }
}

TEST(Look, WildcardInAName_FindsNothing) {
  const TempFolder folder;
  folder.Write("name", "");
  for (const char* name : {"n*", "nam?", "n<", "nam>", "nam\""}) EXPECT_FALSE(Look(folder.Core(name)).ok()) << name;
}

TEST(LiesBelow, FileBehindALinkToAFolder_IsElsewhere) {
  const TempFolder folder;
  folder.Write("target/file", "");
  folder.Write("top/file", "");
  const FolderLink link(folder, "target", "top/link");
  if (!link.made()) GTEST_SKIP() << "no links here";
  EXPECT_TRUE(LiesBelow(folder.Core("top"), folder.Core("top/file")));
  EXPECT_FALSE(LiesBelow(folder.Core("top"), folder.Core("top/link/file")));
}

}  // namespace
}  // namespace discwright::host
