// Tests of files that get their final name when they are complete.
#include "host/part_file.h"

#include <gmock/gmock.h>

#include "host/system.h"
#include "host/threads.h"
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
  auto file = CreatePartFile(folder.Core(name), 0);
  EXPECT_TRUE(file.ok()) << file.status.cause;
  return std::move(file.value);
}

TEST(PartFileTest, Committed_HasItsNameAndContent) {
  const TempFolder folder;
  const auto file = Create(folder);
  EXPECT_TRUE(file->WriteAt(0, Bytes("one ")).ok());
  EXPECT_TRUE(file->WriteAt(4, Bytes("two")).ok());
  EXPECT_THAT(folder.Names(), ElementsAre(".discwright-file.part"));
  EXPECT_EQ(file->Commit().cause, "");
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  EXPECT_EQ(folder.Read("file"), "one two");
}

TEST(PartFileTest, NotCommitted_LeavesNothingButAnEarlierFile) {
  const TempFolder folder;
  folder.Write("file", "earlier");
  EXPECT_TRUE(Create(folder)->WriteAt(0, Bytes("new")).ok());
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  EXPECT_EQ(folder.Read("file"), "earlier");
}

TEST(PartFileTest, Committed_ReplacesAnEarlierFile) {
  const TempFolder folder;
  folder.Write("file", "earlier and longer");
  folder.Write(".discwright-file.part", "left by a run that was killed");
  const auto file = Create(folder);
  EXPECT_TRUE(file->WriteAt(0, Bytes("new")).ok());
  EXPECT_EQ(file->Commit().cause, "");
  EXPECT_EQ(folder.Read("file"), "new");
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST(PartFileTest, FileOfTheUserThatIsCalledPart_StaysAsItIs) {
  const TempFolder folder;
  folder.Write("file.part", "mine");
  EXPECT_EQ(Create(folder)->Commit().cause, "");
  EXPECT_EQ(folder.Read("file.part"), "mine");
}

TEST(PartFileTest, WhatKilledRunsLeftBesideIt_IsDeleted) {
  const TempFolder folder;
  for (const char* name : {".discwright-12-0", ".discwright-other.part", ".discwright-file.test"}) {
    folder.Write(name, "left");
  }
  EXPECT_EQ(Create(folder)->Commit().cause, "");
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

TEST(PartFileTest, UnfinishedFileOfAnotherName_StaysWhileItIsWritten) {
  const TempFolder folder;
  const auto other = Create(folder, "other");
  EXPECT_EQ(Create(folder)->Commit().cause, "");
  EXPECT_EQ(other->Commit().cause, "");
  EXPECT_THAT(folder.Names(), ElementsAre("file", "other"));
}

TEST(PartFileTest, PartsInAnyOrder_MakeTheWholeFile) {
  const TempFolder folder;
  const auto file = CreatePartFile(folder.Core("file"), 10);
  ASSERT_TRUE(file.ok()) << file.status.cause;
  EXPECT_TRUE(file.value->WriteAt(5, Bytes("56789")).ok());
  EXPECT_TRUE(file.value->WriteAt(0, Bytes("01234")).ok());
  EXPECT_EQ(file.value->Commit().cause, "");
  EXPECT_EQ(folder.Read("file"), "0123456789");
}

TEST(PartFileTest, SeveralThreads_WriteTheirPartsWhereTheyBelong) {
  const TempFolder folder;
  const auto file = Create(folder);
  constexpr std::size_t kPart = 1000;
  const auto write = [&](std::size_t first) {
    for (std::size_t part = first; part < 64; part += 2) {
      const std::string bytes(kPart, static_cast<char>('A' + part % 26));
      EXPECT_TRUE(file->WriteAt(part * kPart, Bytes(bytes)).ok());
    }
  };
  Thread other([&] { write(1); });
  write(0);
  other.Join();
  EXPECT_EQ(file->Commit().cause, "");
  const std::string content = folder.Read("file");
  ASSERT_EQ(content.size(), 64 * kPart);
  for (std::size_t i = 0; i < content.size(); ++i) ASSERT_EQ(content[i], static_cast<char>('A' + i / kPart % 26)) << i;
}

TEST(PartFileTest, OfTwoRuns_TheLaterWins) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me let nobody replace an open file";
  const TempFolder folder;
  auto early = Create(folder);
  EXPECT_TRUE(early->WriteAt(0, Bytes("early")).ok());
  const auto late = Create(folder);
  EXPECT_TRUE(late->WriteAt(0, Bytes("la")).ok());
  EXPECT_EQ(early->Commit().error, ErrorClass::kExists);
  early.reset();
  EXPECT_THAT(folder.Names(), ElementsAre(".discwright-file.part"));
  EXPECT_TRUE(late->WriteAt(2, Bytes("te")).ok());
  EXPECT_TRUE(late->Commit().ok());
  EXPECT_EQ(folder.Read("file"), "late");
}

TEST(PartFileTest, EarlierRunBehindAFinishedOne_DoesNotTouchItsFile) {
  if (PlatformId() == 1) GTEST_SKIP() << "Windows 95, 98 and Me let nobody replace an open file";
  const TempFolder folder;
  const auto early = Create(folder);
  EXPECT_TRUE(Create(folder)->Commit().ok());
  EXPECT_EQ(early->Commit().error, ErrorClass::kExists);
  EXPECT_EQ(folder.Read("file"), "");
}

TEST(PartFileTest, FolderWithItsName_IsAFailure) {
  const TempFolder folder;
  folder.MakeFolder("folder");
  EXPECT_EQ(CreatePartFile(folder.Core("folder"), 0).status.error, ErrorClass::kWrongKind);
  EXPECT_THAT(folder.Names(), ElementsAre("folder"));
}

TEST(PartFileTest, PlaceThatCannotHoldIt_IsAFailure) {
  const TempFolder folder;
  folder.MakeFolder(".discwright-taken.part");
  EXPECT_EQ(CreatePartFile(folder.Core("missing\\file"), 0).status.error, ErrorClass::kNotFound);
  EXPECT_FALSE(CreatePartFile(folder.Core("taken"), 0).ok());
}

TEST(PartFileTest, FullDisk_IsReportedAndLeavesNothing) {
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  {
    const auto file = Create(disk.folder());
    const std::vector<std::uint8_t> bytes(2000000);
    EXPECT_EQ(file->WriteAt(0, bytes).error, ErrorClass::kDiskFull);
  }
  EXPECT_THAT(disk.folder().Names(), ElementsAre());
}

TEST(PartFileTest, RoomThatTheDiskDoesNotHave_IsReportedAtOnce) {
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  EXPECT_EQ(CreatePartFile(disk.folder().Core("file"), 2000000).status.error, ErrorClass::kDiskFull);
  EXPECT_THAT(disk.folder().Names(), ElementsAre());
}

TEST(PartFileTest, RoomSetAside_IsNotPartOfTheFile) {
  const TempFolder folder;
  const auto file = CreatePartFile(folder.Core("file"), 1000000);
  ASSERT_TRUE(file.ok()) << file.status.cause;
  EXPECT_TRUE(file.value->WriteAt(0, Bytes("short")).ok());
  EXPECT_EQ(file.value->Commit().cause, "");
  EXPECT_EQ(folder.Read("file"), "short");
}

}  // namespace
}  // namespace discwright::host
