// Reading and replacing files as a whole.
#include <gmock/gmock.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::BytesOfSize;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::SmallDisk;
using testing::TempFolder;

TEST(ReadWholeFile, EmptySmallAndLargeFiles_AreReadWhole) {
  const TempFolder folder;
  for (const std::size_t size : {0u, 1u, 4096u, 3000001u}) {
    folder.Write("file", BytesOfSize(size));
    std::string content = "before";
    EXPECT_TRUE(ReadWholeFile(folder.Core("FILE"), content).ok());
    EXPECT_EQ(content, BytesOfSize(size));
  }
}

TEST(ReadWholeFile, FileOfUnknownSize_IsReadToItsEnd) {
  std::string content;
  EXPECT_TRUE(ReadWholeFile("\\proc\\self\\status", content).ok());
  EXPECT_THAT(content, ::testing::StartsWith("Name:"));
}

TEST(ReadWholeFile, FolderPipeOrDevice_IsOfTheWrongKindAndNotOpened) {
  const TempFolder folder;
  folder.Pipe("pipe");
  folder.Link("/dev/zero", "zero");
  std::string content = "before";
  for (const char* name : {"", "pipe", "zero"}) {
    EXPECT_EQ(ReadWholeFile(folder.Core(name), content).error, ErrorClass::kWrongKind) << name;
  }
  EXPECT_EQ(content, "");
}

TEST(ReadWholeFile, MissingFile_IsNotFound) {
  const TempFolder folder;
  std::string content;
  EXPECT_EQ(ReadWholeFile(folder.Core("missing"), content).error, ErrorClass::kNotFound);
}

TEST(WriteWholeFile, NewFile_HasTheContentAndNothingElseIsLeft) {
  const TempFolder folder;
  EXPECT_TRUE(WriteWholeFile(folder.Core("New.ini"), "a\r\nb").ok());
  EXPECT_THAT(folder.Names(), ElementsAre("New.ini"));
  EXPECT_EQ(folder.Read("New.ini"), "a\r\nb");
}

TEST(WriteWholeFile, LongerExistingFile_IsReplacedAndKeepsItsMode) {
  const TempFolder folder;
  folder.Write("file", "a long old content");
  folder.SetMode("file", 0640);
  EXPECT_TRUE(WriteWholeFile(folder.Core("file"), "new").ok());
  EXPECT_EQ(folder.Read("file"), "new");
  EXPECT_EQ(folder.Mode("file"), 0640u);
}

TEST(WriteWholeFile, LongestPossibleName_IsWritten) {
  const TempFolder folder;
  const std::string name(255, 'n');
  EXPECT_TRUE(WriteWholeFile(folder.Core(name), "x").ok());
  EXPECT_EQ(folder.Read(name), "x");
}

TEST(WriteWholeFile, ReaderOfTheOldFile_KeepsTheOldContent) {
  const TempFolder folder;
  folder.Write("file", "old");
  std::ifstream reader(folder.Native("file"));
  ASSERT_TRUE(WriteWholeFile(folder.Core("file"), "new").ok());
  std::string content;
  reader >> content;
  EXPECT_EQ(content, "old");
}

TEST(WriteWholeFile, LinkToAFile_StaysALinkAndItsTargetIsReplaced) {
  const TempFolder folder;
  folder.Write("real/settings", "old");
  folder.Link("real/settings", "middle");
  folder.Link(folder.Native("middle"), "link");
  EXPECT_TRUE(WriteWholeFile(folder.Core("LINK"), "new").ok());
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Native("link")));
  EXPECT_EQ(folder.Read("real/settings"), "new");
  EXPECT_THAT(folder.Names("real"), ElementsAre("settings"));
}

TEST(WriteWholeFile, LinkToAMissingFile_MakesTheTarget) {
  const TempFolder folder;
  folder.Link("target", "link");
  EXPECT_TRUE(WriteWholeFile(folder.Core("link"), "new").ok());
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Native("link")));
  EXPECT_EQ(folder.Read("target"), "new");
}

TEST(WriteWholeFile, LinkToItself_IsALoop) {
  const TempFolder folder;
  folder.Link("link", "link");
  EXPECT_EQ(WriteWholeFile(folder.Core("link"), "new").error, ErrorClass::kLoop);
  EXPECT_THAT(folder.Names(), ElementsAre("link"));
}

TEST(WriteWholeFile, FolderPipeOrDevice_IsOfTheWrongKind) {
  const TempFolder folder;
  folder.MakeFolder("folder");
  folder.Pipe("pipe");
  folder.Link("/dev/zero", "zero");
  for (const char* name : {"folder", "pipe", "zero"}) {
    EXPECT_EQ(WriteWholeFile(folder.Core(name), "x").error, ErrorClass::kWrongKind) << name;
  }
  EXPECT_THAT(folder.Names(), ElementsAre("folder", "pipe", "zero"));
}

TEST(WriteWholeFile, MissingFolder_IsNotFound) {
  const TempFolder folder;
  EXPECT_EQ(WriteWholeFile(folder.Core("missing\\file"), "x").error, ErrorClass::kNotFound);
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
