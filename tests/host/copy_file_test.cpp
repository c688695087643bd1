// Copying single files with progress.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

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

TEST(CopyFile, SmallFile_TellsTheStartAndOnePiece) {
  const TempFolder folder;
  folder.Write("from", "12345");
  Progress progress;
  EXPECT_TRUE(CopyFileWithProgress(folder.Core("FROM"), folder.Core("To"), progress.Routine()).ok());
  EXPECT_EQ(folder.Read("To"), "12345");
  EXPECT_THAT(progress.events, ElementsAre(CopyEvent::kStreamSwitch, CopyEvent::kChunkFinished));
  EXPECT_THAT(progress.transferred, ElementsAre(0, 5));
}

TEST(CopyFile, EmptyFile_TellsTheStartAndOneEmptyPiece) {
  const TempFolder folder;
  folder.Write("from", "");
  Progress progress;
  EXPECT_TRUE(CopyFileWithProgress(folder.Core("from"), folder.Core("to"), progress.Routine()).ok());
  EXPECT_EQ(folder.Read("to"), "");
  EXPECT_THAT(progress.transferred, ElementsAre(0, 0));
}

TEST(CopyFile, LargeFile_TellsSeveralGrowingPiecesThatEndWithItsSize) {
  const TempFolder folder;
  const std::string content = BytesOfSize((40 << 20) + 17);
  folder.Write("from", content);
  Progress progress;
  EXPECT_TRUE(CopyFileWithProgress(folder.Core("from"), folder.Core("to"), progress.Routine()).ok());
  EXPECT_TRUE(folder.Read("to") == content);
  EXPECT_GE(progress.transferred.size(), 4u);
  EXPECT_TRUE(std::is_sorted(progress.transferred.begin(), progress.transferred.end()));
  EXPECT_EQ(progress.transferred.back(), static_cast<std::int64_t>(content.size()));
}

TEST(CopyFile, FileOfUnknownSize_IsCopiedToItsEnd) {
  const TempFolder folder;
  Progress progress;
  EXPECT_TRUE(CopyFileWithProgress("\\proc\\version", folder.Core("to"), progress.Routine()).ok());
  const std::string content = folder.Read("to");
  EXPECT_FALSE(content.empty());
  EXPECT_THAT(progress.transferred, ElementsAre(0, static_cast<std::int64_t>(content.size())));
}

TEST(CopyFile, AcrossFileSystems_CopiesTheContent) {
  const TempFolder folder;
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  folder.Write("from", BytesOfSize(600000));
  EXPECT_TRUE(CopyFileWithProgress(folder.Core("from"), disk.folder().Core("to"), nullptr).ok());
  EXPECT_EQ(disk.folder().Read("to"), BytesOfSize(600000));
}

