// Tests of hard links beside symbolic links, pipes and protected files.
#include "host/hard_links.h"

#include <gmock/gmock.h>
#include <linux/fs.h>
#include <sys/ioctl.h>

#include "host/posix/unique_fd.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

std::vector<std::string> NamesOf(const Result<std::vector<NamedFacts>>& listing) {
  std::vector<std::string> names;
  for (const NamedFacts& entry : listing.value) names.push_back(entry.name + (entry.is_folder ? "\\" : ""));
  return names;
}

// A file that nobody may link or remove until this goes.
class ImmutableFile {
 public:
  explicit ImmutableFile(const std::string& native) : fd_(open(native.c_str(), O_RDONLY | O_CLOEXEC)) {
    made_ = fd_.valid() && ioctl(fd_.get(), FS_IOC_GETFLAGS, &flags_) == 0 && Set(flags_ | FS_IMMUTABLE_FL);
  }
  ImmutableFile(const ImmutableFile&) = delete;
  ImmutableFile& operator=(const ImmutableFile&) = delete;
  ~ImmutableFile() {
    if (made_) Set(flags_);
  }
  bool made() const { return made_; }

 private:
  bool Set(int flags) const { return ioctl(fd_.get(), FS_IOC_SETFLAGS, &flags) == 0; }

  UniqueFd fd_;
  int flags_ = 0;
  bool made_ = false;
};

TEST(ListFacts, NamesOfEveryKind_AreListedByNameByteByByte) {
  const TempFolder folder;
  for (const char* name : {"b", "B", "a b", "\xC3\xA4", "new\nline", "back\\slash"}) folder.Write(name, "x");
  folder.MakeFolder("a");
  const Result<std::vector<NamedFacts>> listing = ListFacts(folder.Core());
  EXPECT_TRUE(listing.status.ok());
  EXPECT_THAT(NamesOf(listing), ElementsAre("B", "a\\", "a b", "b", "back\xEF\x81\x9Cslash", "new\nline", "\xC3\xA4"));
}

TEST(ListFacts, LinksPipesAndSockets_AreLeftOut) {
  const TempFolder folder;
  folder.Write("file", "x");
  folder.Link("file", "link");
  folder.Link(".", "folder link");
  folder.Link("nowhere", "broken");
  folder.Pipe("pipe");
  EXPECT_THAT(NamesOf(ListFacts(folder.Core())), ElementsAre("file"));
}

TEST(ListFacts, FileThatCannotBeLookedAt_IsListedWithTheReason) {
  const TempFolder folder;
  folder.Write("sub/file", "x");
  folder.SetMode("", 0755);
  folder.SetMode("sub", 0644);
  const testing::WithoutRights without;
  const Result<std::vector<NamedFacts>> listing = ListFacts(folder.Core("sub"));
  ASSERT_THAT(NamesOf(listing), ElementsAre("file"));
  EXPECT_EQ(listing.value[0].status.cause, "Permission denied");
}

TEST(FactsOf, LinkOrPipe_HasNone) {
  const TempFolder folder;
  folder.Write("File", "x");
  folder.Link("File", "link");
  folder.Pipe("pipe");
  for (const char* name : {"link", "pipe", "file"}) EXPECT_FALSE(FactsOf(folder.Core(name))) << name;
}

TEST(OpenUnchanged, FileReplacedByALinkOrPipe_IsRefused) {
  const TempFolder folder;
  folder.Write("target", "content");
  const FileFacts target = *FactsOf(folder.Core("target"));
  folder.Link("target", "link");
  EXPECT_FALSE(OpenUnchanged(folder.Core("link"), target).ok());
  folder.Pipe("pipe");
  EXPECT_FALSE(OpenUnchanged(folder.Core("pipe"), target).ok());
}

TEST(MakeHardLink, NameInAnotherCase_IsFree) {
  const TempFolder folder;
  folder.Write("file", "x");
  EXPECT_EQ(MakeHardLink(folder.Core("file"), folder.Core("FILE")).end, LinkEnd::kMade);
  EXPECT_THAT(folder.Names(), ElementsAre("FILE", "file"));
  EXPECT_EQ(FactsOf(folder.Core("FILE"))->links, 2u);
}

TEST(MakeHardLink, ProtectedFileOnAFileSystemWithLinks_IsAFailureThatLeavesNothing) {
  const TempFolder folder;
  folder.Write("file", "x");
  const ImmutableFile file(folder.Native("file"));
  if (!file.made()) GTEST_SKIP() << "files cannot be made immutable here";
  EXPECT_EQ(MakeHardLink(folder.Core("file"), folder.Core("fresh")).end, LinkEnd::kFailed);
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST(MakeHardLink, FileSystemWithoutLinks_IsAResultOfItsOwnAndKeepsNoNewFile) {
  const TempFolder folder;
  // The file system of message queues has files and no links.
  if (mount("discwright-test", folder.native().c_str(), "mqueue", 0, nullptr) != 0)
    GTEST_SKIP() << "mounting is not permitted";
  folder.Write("file", "");
  EXPECT_EQ(MakeHardLink(folder.Core("file"), folder.Core("fresh")).end, LinkEnd::kUnsupported);
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  std::filesystem::remove(folder.Native("file"));
  umount2(folder.native().c_str(), MNT_DETACH);
}

TEST(RemoveSpareName, Link_IsNotRemoved) {
  const TempFolder folder;
  folder.Write("file", "1");
  folder.MakeHardLink("file", "spare");
  folder.Link("file", "link");
  EXPECT_FALSE(RemoveSpareName(folder.Core("link")));
  EXPECT_THAT(folder.Names(), ElementsAre("file", "link", "spare"));
}

}  // namespace
}  // namespace discwright::host
