// Tests of making, moving and removing files and folders.
#include "host/files.h"

#include <gmock/gmock.h>

#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::SmallDisk;
using testing::TempFolder;

TEST(MakeFolders, MissingFolders_AreAllMade) {
  const TempFolder folder;
  EXPECT_TRUE(MakeFolders(folder.Core("One\\Two/Three\\")).ok());
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path("One/Two/Three")));
}

TEST(MakeFolders, ExistingFolder_IsASuccess) {
  const TempFolder folder;
  folder.MakeFolder("Folder");
  EXPECT_TRUE(MakeFolders(folder.Core("FOLDER")).ok());
  EXPECT_TRUE(MakeFolders("\\").ok());
  EXPECT_THAT(folder.Names(), ElementsAre("Folder"));
}

TEST(SameFolder, OtherSpellings_AreTheSame) {
  const TempFolder folder;
  folder.MakeFolder("Folder/Sub");
  folder.MakeFolder("Other");
  folder.Write("File", "x");
  EXPECT_TRUE(SameFolder(folder.Core("FOLDER\\"), folder.Core("Folder/Sub\\..")));
  EXPECT_FALSE(SameFolder(folder.Core("Folder"), folder.Core("Other")));
  EXPECT_FALSE(SameFolder(folder.Core("File"), folder.Core("File")));
  EXPECT_FALSE(SameFolder(folder.Core("missing"), folder.Core("missing")));
}

TEST(SameFile, OtherSpellings_AreTheSame) {
  const TempFolder folder;
  folder.MakeFolder("Folder/Sub");
  folder.Write("Folder/File", "content");
  folder.Write("Folder/Other", "content");
  EXPECT_TRUE(SameFile(folder.Core("FOLDER\\file"), folder.Core("Folder/Sub\\..\\File")));
  EXPECT_FALSE(SameFile(folder.Core("Folder\\File"), folder.Core("Folder\\Other")));
  EXPECT_FALSE(SameFile(folder.Core("Folder"), folder.Core("Folder")));
  EXPECT_FALSE(SameFile(folder.Core("missing"), folder.Core("missing")));
}

TEST(MakeFolders, FileInTheWay_IsAFailure) {
  const TempFolder folder;
  folder.Write("File", "x");
  EXPECT_EQ(MakeFolders(folder.Core("FILE")).error, ErrorClass::kExists);
  EXPECT_FALSE(MakeFolders(folder.Core("file\\below")).ok());
  EXPECT_EQ(folder.Read("File"), "x");
}

TEST(MakeFolders, EmptyPath_IsNotFound) { EXPECT_EQ(MakeFolders("").error, ErrorClass::kNotFound); }

TEST(ClearAttributes, ReadOnlyFile_BecomesWritable) {
  const TempFolder folder;
  folder.Write("File", "x");
  folder.SetReadOnly("File");
  EXPECT_TRUE(ClearAttributes(folder.Core("FILE")).ok());
  EXPECT_FALSE(folder.IsReadOnly("File"));
  EXPECT_TRUE(ClearAttributes(folder.Core("File")).ok());
}

TEST(ClearAttributes, MissingFile_IsNotFound) {
  const TempFolder folder;
  EXPECT_EQ(ClearAttributes(folder.Core("missing")).error, ErrorClass::kNotFound);
}

TEST(RemoveFile, FileInAnotherCase_IsRemoved) {
  const TempFolder folder;
  folder.Write("File", "x");
  EXPECT_TRUE(RemoveFile(folder.Core("FILE")).ok());
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(RemoveFile, FolderOrNothing_IsAFailure) {
  const TempFolder folder;
  folder.MakeFolder("folder");
  EXPECT_EQ(RemoveFile(folder.Core("folder")).error, ErrorClass::kWrongKind);
  EXPECT_EQ(RemoveFile(folder.Core("missing")).error, ErrorClass::kNotFound);
}

TEST(RemoveEmptyFolder, OnlyAnEmptyFolder_IsRemoved) {
  const TempFolder folder;
  folder.MakeFolder("Empty");
  folder.Write("full/file", "x");
  EXPECT_TRUE(RemoveEmptyFolder(folder.Core("EMPTY")).ok());
  EXPECT_FALSE(RemoveEmptyFolder(folder.Core("full")).ok());
  EXPECT_EQ(RemoveEmptyFolder(folder.Core("missing")).error, ErrorClass::kNotFound);
  EXPECT_THAT(folder.Names(), ElementsAre("full"));
}

TEST(RenameFile, NewName_KeepsItsCaseInTheRealFolder) {
  const TempFolder folder;
  folder.Write("Old", "x");
  folder.MakeFolder("Dir");
  EXPECT_TRUE(RenameFile(folder.Core("OLD"), folder.Core("DIR\\New")).ok());
  EXPECT_THAT(folder.Names(), ElementsAre("Dir"));
  EXPECT_EQ(folder.Read("Dir/New"), "x");
}

TEST(RenameFile, TakenNameInAnyCase_IsRefusedAndBothStay) {
  const TempFolder folder;
  folder.Write("from", "1");
  folder.Write("To", "2");
  EXPECT_EQ(RenameFile(folder.Core("from"), folder.Core("TO")).error, ErrorClass::kExists);
  EXPECT_EQ(folder.Read("from"), "1");
  EXPECT_EQ(folder.Read("To"), "2");
}

TEST(RenameFile, MissingSource_IsNotFound) {
  const TempFolder folder;
  EXPECT_EQ(RenameFile(folder.Core("missing"), folder.Core("to")).error, ErrorClass::kNotFound);
}

TEST(RenameFile, AcrossFileSystems_MovesTheContent) {
  const TempFolder folder;
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  folder.Write("file", "content");
  EXPECT_TRUE(RenameFile(folder.Core("file"), disk.folder().Core("moved")).ok());
  EXPECT_THAT(folder.Names(), IsEmpty());
  EXPECT_EQ(disk.folder().Read("moved"), "content");
}

TEST(RenameFile, AcrossFileSystemsToATakenName_IsRefusedAndBothStay) {
  const TempFolder folder;
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  folder.Write("file", "1");
  disk.folder().Write("Taken", "2");
  EXPECT_EQ(RenameFile(folder.Core("file"), disk.folder().Core("TAKEN")).error, ErrorClass::kExists);
  EXPECT_EQ(folder.Read("file"), "1");
  EXPECT_EQ(disk.folder().Read("Taken"), "2");
}

TEST(RenameFile, AcrossFileSystemsToAFullDisk_KeepsTheSource) {
  const TempFolder folder;
  const SmallDisk disk;
  if (!disk.mounted()) GTEST_SKIP() << "mounting is not permitted";
  folder.Write("file", testing::BytesOfSize(2 << 20));
  EXPECT_EQ(RenameFile(folder.Core("file"), disk.folder().Core("moved")).error, ErrorClass::kDiskFull);
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
  EXPECT_THAT(disk.folder().Names(), IsEmpty());
}

}  // namespace
}  // namespace discwright::host
