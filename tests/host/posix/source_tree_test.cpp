// Tests of symbolic links, pipes and names of every kind in a source tree.
#include "host/source_tree.h"

#include <gmock/gmock.h>

#include <map>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

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

class SourceTreeLinks : public ::testing::Test {
 protected:
  std::unique_ptr<SourceTree> Open() {
    auto tree = OpenSourceTree(folder.Core());
    EXPECT_TRUE(tree.ok()) << tree.status.cause;
    return std::move(tree.value);
  }
  TempFolder folder;
};

TEST_F(SourceTreeLinks, Pipes_AreSpecial) {
  folder.Pipe("pipe");
  const auto tree = Open();
  EXPECT_EQ(List(*tree).at("pipe").kind, EntryKind::kSpecial);
}

TEST_F(SourceTreeLinks, Names_AreTheDisksOwnBytes) {
  for (const char* name : {"back\\slash", "\xE4", "\xC3\xA4"}) folder.Write(name, "");
  const auto tree = Open();
  for (const char* name : {"back\\slash", "\xE4", "\xC3\xA4"}) EXPECT_EQ(List(*tree).count(name), 1u) << name;
}

TEST_F(SourceTreeLinks, LinkAndItsTarget_HaveOneIdentity) {
  folder.Write("one", "x");
  folder.Link("one", "link");
  const auto tree = Open();
  auto entries = List(*tree);
  EXPECT_EQ(entries["link"].id, entries["one"].id);
  EXPECT_EQ(entries["link"].volume, entries["one"].volume);
}

TEST_F(SourceTreeLinks, Links_AreListedWithTheirTarget) {
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

TEST_F(SourceTreeLinks, FileOfAFolderThatCannotBeSearched_IsVisitedWithItsProblem) {
  folder.Write("sub/file", "abc");
  folder.SetMode("", 0755);
  folder.SetMode("sub", 0644);
  const testing::WithoutRights without;
  const auto tree = Open();
  EXPECT_EQ(List(*tree, "sub").at("file").status.error, ErrorClass::kAccessDenied);
}

TEST_F(SourceTreeLinks, PipeInAFilesPlace_DoesNotBlock) {
  folder.Pipe("pipe");
  const auto tree = Open();
  const auto file = tree->Open("pipe");
  ASSERT_TRUE(file.ok()) << file.status.cause;
  std::vector<std::uint8_t> bytes(10);
  const Result<std::size_t> count = file.value->Read(bytes);
  EXPECT_TRUE(count.ok());
  EXPECT_EQ(count.value, 0u);
}

}  // namespace
}  // namespace discwright::host