TEST(CopyFile, ModificationTime_IsKept) {
  const TempFolder folder;
  folder.Write("from", "x");
  const timespec times[2] = {{1, 0}, {946684800, 123456000}};
  ASSERT_EQ(utimensat(AT_FDCWD, folder.Native("from").c_str(), times, 0), 0);
  ASSERT_TRUE(Copy(folder, "from", "to").ok());
  struct stat facts {};
  ASSERT_EQ(stat(folder.Native("to").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mtim.tv_sec, 946684800);
  EXPECT_EQ(facts.st_mtim.tv_nsec, 123456000);
}

TEST(CopyFile, ReadOnlySource_GivesACopyThatItsOwnerMayChange) {
  const TempFolder folder;
  folder.Write("from", "x");
  folder.SetMode("from", 0455);
  ASSERT_TRUE(Copy(folder, "from", "to").ok());
  EXPECT_EQ(folder.Mode("to"), 0655u);
}

TEST(CopyFile, ReadOnlyLongerTarget_IsReplacedWhole) {
  const TempFolder folder;
  folder.Write("from", "new");
  folder.Write("to", "a longer old content");
  folder.SetMode("to", 0444);
  ASSERT_TRUE(Copy(folder, "from", "to").ok());
  EXPECT_EQ(folder.Read("to"), "new");
  EXPECT_EQ(folder.Mode("to"), 0644u);
  EXPECT_THAT(folder.Names(), ElementsAre("from", "to"));
}

TEST(CopyFile, TargetWithAnotherHardLink_LeavesTheOtherNameItsContent) {
  const TempFolder folder;
  folder.Write("from", "new");
  folder.Write("to", "old");
  std::filesystem::create_hard_link(folder.Native("to"), folder.Native("other"));
  ASSERT_TRUE(Copy(folder, "from", "to").ok());
  EXPECT_EQ(folder.Read("to"), "new");
  EXPECT_EQ(folder.Read("other"), "old");
}

TEST(CopyFile, TargetIsALink_ReplacesTheLinkAndNotWhatItLeadsTo) {
  const TempFolder folder;
  const TempFolder elsewhere;
  folder.Write("from", "new");
  elsewhere.Write("precious", "old");
  folder.Link(elsewhere.Native("precious"), "link");
  folder.Link("nowhere", "broken");
  ASSERT_TRUE(Copy(folder, "from", "link").ok());
  ASSERT_TRUE(Copy(folder, "from", "broken").ok());
  EXPECT_EQ(elsewhere.Read("precious"), "old");
  EXPECT_FALSE(std::filesystem::is_symlink(folder.Native("link")));
  EXPECT_EQ(folder.Read("link"), "new");
  EXPECT_EQ(folder.Read("broken"), "new");
}

TEST(CopyFile, SourceIsALink_CopiesWhatItLeadsTo) {
  const TempFolder folder;
  folder.Write("file", "content");
  folder.Link("file", "link");
  ASSERT_TRUE(Copy(folder, "link", "to").ok());
  EXPECT_FALSE(std::filesystem::is_symlink(folder.Native("to")));
  EXPECT_EQ(folder.Read("to"), "content");
}

TEST(CopyFile, SourceAndTargetAreTheSameFile_IsAnErrorThatLosesNothing) {
  const TempFolder folder;
  folder.Write("File", "content");
  folder.Link("File", "link");
  std::filesystem::create_hard_link(folder.Native("File"), folder.Native("hard"));
  for (const char* target : {"File", "FILE", "link", "hard"}) {
    EXPECT_FALSE(Copy(folder, "File", target).ok()) << target;
    EXPECT_EQ(folder.Read("File"), "content");
  }
  EXPECT_FALSE(Copy(folder, "link", "File").ok());
  EXPECT_EQ(folder.Read("File"), "content");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Native("link")));
}

TEST(CopyFile, SourceIsNoRegularFile_IsOfTheWrongKindAndNotOpened) {
  const TempFolder folder;
  folder.Pipe("pipe");
  folder.Link("/dev/zero", "zero");
  folder.MakeFolder("folder");
  for (const char* name : {"pipe", "zero", "folder"}) {
    EXPECT_EQ(Copy(folder, name, "to").error, ErrorClass::kWrongKind) << name;
  }
  EXPECT_EQ(folder.Read("to"), "<missing>");
}

TEST(CopyFile, TargetIsNoRegularFile_StaysAsItIs) {
  const TempFolder folder;
  folder.Write("from", "x");
  folder.Pipe("pipe");
  folder.MakeFolder("folder");
  EXPECT_EQ(Copy(folder, "from", "pipe").error, ErrorClass::kWrongKind);
  EXPECT_EQ(Copy(folder, "from", "folder").error, ErrorClass::kWrongKind);
  EXPECT_THAT(folder.Names(), ElementsAre("folder", "from", "pipe"));
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

TEST(CopyFile, NamesOfEveryKind_AreCopied) {
  const TempFolder folder;
  folder.Write("from", "x");
  for (const char* name : {"with blank", "quote'\"", "$HOME `id`", "line\nend", "Ümläut €", "-dash", "\xFF raw"}) {
    EXPECT_TRUE(Copy(folder, "from", name).ok()) << name;
    EXPECT_EQ(folder.Read(name), "x") << name;
  }
}

}  // namespace
}  // namespace discwright::host
