// Tests of copying single files with progress.
#include <gmock/gmock.h>

#include <chrono>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::BytesOfSize;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::SmallDisk;
using testing::TempFolder;

struct Progress {
  std::vector<CopyEvent> events;
  std::vector<std::int64_t> transferred;
  int stop_at = -1;  // number of the event that stops the copy

  CopyRoutine Routine() {
    return [this](CopyEvent event, std::int64_t bytes) {
      events.push_back(event);
      transferred.push_back(bytes);
      return static_cast<int>(events.size()) - 1 != stop_at;
    };
  }
};

Status Copy(const TempFolder& folder, std::string_view from, std::string_view to) {
  return CopyFileWithProgress(folder.Core(from), folder.Core(to), nullptr);
}

TEST(CopyFile, SmallFile_ReportsTheStartAndOnePiece) {
  const TempFolder folder;
  folder.Write("from", "12345");
  Progress progress;
  EXPECT_TRUE(CopyFileWithProgress(folder.Core("FROM"), folder.Core("To"), progress.Routine()).ok());
  EXPECT_EQ(folder.Read("To"), "12345");
  EXPECT_THAT(progress.events, ElementsAre(CopyEvent::kStreamSwitch, CopyEvent::kChunkFinished));
  EXPECT_THAT(progress.transferred, ElementsAre(0, 5));
}

TEST(CopyFile, EmptyFile_ReportsTheStartAndOneEmptyPiece) {
  const TempFolder folder;
  folder.Write("from", "");
  Progress progress;
  EXPECT_TRUE(CopyFileWithProgress(folder.Core("from"), folder.Core("to"), progress.Routine()).ok());
  EXPECT_EQ(folder.Read("to"), "");
  EXPECT_THAT(progress.transferred, ElementsAre(0, 0));
}

TEST(CopyFile, LargeFile_ReportsGrowingPiecesThatEndWithItsSize) {
  const TempFolder folder;
  const std::string content = BytesOfSize((40 << 20) + 17);
  folder.Write("from", content);
  Progress progress;
  EXPECT_TRUE(CopyFileWithProgress(folder.Core("from"), folder.Core("to"), progress.Routine()).ok());
  EXPECT_TRUE(folder.Read("to") == content);
  EXPECT_TRUE(std::is_sorted(progress.transferred.begin(), progress.transferred.end()));
  EXPECT_EQ(progress.transferred.back(), static_cast<std::int64_t>(content.size()));
}

TEST(CopyFile, ModificationTime_IsKept) {
  const TempFolder folder;
  folder.Write("from", "x");
  const auto then = std::chrono::file_clock::from_sys(std::chrono::sys_seconds(std::chrono::seconds(946684800)));
  std::filesystem::last_write_time(folder.Path("from"), std::filesystem::file_time_type(then));
  ASSERT_TRUE(Copy(folder, "from", "to").ok());
  EXPECT_EQ(std::filesystem::last_write_time(folder.Path("to")), then);
}

TEST(CopyFile, ReadOnlySource_GivesACopyThatItsOwnerMayChange) {
  const TempFolder folder;
  folder.Write("from", "x");
  folder.SetReadOnly("from");
  ASSERT_TRUE(Copy(folder, "from", "to").ok());
  EXPECT_FALSE(folder.IsReadOnly("to"));
  EXPECT_TRUE(folder.IsReadOnly("from"));
}

TEST(CopyFile, SourceAndTargetAreTheSameFile_IsAnErrorThatLosesNothing) {
  const TempFolder folder;
  folder.Write("File", "content");
  for (const char* target : {"File", "FILE"}) {
    EXPECT_FALSE(Copy(folder, "File", target).ok()) << target;
    EXPECT_EQ(folder.Read("File"), "content");
  }
  EXPECT_THAT(folder.Names(), ElementsAre("File"));
}

TEST(CopyFile, FolderAsSourceOrTarget_IsOfTheWrongKindAndStays) {
  const TempFolder folder;
  folder.Write("from", "x");
  folder.MakeFolder("folder");
  EXPECT_EQ(Copy(folder, "folder", "to").error, ErrorClass::kWrongKind);
  EXPECT_EQ(Copy(folder, "from", "folder").error, ErrorClass::kWrongKind);
  EXPECT_THAT(folder.Names(), ElementsAre("folder", "from"));
}

TEST(CopyFile, AcrossFileSystems_CopiesTheContent) {
  const TempFolder folder;
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  folder.Write("from", BytesOfSize(600000));
  EXPECT_TRUE(CopyFileWithProgress(folder.Core("from"), disk.folder().Core("to"), nullptr).ok());
  EXPECT_EQ(disk.folder().Read("to"), BytesOfSize(600000));
}

