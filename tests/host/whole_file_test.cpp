// Tests of reading and replacing whole files.
#include <gmock/gmock.h>

#include <chrono>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::BytesOfSize;
using ::testing::ElementsAre;
using testing::SmallDisk;
using testing::TempFolder;

TEST(ReadWholeFile, EmptySmallAndLargeFiles_AreReadWhole) {
  const TempFolder folder;
  for (const std::size_t size : {0u, 1u, 4096u, 3000001u}) {
    folder.Write("file", BytesOfSize(size));
    const Result<std::string> content = ReadWholeFile(folder.Core("FILE"));
    EXPECT_TRUE(content.ok());
    EXPECT_EQ(content.value, BytesOfSize(size));
  }
}

TEST(ReadWholeFile, FileAboveTheLimit_IsTooLargeAndNotRead) {
  const TempFolder folder;
  folder.Write("file", "0123456789");
  EXPECT_EQ(ReadWholeFile(folder.Core("file"), 10).value, "0123456789");
  const Result<std::string> content = ReadWholeFile(folder.Core("file"), 9);
  EXPECT_EQ(content.status.error, ErrorClass::kTooLarge);
  EXPECT_EQ(content.status.cause, "it is too large: 10 bytes; at most 9 bytes are possible");
  EXPECT_EQ(content.value, "");
}

TEST(ReadWholeFile, Folder_IsOfTheWrongKind) {
  const TempFolder folder;
  const Result<std::string> content = ReadWholeFile(folder.Core());
  EXPECT_EQ(content.status.error, ErrorClass::kWrongKind);
  EXPECT_EQ(content.value, "");
}

TEST(ReadWholeFile, MissingFile_IsNotFound) {
  const TempFolder folder;
  EXPECT_EQ(ReadWholeFile(folder.Core("missing")).status.error, ErrorClass::kNotFound);
}

TEST(WriteWholeFile, NewFile_HasTheContentAndNothingElseIsLeft) {
  const TempFolder folder;
  EXPECT_TRUE(WriteWholeFile(folder.Core("New.ini"), "a\r\nb").ok());
  EXPECT_THAT(folder.Names(), ElementsAre("New.ini"));
  EXPECT_EQ(folder.Read("New.ini"), "a\r\nb");
}

TEST(WriteWholeFile, LongerExistingFile_IsReplacedWhole) {
  const TempFolder folder;
  folder.Write("File", "a long old content");
  EXPECT_TRUE(WriteWholeFile(folder.Core("FILE"), "new").ok());
  EXPECT_EQ(folder.Read("File"), "new");
  EXPECT_EQ(folder.Names().size(), 1u);
}

TEST(WriteWholeFile, Folder_IsOfTheWrongKindAndStays) {
  const TempFolder folder;
  folder.MakeFolder("folder");
  EXPECT_EQ(WriteWholeFile(folder.Core("folder"), "x").error, ErrorClass::kWrongKind);
  EXPECT_THAT(folder.Names(), ElementsAre("folder"));
}

TEST(WriteWholeFile, MissingFolder_IsNotFound) {
  const TempFolder folder;
  EXPECT_EQ(WriteWholeFile(folder.Core("missing\\file"), "x").error, ErrorClass::kNotFound);
}

std::filesystem::file_time_type TimeOf(const TempFolder& folder, std::string_view name) {
  return std::filesystem::last_write_time(folder.Path(name));
}

// Ten days ago, for a file that is there.
std::filesystem::file_time_type MakeOld(const TempFolder& folder, std::string_view name) {
  std::filesystem::last_write_time(folder.Path(name), TimeOf(folder, name) - std::chrono::hours(240));
  return TimeOf(folder, name);
}

TEST(WriteWholeFile, KeptTimes_AreThoseOfTheReplacedFile) {
  const TempFolder folder;
  folder.Write("File", "a long old content");
  const auto time = MakeOld(folder, "File");
  EXPECT_TRUE(WriteWholeFile(folder.Core("FILE"), "new", FileTimes::kKept).ok());
  EXPECT_EQ(folder.Read("File"), "new");
  EXPECT_EQ(TimeOf(folder, "File"), time);
}

TEST(WriteWholeFile, NewTimes_AreNotThoseOfTheReplacedFile) {
  const TempFolder folder;
  folder.Write("file", "old");
  const auto time = MakeOld(folder, "file");
  EXPECT_TRUE(WriteWholeFile(folder.Core("file"), "new").ok());
  EXPECT_GT(TimeOf(folder, "file"), time);
}

TEST(WriteWholeFile, KeptTimesOfNoFile_AreNewOnes) {
  const TempFolder folder;
  EXPECT_TRUE(WriteWholeFile(folder.Core("file"), "new", FileTimes::kKept).ok());
  EXPECT_EQ(folder.Read("file"), "new");
}

TEST(WriteWholeFile, ReadOnlyFileThatWasMadeWritable_KeepsItsTimesAndIsWritable) {
  const TempFolder folder;
  folder.Write("file", "old");
  const auto time = MakeOld(folder, "file");
  folder.SetReadOnly("file");
  ASSERT_TRUE(ClearAttributes(folder.Core("file")).ok());
  EXPECT_TRUE(WriteWholeFile(folder.Core("file"), "new", FileTimes::kKept).ok());
  EXPECT_EQ(folder.Read("file"), "new");
  EXPECT_EQ(TimeOf(folder, "file"), time);
  EXPECT_FALSE(folder.IsReadOnly("file"));
}

TEST(WriteWholeFile, FullDisk_KeepsTheOldContentAndTimeWhenTimesAreKept) {
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  disk.folder().Write("file", "old");
  const auto time = MakeOld(disk.folder(), "file");
  const Status status = WriteWholeFile(disk.folder().Core("file"), BytesOfSize(2 << 20), FileTimes::kKept);
  EXPECT_EQ(status.error, ErrorClass::kDiskFull);
  EXPECT_THAT(disk.folder().Names(), ElementsAre("file"));
  EXPECT_EQ(disk.folder().Read("file"), "old");
  EXPECT_EQ(TimeOf(disk.folder(), "file"), time);
}

TEST(WriteWholeFile, FullDisk_KeepsTheOldContentAndLeavesNothing) {
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  disk.folder().Write("file", "old");
  EXPECT_EQ(WriteWholeFile(disk.folder().Core("file"), BytesOfSize(2 << 20)).error, ErrorClass::kDiskFull);
  EXPECT_EQ(WriteWholeFile(disk.folder().Core("new"), BytesOfSize(2 << 20)).error, ErrorClass::kDiskFull);
  EXPECT_THAT(disk.folder().Names(), ElementsAre("file"));
  EXPECT_EQ(disk.folder().Read("file"), "old");
}

}  // namespace
}  // namespace discwright::host
