// Tests of source trees and hard links: names that the code page lacks, links and locked files.
#include "host/source_tree.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <map>

#include "host/hard_links.h"
#include "host/system.h"
#include "host/win32/errors.h"
#include "host/win32/owned_handle.h"
#include "tests/host/win32/folder_link.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::FolderLink;
using testing::TempFolder;

std::map<std::string, TreeEntry> List(const TempFolder& folder) {
  std::map<std::string, TreeEntry> entries;
  const auto tree = OpenSourceTree(folder.Core());
  EXPECT_TRUE(tree.value->List("", [&](const TreeEntry& entry) { entries[std::string(entry.name)] = entry; }).ok());
  return entries;
}

TEST(SourceTreeNames, NameThatTheCodePageLacks_IsReportedWithItsReason) {
  const TempFolder folder;
  folder.Write("漢.txt", "x");
  folder.Write("Übung", "x");
  auto entries = List(folder);
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries["?.txt"].status.cause, NameNotInCodePage().cause);
  EXPECT_TRUE(entries["Übung"].status.ok());
}

TEST(SourceTreeNames, LinkToAFolder_IsListedWithItsTarget) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no links";
  const TempFolder folder;
  folder.Write("target/file", "x");
  const FolderLink link(folder, "target", "link");
  if (!link.made()) GTEST_SKIP() << "links cannot be made here";
  auto entries = List(folder);
  EXPECT_TRUE(entries["link"].is_link);
  EXPECT_EQ(entries["link"].kind, EntryKind::kFolder);
  EXPECT_EQ(entries["link"].id, entries["target"].id);
  EXPECT_FALSE(entries["target"].is_link);
}

TEST(SourceTreeNames, LockedFile_IsListedWithItsSizeAndCannotBeOpened) {
  const TempFolder folder;
  folder.Write("file", "12345");
  const OwnedHandle lock(CreateFileW(folder.Path("file").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                     FILE_ATTRIBUTE_NORMAL, nullptr));
  EXPECT_EQ(List(folder)["file"].size, 5u);
  const auto tree = OpenSourceTree(folder.Core());
  EXPECT_EQ(tree.value->Open("file").status.error, ErrorClass::kAccessDenied);
}

TEST(SourceTreeNames, FolderNameInAnotherCaseOrShort_IsTheSameTree) {
  const TempFolder folder;
  folder.Write("A long folder name/file", "x");
  const auto tree = OpenSourceTree(folder.Core("A LONG FOLDER NAME"));
  const auto same = OpenSourceTree(ShortPath(folder.Core("A long folder name")));
  ASSERT_TRUE(tree.ok() && same.ok());
  EXPECT_EQ(tree.value->Look("file").id, same.value->Look("file").id);
  EXPECT_EQ(tree.value->Look("").id, same.value->Look("").id);
}

TEST(ListFacts, NameThatTheCodePageLacks_IsListedAndCannotBeOpened) {
  const TempFolder folder;
  folder.Write("漢", "12345");
  folder.Write("字", "12345");
  folder.Write("A", "12345");
  const Result<std::vector<NamedFacts>> listing = ListFacts(folder.Core());
  ASSERT_EQ(listing.value.size(), 3u);
  EXPECT_EQ(listing.value[0].name, "?");
  EXPECT_EQ(listing.value[0].facts.size, 5);
  EXPECT_EQ(listing.value[0].facts.volume, listing.value[2].facts.volume);
  EXPECT_FALSE(listing.value[0].facts.IsSameFile(listing.value[1].facts));
  EXPECT_EQ(OpenUnchanged(folder.Core("?"), listing.value[0].facts).status.cause, NameNotInCodePage().cause);
}

TEST(MakeHardLink, Windows9x_HasNone) {
  if (PlatformId() != 1) GTEST_SKIP() << "the NT family has hard links";
  const TempFolder folder;
  folder.Write("file", "x");
  const LinkAnswer answer = MakeHardLink(folder.Core("file"), folder.Core("fresh"));
  EXPECT_EQ(answer.end, LinkEnd::kUnsupported);
  EXPECT_FALSE(answer.status.cause.empty());
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

}  // namespace
}  // namespace discwright::host
