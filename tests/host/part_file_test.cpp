// Files that get their name when they are whole.
#include "host/part_file.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::SmallDisk;
using testing::TempFolder;

std::span<const std::uint8_t> Bytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::unique_ptr<PartFile> Create(const TempFolder& folder, const std::string& name = "file") {
  Status status;
  auto file = CreatePartFile(folder.Core(name), status);
  EXPECT_TRUE(status.ok()) << status.cause;
  return file;
}

TEST(PartFileTest, Committed_HasItsNameAndContent) {
  const TempFolder folder;
  const auto file = Create(folder);
  EXPECT_TRUE(file->Append(Bytes("one ")).ok());
  EXPECT_TRUE(file->Append(Bytes("two")).ok());
  EXPECT_THAT(folder.Names(), ElementsAre("file.part"));
  EXPECT_TRUE(file->Commit().ok());
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  EXPECT_EQ(folder.Read("file"), "one two");
}

TEST(PartFileTest, NotCommitted_LeavesNothingButAnEarlierFile) {
  const TempFolder folder;
  folder.Write("file", "earlier");
  EXPECT_TRUE(Create(folder)->Append(Bytes("new")).ok());
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  EXPECT_EQ(folder.Read("file"), "earlier");
}

TEST(PartFileTest, Committed_ReplacesAnEarlierFile) {
  const TempFolder folder;
  folder.Write("file", "earlier and longer");
  folder.Write("file.part", "left by a run that was killed");
  const auto file = Create(folder);
  EXPECT_TRUE(file->Append(Bytes("new")).ok());
  EXPECT_TRUE(file->Commit().ok());
  EXPECT_EQ(folder.Read("file"), "new");
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST(PartFileTest, OfTwoRuns_TheLaterWins) {
  const TempFolder folder;
  auto early = Create(folder);
  EXPECT_TRUE(early->Append(Bytes("early")).ok());
  const auto late = Create(folder);
  EXPECT_TRUE(late->Append(Bytes("la")).ok());
  EXPECT_EQ(early->Commit().error, ErrorClass::kExists);
  early.reset();
  EXPECT_THAT(folder.Names(), ElementsAre("file.part"));
  EXPECT_TRUE(late->Append(Bytes("te")).ok());
  EXPECT_TRUE(late->Commit().ok());
  EXPECT_EQ(folder.Read("file"), "late");
}

TEST(PartFileTest, EarlierRunBehindAFinishedOne_DoesNotTouchItsFile) {
  const TempFolder folder;
  const auto early = Create(folder);
  EXPECT_TRUE(Create(folder)->Commit().ok());
  EXPECT_EQ(early->Commit().error, ErrorClass::kExists);
  EXPECT_EQ(folder.Read("file"), "");
}

TEST(PartFileTest, LinkUnderThePartsName_IsReplacedNotFollowed) {
  const TempFolder folder;
  folder.Write("precious", "content");
  folder.Link("precious", "file.part");
  const auto file = Create(folder);
  EXPECT_TRUE(file->Append(Bytes("new")).ok());
  EXPECT_TRUE(file->Commit().ok());
  EXPECT_EQ(folder.Read("precious"), "content");
}

TEST(PartFileTest, NameThatIsNoRegularFile_IsAFailure) {
  const TempFolder folder;
  folder.MakeFolder("folder");
  folder.Pipe("pipe");
  Status status;
  for (const char* name : {"folder", "pipe"}) {
    EXPECT_EQ(CreatePartFile(folder.Core(name), status), nullptr);
    EXPECT_EQ(status.error, ErrorClass::kWrongKind) << name;
  }
  EXPECT_THAT(folder.Names(), ElementsAre("folder", "pipe"));
}

TEST(PartFileTest, PlaceThatCannotHoldIt_IsAFailure) {
  const TempFolder folder;
  folder.MakeFolder("taken.part");
  Status status;
  EXPECT_EQ(CreatePartFile(folder.Core("missing\\file"), status), nullptr);
  EXPECT_EQ(status.error, ErrorClass::kNotFound);
  EXPECT_EQ(CreatePartFile(folder.Core("taken"), status), nullptr);
  EXPECT_FALSE(status.ok());
}

TEST(PartFileTest, FullDisk_IsToldAndLeavesNothing) {
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  {
    const auto file = Create(disk.folder());
    const std::vector<std::uint8_t> bytes(2000000);
    EXPECT_EQ(file->Append(bytes).error, ErrorClass::kDiskFull);
  }
  EXPECT_THAT(disk.folder().Names(), ElementsAre());
}

}  // namespace
}  // namespace discwright::host
