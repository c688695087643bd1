// Tests of reading folder trees for a disc image.
#include "host/source_tree.h"

#include <gmock/gmock.h>

#include <chrono>
#include <map>

#include "host/system.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::BytesOfSize;
using testing::TempFolder;

// One call of a visitor, with a copy of the name.
struct Seen : TreeEntry {
  std::string kept;
};

std::map<std::string, Seen> List(SourceTree& tree, const std::string& path = "") {
  std::map<std::string, Seen> entries;
  const Status status = tree.List(path, [&](const TreeEntry& entry) {
    entries[std::string(entry.name)] = {entry, std::string(entry.name)};
  });
  EXPECT_TRUE(status.ok()) << status.cause;
  return entries;
}

class SourceTreeTest : public ::testing::Test {
 protected:
  std::unique_ptr<SourceTree> Open() {
    auto tree = OpenSourceTree(folder.Core());
    EXPECT_TRUE(tree.ok()) << tree.status.cause;
    return std::move(tree.value);
  }
  TempFolder folder;
};

TEST_F(SourceTreeTest, List_ReportsKindsAndSizes) {
  folder.Write("file", "12345");
  folder.Write("Sub/inner", "");
  folder.Write("\xC3\xA4", "");
  const auto tree = Open();
  const auto entries = List(*tree);
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries.at("file").kind, EntryKind::kFile);
  EXPECT_EQ(entries.at("file").size, 5u);
  EXPECT_FALSE(entries.at("file").is_link);
  EXPECT_EQ(entries.at("Sub").kind, EntryKind::kFolder);
  EXPECT_EQ(entries.at("Sub").size, 0u);
  EXPECT_EQ(entries.count("\xC3\xA4"), 1u);
  EXPECT_EQ(List(*tree, "Sub").count("inner"), 1u);
}

TEST_F(SourceTreeTest, NamesOfOneFile_HaveOneIdentity) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me have no hard links";
  folder.Write("one", "x");
  folder.Write("other", "x");
  folder.MakeHardLink("one", "two");
  const auto tree = Open();
  auto entries = List(*tree);
  EXPECT_EQ(entries["one"].id, entries["two"].id);
  EXPECT_EQ(entries["one"].volume, entries["two"].volume);
  EXPECT_TRUE(entries["one"].has_other_names);
  EXPECT_NE(entries["one"].id, entries["other"].id);
  EXPECT_FALSE(entries["other"].has_other_names);
}

TEST_F(SourceTreeTest, Folders_HaveAnIdentityOfTheirOwnThatLookingAtThemShowsAgain) {
  folder.MakeFolder("a/c");
  folder.MakeFolder("b/c");
  const auto tree = Open();
  EXPECT_NE(List(*tree)["a"].id, List(*tree)["b"].id);
  EXPECT_NE(List(*tree, "a")["c"].id, List(*tree, "b")["c"].id);
  EXPECT_EQ(List(*tree, "a")["c"].id, tree->Look("a/c").id);
  EXPECT_EQ(List(*tree, "a")["c"].volume, tree->Look("").volume);
}

TEST_F(SourceTreeTest, ModificationTimes_AreSecondsSince1970) {
  folder.Write("file", "");
  const auto then = std::chrono::file_clock::from_sys(std::chrono::sys_seconds(std::chrono::seconds(1000000000)));
  std::filesystem::last_write_time(folder.Path("file"), std::filesystem::file_time_type(then));
  const auto tree = Open();
  EXPECT_EQ(List(*tree)["file"].modified, 1000000000);
  EXPECT_EQ(tree->Look("file").modified, 1000000000);
}

TEST_F(SourceTreeTest, Look_ReportsTheRootAndItsEntries) {
  folder.Write("sub/file", "abc");
  const auto tree = Open();
  EXPECT_EQ(tree->Look("").kind, EntryKind::kFolder);
  EXPECT_EQ(tree->Look("sub/file").size, 3u);
  EXPECT_EQ(tree->Look("sub/missing").status.error, ErrorClass::kNotFound);
}

TEST_F(SourceTreeTest, Files_AreReadToTheirEnd) {
  folder.Write("sub/file", BytesOfSize(100));
  const auto tree = Open();
  const auto file = tree->Open("sub/file");
  ASSERT_TRUE(file.ok()) << file.status.cause;
  std::vector<std::uint8_t> bytes(64);
  std::string content;
  for (const std::size_t expected : {64u, 36u, 0u}) {
    const Result<std::size_t> count = file.value->Read(bytes);
    ASSERT_TRUE(count.ok());
    EXPECT_EQ(count.value, expected);
    content.append(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count.value));
  }
  EXPECT_EQ(content, BytesOfSize(100));
}

TEST_F(SourceTreeTest, WhatIsNotThere_IsAFailure) {
  folder.Write("file", "");
  const auto tree = Open();
  EXPECT_EQ(tree->Open("missing").status.error, ErrorClass::kNotFound);
  EXPECT_FALSE(tree->List("missing", [](const TreeEntry&) {}).ok());
  EXPECT_FALSE(tree->List("file", [](const TreeEntry&) {}).ok());
  EXPECT_EQ(OpenSourceTree(folder.Core("missing")).status.error, ErrorClass::kNotFound);
  EXPECT_FALSE(OpenSourceTree(folder.Core("file")).ok());
}

TEST_F(SourceTreeTest, FolderReadAsAFile_IsAFailure) {
  folder.MakeFolder("sub");
  const auto tree = Open();
  const auto file = tree->Open("sub");
  std::vector<std::uint8_t> bytes(10);
  EXPECT_TRUE(!file.ok() || !file.value->Read(bytes).ok());
}

}  // namespace
}  // namespace discwright::host