TEST(CopyWholeFile, MissingAndLongerTarget_GetTheContent) {
  const TempFolder folder;
  folder.Write("from", "new");
  folder.Write("longer", "a longer old content");
  for (const char* target : {"missing", "longer"}) {
    EXPECT_TRUE(CopyWholeFile(folder.Core("FROM"), folder.Core(target)).ok());
    EXPECT_EQ(folder.Read(target), "new");
  }
  EXPECT_THAT(folder.Names(), ElementsAre("from", "longer", "missing"));
}

TEST(CopyWholeFile, MissingSourceOrFolder_IsNotFoundAndLeavesNothing) {
  const TempFolder folder;
  EXPECT_EQ(CopyWholeFile(folder.Core("missing"), folder.Core("to")).error, ErrorClass::kNotFound);
  folder.Write("from", "new");
  EXPECT_EQ(CopyWholeFile(folder.Core("from"), folder.Core("missing\\to")).error, ErrorClass::kNotFound);
  EXPECT_THAT(folder.Names(), ElementsAre("from"));
}

TEST(CopyFile, ReadOnlyLongerTarget_IsReplacedWhole) {
  const TempFolder folder;
  folder.Write("from", "new");
  folder.Write("to", "a longer old content");
  folder.SetReadOnly("to");
  ASSERT_TRUE(Copy(folder, "from", "to").ok());
  EXPECT_EQ(folder.Read("to"), "new");
  EXPECT_FALSE(folder.IsReadOnly("to"));
  EXPECT_THAT(folder.Names(), ElementsAre("from", "to"));
}

TEST(CopyFile, TargetWithAnotherHardLink_LeavesTheOtherNameItsContent) {
  const TempFolder folder;
  folder.Write("from", "new");
  folder.Write("to", "old");
  folder.MakeHardLink("to", "other");
  ASSERT_TRUE(Copy(folder, "from", "to").ok());
  EXPECT_EQ(folder.Read("to"), "new");
  EXPECT_EQ(folder.Read("other"), "old");
}

TEST(CopyFile, MissingSourceOrTargetFolder_IsNotFound) {
  const TempFolder folder;
  folder.Write("from", "x");
  EXPECT_EQ(Copy(folder, "missing", "to").error, ErrorClass::kNotFound);
  EXPECT_EQ(Copy(folder, "from", "missing\\to").error, ErrorClass::kNotFound);
  EXPECT_THAT(folder.Names(), ElementsAre("from"));
}

TEST(CopyFile, StoppedAtTheStartOrAfterAPiece_LeavesNoPartialFile) {
  const TempFolder folder;
  folder.Write("from", BytesOfSize(20 << 20));
  for (const int stop_at : {0, 1}) {
    Progress progress;
    progress.stop_at = stop_at;
    EXPECT_FALSE(CopyFileWithProgress(folder.Core("from"), folder.Core("to"), progress.Routine()).ok());
    EXPECT_EQ(progress.events.size(), static_cast<std::size_t>(stop_at) + 1);
    EXPECT_THAT(folder.Names(), ElementsAre("from"));
  }
}

TEST(CopyFile, StoppedOverAnExistingFile_KeepsTheOldOne) {
  const TempFolder folder;
  folder.Write("from", "new");
  folder.Write("to", "old");
  Progress progress;
  progress.stop_at = 1;
  EXPECT_FALSE(CopyFileWithProgress(folder.Core("from"), folder.Core("to"), progress.Routine()).ok());
  EXPECT_EQ(folder.Read("to"), "old");
  EXPECT_THAT(folder.Names(), ElementsAre("from", "to"));
}

TEST(CopyFile, FullDisk_LeavesNoPartialFile) {
  const TempFolder folder;
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  folder.Write("from", BytesOfSize(4 << 20));
  const Status status = CopyFileWithProgress(folder.Core("from"), disk.folder().Core("to"), nullptr);
  EXPECT_EQ(status.error, ErrorClass::kDiskFull);
  EXPECT_FALSE(status.cause.empty());
  EXPECT_THAT(disk.folder().Names(), IsEmpty());
}

TEST(CopyFile, FullDiskOnTheSameFileSystem_LeavesNoPartialFile) {
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  disk.folder().Write("from", BytesOfSize(700000));
  EXPECT_EQ(Copy(disk.folder(), "from", "to").error, ErrorClass::kDiskFull);
  EXPECT_THAT(disk.folder().Names(), ElementsAre("from"));
}

}  // namespace
}  // namespace discwright::host
