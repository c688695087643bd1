// Tests of finding files whose letter case differs from that of the path.
#include "host/posix/case_lookup.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using testing::TempFolder;

// What another program does to a folder shows in its times; the clock may be too coarse for a test that is in a hurry.
void SetFolderTime(const std::string& native, int seconds) {
  const timespec times[2] = {{seconds, 0}, {seconds, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, native.c_str(), times, 0), 0);
}

TEST(RealPath, DiscWithLowerCaseNames_IsFoundByUpperCasePaths) {
  const TempFolder disc;
  disc.Write("i386/win51ip.sp1", "x");
  EXPECT_EQ(RealPath(disc.Core("I386\\WIN51IP.SP1")).value, disc.Native("i386/win51ip.sp1"));
  EXPECT_TRUE(CheckReadable(disc.Core("I386/Win51ip.Sp1")).ok());
}

TEST(RealPath, LettersBeyondAscii_AreFoundInAnotherCase) {
  const TempFolder folder;
  folder.Write("Übung.txt", "x");
  EXPECT_EQ(RealPath(folder.Core("üBUNG.TXT")).value, folder.Native("Übung.txt"));
}

TEST(RealPath, ExactMatch_WinsOverOtherCases) {
  const TempFolder folder;
  for (const char* name : {"NAME", "Name", "name"}) folder.Write(name, name);
  EXPECT_EQ(RealPath(folder.Core("Name")).value, folder.Native("Name"));
  EXPECT_EQ(RealPath(folder.Core("name")).value, folder.Native("name"));
}

TEST(RealPath, SeveralOtherCases_GiveTheFirstBytewise) {
  const TempFolder folder;
  for (const char* name : {"name", "NAME", "Name"}) folder.Write(name, name);
  EXPECT_EQ(RealPath(folder.Core("nAME")).value, folder.Native("NAME"));
}

TEST(RealPath, ExactFolder_WinsOverAnotherFolderThatHasTheFile) {
  const TempFolder folder;
  folder.MakeFolder("dir");
  folder.Write("DIR/file", "x");
  EXPECT_EQ(RealPath(folder.Core("dir\\file")).value, folder.Native("dir/file"));
}

TEST(RealPath, ParentComponent_IsFollowedInAnyCase) {
  const TempFolder folder;
  folder.MakeFolder("Sub");
  folder.Write("File", "x");
  EXPECT_EQ(RealPath(folder.Core("SUB\\..\\FILE")).value, folder.Native("Sub/../File"));
}

TEST(RealPath, FileInPlaceOfAFolder_GivesAPathThatIsNotFound) {
  const TempFolder folder;
  folder.Write("File", "x");
  EXPECT_EQ(Look(folder.Core("FILE\\below")).status.error, ErrorClass::kNotFound);
}

TEST(RealPath, BrokenLinkInAnotherCase_IsFoundItself) {
  const TempFolder folder;
  folder.Link("nowhere", "Link");
  EXPECT_EQ(RealPath(folder.Core("LINK")).value, folder.Native("Link"));
}

TEST(RealPath, FileMadeByAnotherProgram_IsNoticed) {
  const TempFolder folder;
  EXPECT_EQ(RealPath(folder.Core("FILE")).value, folder.Native("FILE"));
  folder.Write("File", "x");
  SetFolderTime(folder.native(), 1000);
  EXPECT_EQ(RealPath(folder.Core("FILE")).value, folder.Native("File"));
}

TEST(RealPath, FileMadeByAnotherProgramBeforeAnOverwriteOfOurs_IsNoticed) {
  const TempFolder folder;
  folder.Write("ours", "x");
  EXPECT_EQ(RealPath(folder.Core("FILE")).value, folder.Native("FILE"));
  folder.Write("File", "x");
  SetFolderTime(folder.native(), 1000);
  ASSERT_TRUE(WriteWholeFile(folder.Core("ours"), "new").ok());
  EXPECT_EQ(RealPath(folder.Core("FILE")).value, folder.Native("File"));
}

TEST(RealPath, RemovedFile_IsForgottenEvenWhenTheFoldersTimesAreTheSame) {
  const TempFolder folder;
  folder.Write("File", "x");
  SetFolderTime(folder.native(), 1000);
  EXPECT_EQ(RealPath(folder.Core("FILE")).value, folder.Native("File"));
  ASSERT_TRUE(RemoveFile(folder.Core("File")).ok());
  SetFolderTime(folder.native(), 1000);
  EXPECT_EQ(RealPath(folder.Core("FILE")).value, folder.Native("FILE"));
}

TEST(RealPath, MoreFoldersThanAreKept_AreAllFound) {
  const TempFolder folder;
  for (int i = 0; i < 20; ++i) folder.Write("Dir" + std::to_string(i) + "/File", "x");
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 20; ++i) {
      const std::string number = std::to_string(i);
      EXPECT_EQ(RealPath(folder.Core("DIR" + number + "\\FILE")).value, folder.Native("Dir" + number + "/File"));
    }
  }
}

// The test runs as any user, so the folder is made unreadable by a limit of open files.
class NoMoreFiles {
 public:
  NoMoreFiles() {
    getrlimit(RLIMIT_NOFILE, &before_);
    const int lowest_free = dup(STDIN_FILENO);
    close(lowest_free);
    const rlimit none{static_cast<rlim_t>(lowest_free), before_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
  }
  NoMoreFiles(const NoMoreFiles&) = delete;
  NoMoreFiles& operator=(const NoMoreFiles&) = delete;
  ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &before_); }

 private:
  rlimit before_{};
};

