// Reading folder trees for a disc image.
#include "host/source_tree.h"

#include <gmock/gmock.h>

#include <map>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::BytesOfSize;
using testing::TempFolder;

// What a visitor is told, with the name kept.
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
    Status status;
    auto tree = OpenSourceTree(folder.Core(), status);
    EXPECT_TRUE(status.ok()) << status.cause;
    return tree;
  }
  TempFolder folder;
};

TEST_F(SourceTreeTest, List_TellsKindsAndSizes) {
  folder.Write("file", "12345");
  folder.Write("Sub/inner", "");
  folder.Pipe("pipe");
  const auto tree = Open();
  const auto entries = List(*tree);
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries.at("file").kind, EntryKind::kFile);
  EXPECT_EQ(entries.at("file").size, 5u);
  EXPECT_FALSE(entries.at("file").is_link);
  EXPECT_EQ(entries.at("Sub").kind, EntryKind::kFolder);
  EXPECT_EQ(entries.at("Sub").size, 0u);
  EXPECT_EQ(entries.at("pipe").kind, EntryKind::kSpecial);
  EXPECT_EQ(List(*tree, "Sub").count("inner"), 1u);
}

TEST_F(SourceTreeTest, Names_AreTheDisksOwnBytes) {
  for (const char* name : {"back\\slash", "\xE4", "\xC3\xA4"}) folder.Write(name, "");
  const auto tree = Open();
  for (const char* name : {"back\\slash", "\xE4", "\xC3\xA4"}) EXPECT_EQ(List(*tree).count(name), 1u) << name;
}

TEST_F(SourceTreeTest, NamesOfOneFile_HaveOneIdentity) {
  folder.Write("one", "x");
  folder.Write("other", "x");
  std::filesystem::create_hard_link(folder.Native("one"), folder.Native("two"));
  folder.Link("one", "link");
  const auto tree = Open();
  auto entries = List(*tree);
  EXPECT_EQ(entries["one"].id, entries["two"].id);
  EXPECT_EQ(entries["one"].volume, entries["two"].volume);
  EXPECT_TRUE(entries["one"].has_other_names);
  EXPECT_EQ(entries["link"].id, entries["one"].id);
  EXPECT_NE(entries["one"].id, entries["other"].id);
  EXPECT_FALSE(entries["other"].has_other_names);
}

TEST_F(SourceTreeTest, Links_AreToldWithTheirTarget) {
  folder.Write("target/file", "abc");
  folder.Link("target", "folder");
  folder.Link("target/file", "file");
  folder.Link("nowhere", "broken");
  folder.Link("self", "self");
  const auto tree = Open();
  auto entries = List(*tree);
  EXPECT_TRUE(entries["folder"].is_link);
  EXPECT_EQ(entries["folder"].kind, EntryKind::kFolder);
  EXPECT_EQ(entries["file"].size, 3u);
  EXPECT_EQ(entries["broken"].status.error, ErrorClass::kNotFound);
  EXPECT_TRUE(entries["broken"].is_link);
  EXPECT_EQ(entries["self"].status.error, ErrorClass::kLoop);
  EXPECT_EQ(List(*tree, "folder").count("file"), 1u);
}

TEST_F(SourceTreeTest, ModificationTimes_AreSecondsSince1970) {
  folder.Write("file", "");
  const auto then = std::chrono::file_clock::from_sys(std::chrono::sys_seconds(std::chrono::seconds(1000000000)));
  std::filesystem::last_write_time(folder.Native("file"), std::filesystem::file_time_type(then));
  const auto tree = Open();
  EXPECT_EQ(List(*tree)["file"].modified, 1000000000);
  EXPECT_EQ(tree->Look("file").modified, 1000000000);
}

TEST_F(SourceTreeTest, Look_TellsOfTheRootAndOfEntries) {
  folder.Write("sub/file", "abc");
  const auto tree = Open();
  EXPECT_EQ(tree->Look("").kind, EntryKind::kFolder);
  EXPECT_EQ(tree->Look("sub/file").size, 3u);
  EXPECT_EQ(tree->Look("sub/missing").status.error, ErrorClass::kNotFound);
}

TEST_F(SourceTreeTest, Files_AreReadToTheirEnd) {
  folder.Write("sub/file", BytesOfSize(100));
  const auto tree = Open();
  Status status;
  const auto file = tree->Open("sub/file", status);
  ASSERT_NE(file, nullptr);
  std::vector<std::uint8_t> bytes(64);
  std::size_t count = 0;
  std::string content;
  for (const std::size_t expected : {64u, 36u, 0u}) {
    ASSERT_TRUE(file->Read(bytes, count).ok());
    EXPECT_EQ(count, expected);
    content.append(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
  }
  EXPECT_EQ(content, BytesOfSize(100));
}

TEST_F(SourceTreeTest, WhatIsNotThere_IsAFailure) {
  folder.Write("file", "");
  const auto tree = Open();
  Status status;
  EXPECT_EQ(tree->Open("missing", status), nullptr);
  EXPECT_EQ(status.error, ErrorClass::kNotFound);
  EXPECT_FALSE(tree->List("missing", [](const TreeEntry&) {}).ok());
  EXPECT_FALSE(tree->List("file", [](const TreeEntry&) {}).ok());
  EXPECT_EQ(OpenSourceTree(folder.Core("missing"), status), nullptr);
  EXPECT_EQ(status.error, ErrorClass::kNotFound);
  EXPECT_EQ(OpenSourceTree(folder.Core("file"), status), nullptr);
}

TEST_F(SourceTreeTest, PipeInAFilesPlace_DoesNotBlock) {
  folder.Pipe("pipe");
  const auto tree = Open();
  Status status;
  const auto file = tree->Open("pipe", status);
  ASSERT_NE(file, nullptr);
  std::vector<std::uint8_t> bytes(10);
  std::size_t count = 1;
  EXPECT_TRUE(file->Read(bytes, count).ok());
  EXPECT_EQ(count, 0u);
}

TEST_F(SourceTreeTest, FolderReadAsAFile_IsAFailure) {
  folder.MakeFolder("sub");
  const auto tree = Open();
  Status status;
  const auto file = tree->Open("sub", status);
  std::vector<std::uint8_t> bytes(10);
  std::size_t count = 0;
  EXPECT_TRUE(file == nullptr || !file->Read(bytes, count).ok());
}

}  // namespace
}  // namespace discwright::host
