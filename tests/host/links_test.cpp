// Hard links and the facts about files.
#include "host/links.h"

#include <gmock/gmock.h>
#include <linux/fs.h>
#include <sys/ioctl.h>

#include "host/posix/unique_fd.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::SmallDisk;
using testing::TempFolder;

std::vector<std::string> NamesOf(const FactsListing& listing) {
  std::vector<std::string> names;
  for (const NamedFacts& entry : listing.entries) names.push_back(entry.name + (entry.is_folder ? "\\" : ""));
  return names;
}

void MakeLink(const TempFolder& folder, std::string_view existing, std::string_view fresh) {
  std::filesystem::create_hard_link(folder.Native(existing), folder.Native(fresh));
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

TEST(ListFacts, FilesAndFolders_AreListedByNameByteByByte) {
  const TempFolder folder;
  for (const char* name : {"b", "B", "a b", "\xC3\xA4", "new\nline", "back\\slash"}) folder.Write(name, "x");
  folder.MakeFolder("a");
  const FactsListing listing = ListFacts(folder.Core());
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

TEST(ListFacts, MissingFolderOrFile_IsAFailure) {
  const TempFolder folder;
  folder.Write("file", "x");
  EXPECT_EQ(ListFacts(folder.Core("missing")).status.error, ErrorClass::kNotFound);
  EXPECT_FALSE(ListFacts(folder.Core("file")).status.ok());
}

TEST(FactsOf, NamesOfOneFile_AreTheSameFileWithTwoLinks) {
  const TempFolder folder;
  folder.Write("file", "12345");
  folder.Write("other", "12345");
  MakeLink(folder, "file", "second");
  const auto file = FactsOf(folder.Core("file"));
  const auto second = FactsOf(folder.Core("second"));
  const auto other = FactsOf(folder.Core("other"));
  ASSERT_TRUE(file && second && other);
  EXPECT_TRUE(file->IsSameFile(*second));
  EXPECT_FALSE(file->IsSameFile(*other));
  EXPECT_EQ(file->links, 2u);
  EXPECT_EQ(file->size, 5);
}

TEST(FactsOf, LinkFolderPipeOrNothing_HasNone) {
  const TempFolder folder;
  folder.Write("File", "x");
  folder.Link("File", "link");
  folder.Pipe("pipe");
  for (const char* name : {"link", "pipe", "", "missing", "file"}) EXPECT_FALSE(FactsOf(folder.Core(name))) << name;
}

TEST(FileFacts, OtherSizeTimeOrFile_IsAChange) {
  const FileFacts facts{1, 2, 3, 4, 5};
  EXPECT_TRUE(facts.IsUnchanged({1, 2, 3, 4, 6}));
  EXPECT_FALSE(facts.IsUnchanged({1, 2, 3, 5, 5}));
  EXPECT_FALSE(facts.IsUnchanged({1, 2, 4, 4, 5}));
  EXPECT_FALSE(facts.IsUnchanged({1, 3, 3, 4, 5}));
  EXPECT_FALSE(facts.IsUnchanged({2, 2, 3, 4, 5}));
}

TEST(OpenUnchanged, FileAsItWasListed_IsReadWithoutTouchingItsTimes) {
  const TempFolder folder;
  folder.Write("file", "content");
  Status status;
  const auto file = OpenUnchanged(folder.Core("file"), *FactsOf(folder.Core("file")), status);
  ASSERT_TRUE(file) << status.cause;
  std::array<std::byte, 7> bytes{};
  EXPECT_TRUE(file->ReadAt(0, bytes).ok());
  EXPECT_EQ(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), "content");
}

TEST(OpenUnchanged, ChangedReplacedOrMissingFile_IsRefused) {
  const TempFolder folder;
  folder.Write("file", "content");
  folder.Write("target", "content");
  const FileFacts facts = *FactsOf(folder.Core("file"));
  const FileFacts target = *FactsOf(folder.Core("target"));
  Status status;
  folder.Write("file", "longer content");
  EXPECT_EQ(OpenUnchanged(folder.Core("file"), facts, status), nullptr);
  EXPECT_FALSE(status.ok());
  folder.Link("target", "link");
  EXPECT_EQ(OpenUnchanged(folder.Core("link"), target, status), nullptr);
  EXPECT_FALSE(status.ok());
  folder.Pipe("pipe");
  EXPECT_EQ(OpenUnchanged(folder.Core("pipe"), target, status), nullptr);
  EXPECT_EQ(OpenUnchanged(folder.Core("missing"), target, status), nullptr);
  EXPECT_EQ(status.error, ErrorClass::kNotFound);
}

TEST(MakeHardLink, FreeName_BecomesASecondName) {
  const TempFolder folder;
  folder.Write("file", "x");
  EXPECT_EQ(MakeHardLink(folder.Core("file"), folder.Core("FILE")).end, LinkEnd::kMade);
  EXPECT_THAT(folder.Names(), ElementsAre("FILE", "file"));
  EXPECT_EQ(FactsOf(folder.Core("FILE"))->links, 2u);
}

TEST(MakeHardLink, TakenName_StaysAsItIs) {
  const TempFolder folder;
  folder.Write("file", "1");
  folder.Write("taken", "2");
  const LinkAnswer answer = MakeHardLink(folder.Core("file"), folder.Core("taken"));
  EXPECT_EQ(answer.end, LinkEnd::kNameTaken);
  EXPECT_FALSE(answer.status.ok());
  EXPECT_EQ(folder.Read("taken"), "2");
}

TEST(MakeHardLink, MissingFile_IsAFailureWithItsCause) {
  const TempFolder folder;
  const LinkAnswer answer = MakeHardLink(folder.Core("missing"), folder.Core("fresh"));
  EXPECT_EQ(answer.end, LinkEnd::kFailed);
  EXPECT_EQ(answer.status.error, ErrorClass::kNotFound);
}

TEST(MakeHardLink, OtherVolume_IsToldApart) {
  const TempFolder folder;
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  folder.Write("file", "x");
  EXPECT_EQ(MakeHardLink(folder.Core("file"), disk.folder().Core("fresh")).end, LinkEnd::kOtherVolume);
}

TEST(MakeHardLink, ProtectedFileOnAFileSystemWithLinks_IsAFailureThatLeavesNothing) {
  const TempFolder folder;
  folder.Write("file", "x");
  const ImmutableFile file(folder.Native("file"));
  if (!file.made()) GTEST_SKIP() << "files cannot be made immutable here";
  EXPECT_EQ(MakeHardLink(folder.Core("file"), folder.Core("fresh")).end, LinkEnd::kFailed);
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST(MakeHardLink, FileSystemWithoutLinks_IsToldApartAndKeepsNothing) {
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

TEST(ReplaceFile, ExistingTarget_BecomesTheOtherFile) {
  const TempFolder folder;
  folder.Write("from", "1");
  folder.Write("to", "2");
  EXPECT_TRUE(ReplaceFile(folder.Core("from"), folder.Core("to")).ok());
  EXPECT_THAT(folder.Names(), ElementsAre("to"));
  EXPECT_EQ(folder.Read("to"), "1");
}

TEST(ReplaceFile, MissingSourceOrTarget_IsAFailureThatLeavesBoth) {
  const TempFolder folder;
  folder.Write("file", "1");
  EXPECT_EQ(ReplaceFile(folder.Core("missing"), folder.Core("file")).error, ErrorClass::kNotFound);
  EXPECT_EQ(ReplaceFile(folder.Core("file"), folder.Core("missing")).error, ErrorClass::kNotFound);
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST(RemoveSpareName, OnlyANameThatIsNotTheLast_IsRemoved) {
  const TempFolder folder;
  folder.Write("file", "1");
  MakeLink(folder, "file", "spare");
  folder.Link("file", "link");
  EXPECT_TRUE(RemoveSpareName(folder.Core("spare")));
  for (const char* name : {"file", "link", "missing"}) EXPECT_FALSE(RemoveSpareName(folder.Core(name))) << name;
  EXPECT_THAT(folder.Names(), ElementsAre("file", "link"));
}

}  // namespace
}  // namespace discwright::host