TEST(RealPath, FolderThatCannotBeListed_IsAFailureAndItsFilesAreNotMissing) {
  const TempFolder folder;
  folder.Write("Name", "x");
  const NoMoreFiles limit;
  for (const std::string& path : {folder.Core("NAME"), folder.Core("NAME\\below")}) {
    EXPECT_EQ(RealPath(path).status.error, ErrorClass::kOther) << path;
    EXPECT_EQ(RealPathOfNew(path).status.error, ErrorClass::kOther) << path;
    EXPECT_EQ(CheckReadable(path).error, ErrorClass::kOther) << path;
    EXPECT_EQ(Look(path).status.error, ErrorClass::kOther) << path;
    EXPECT_EQ(RemoveFile(path).error, ErrorClass::kOther) << path;
  }
  EXPECT_TRUE(RealPath(folder.Core("Name")).ok());
}

TEST(RealPathOfNew, FolderThatMayBeSearchedButNotListed_HasNoOtherNames) {
  const TempFolder folder;
  folder.MakeFolder("drop");
  folder.Write("drop/Name", "x");
  folder.SetMode("drop", 0333);
  if (access(folder.Native("drop").c_str(), R_OK) == 0) GTEST_SKIP() << "the administrator may list every folder";
  EXPECT_EQ(RealPath(folder.Core("drop\\NAME")).status.error, ErrorClass::kAccessDenied);
  EXPECT_EQ(RealPathOfNew(folder.Core("drop\\NAME")).value, folder.Native("drop/NAME"));
  EXPECT_TRUE(WriteWholeFile(folder.Core("drop\\new"), "x").ok());
}

TEST(RealPathOfNew, ExistingNameInAnyCase_IsFoundLikeByRealPath) {
  const TempFolder folder;
  for (const char* name : {"NAME", "name", "Other"}) folder.Write(name, name);
  EXPECT_EQ(RealPathOfNew(folder.Core("name")).value, folder.Native("name"));
  EXPECT_EQ(RealPathOfNew(folder.Core("Name")).value, folder.Native("NAME"));
  EXPECT_EQ(RealPathOfNew(folder.Core("OTHER")).value, folder.Native("Other"));
  EXPECT_EQ(RealPathOfNew(folder.Core("New")).value, folder.Native("New"));
  EXPECT_EQ(RealPathOfNew("\\").value, "/");
  EXPECT_EQ(RealPathOfNew("").value, "");
}

TEST(Creating, ExistingFileInAnotherCase_IsUsed) {
  const TempFolder folder;
  folder.Write("source", "new");
  folder.Write("Dir/Copied", "old");
  folder.Write("Dir/Written", "old");
  folder.Write("Dir/Opened", "old");
  EXPECT_TRUE(CopyFileWithProgress(folder.Core("SOURCE"), folder.Core("DIR\\COPIED"), nullptr).ok());
  EXPECT_TRUE(WriteWholeFile(folder.Core("DIR\\WRITTEN"), "new").ok());
  EXPECT_TRUE(OpenBinary(folder.Core("DIR\\OPENED"), OpenMode::kCreateEmpty).ok());
  EXPECT_THAT(folder.Names("Dir"), ElementsAre("Copied", "Opened", "Written"));
  EXPECT_EQ(folder.Read("Dir/Copied"), "new");
  EXPECT_EQ(folder.Read("Dir/Written"), "new");
  EXPECT_EQ(folder.Read("Dir/Opened"), "");
}

TEST(Creating, NewComponentsBelowExistingOnes_KeepTheirCase) {
  const TempFolder folder;
  folder.MakeFolder("Dir");
  EXPECT_TRUE(MakeFolders(folder.Core("DIR\\New\\Deep")).ok());
  EXPECT_TRUE(WriteWholeFile(folder.Core("DIR\\NEW\\DEEP\\File"), "x").ok());
  EXPECT_THAT(folder.Names(), ElementsAre("Dir"));
  EXPECT_EQ(folder.Read("Dir/New/Deep/File"), "x");
}

TEST(Creating, SameNamesInAnotherCaseRightAfterwards_AreTheSameFiles) {
  const TempFolder folder;
  folder.Write("source", "copied");
  for (const char* name : {"One", "oNE", "ONE"}) {
    ASSERT_TRUE(CopyFileWithProgress(folder.Core("source"), folder.Core(name), nullptr).ok());
  }
  for (const char* name : {"Two", "tWO", "TWO"}) ASSERT_TRUE(WriteWholeFile(folder.Core(name), name).ok());
  for (const char* name : {"Three", "tHREE"}) ASSERT_TRUE(MakeFolders(folder.Core(name)).ok());
  for (const char* name : {"Four", "fOUR"}) ASSERT_TRUE(OpenBinary(folder.Core(name), OpenMode::kReadWrite).ok());
  EXPECT_THAT(folder.Names(), ElementsAre("Four", "One", "Three", "Two", "source"));
}

TEST(Creating, TwentyThousandFilesInOneFolder_AreAllThere) {
  constexpr int kFiles = 20000;
  const TempFolder folder;
  folder.Write("source", "x");
  folder.MakeFolder("Many");
  for (int i = 0; i < kFiles; ++i) {
    ASSERT_TRUE(CopyFileWithProgress(folder.Core("source"), folder.Core("MANY\\F" + std::to_string(i)), nullptr).ok());
  }
  EXPECT_EQ(folder.Names("Many").size(), static_cast<std::size_t>(kFiles));
  EXPECT_EQ(RealPath(folder.Core("Many\\f19999")).value, folder.Native("Many/F19999"));
}

}  // namespace
}  // namespace discwright::host
