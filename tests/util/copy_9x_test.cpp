// Tests of the copy engine of Windows 95, 98 and Me, on the fake host.
#include <limits>

#include "tests/support/util_fixture.h"
#include "util/copy_engines.h"
#include "util/copy_entries.h"

namespace discwright::util {
namespace {

class Copy9xTest : public testing::UtilFixture {
 protected:
  CopyRun run{user, notes, progress};

  void SetUp() override { SetTotal(run, 1000000); }
};

using FolderSizeByDirTest = Copy9xTest;
using CopyTreeChunkedTest = Copy9xTest;
using CopyFileChunkedTest = Copy9xTest;

TEST_F(FolderSizeByDirTest, NestedTreeWithDotNames_AddsEverything) {
  host.AddFileOfSize("C:\\src\\a", 5);
  host.AddFileOfSize("C:\\src\\.hidden", 7);
  host.AddFileOfSize("C:\\src\\.folder\\b", 11);
  EXPECT_EQ(FolderSizeByDir(run, "C:\\src"), 23);
  EXPECT_EQ(FolderSizeByDir(run, "C:\\src\\"), 23);
}

TEST_F(FolderSizeByDirTest, EveryEntry_Yields) {
  host.AddFileOfSize("C:\\src\\a", 5);
  host.AddFileOfSize("C:\\src\\sub\\b", 5);
  EXPECT_EQ(FolderSizeByDir(run, "C:\\src"), 10);
  EXPECT_EQ(user.waited, std::vector<int>(3, 0));
}

TEST_F(FolderSizeByDirTest, LoopsSpecialFilesAndBrokenLinks_CountZero) {
  host.AddFileOfSize("C:\\src\\a", 3);
  host.AddSpecial("C:\\src\\pipe");
  host.Find("C:\\src\\pipe")->size_override = 100;
  host.AddLink("C:\\src\\loop", "C:\\src", true);
  host.AddLink("C:\\src\\broken", "C:\\nowhere");
  EXPECT_EQ(FolderSizeByDir(run, "C:\\src"), 3);
}

TEST_F(FolderSizeByDirTest, CancelledCount_StopsAtOnce) {
  for (const char* file : {"a", "b\\c", "b\\d", "e"}) host.AddFile(std::string("C:\\src\\") + file, "x");
  run.go_on = [this] { return user.do_events_calls < 2; };
  EXPECT_EQ(FolderSizeByDir(run, "C:\\src"), std::nullopt);
  EXPECT_TRUE(run.is_cancelled);
  EXPECT_EQ(user.do_events_calls, 2);
}

TEST_F(CopyTreeChunkedTest, EntryWithAProblem_CountsZeroStopsTheCopyAndIsNamed) {
  host.AddFile("C:\\src\\b", "x");
  host.SetProblem("C:\\src\\b", host::ErrorClass::kNotReady, "Input/output error");
  EXPECT_EQ(FolderSizeByDir(run, "C:\\src"), 0);
  EXPECT_FALSE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  ExpectStoppedAt("C:\\src\\b", "could not be copied: Input/output error");
}

TEST_F(FolderSizeByDirTest, MissingFolder_IsZeroWithoutANote) {
  EXPECT_EQ(FolderSizeByDir(run, "C:\\missing"), 0);
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(FolderSizeByDirTest, TwoGigabytes_Overflow) {
  host.AddFileOfSize("C:\\src\\sub\\a", std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(FolderSizeByDir(run, "C:\\src"), std::numeric_limits<std::int32_t>::max());
  host.AddFileOfSize("C:\\src\\sub\\b", 1);
  EXPECT_EQ(FolderSizeByDir(run, "C:\\src"), std::nullopt);
}

TEST_F(FolderSizeByDirTest, SingleFileBeyondTwoGigabytes_Overflows) {
  host.AddFileOfSize("C:\\src\\a", std::int64_t{5} << 30);
  EXPECT_EQ(FolderSizeByDir(run, "C:\\src"), std::nullopt);
}

TEST_F(CopyTreeChunkedTest, TreeWithDotNamesAndEmptyFolder_IsCopiedWhole) {
  host.AddFile("C:\\src\\a", "1");
  host.AddFile("C:\\src\\.hidden", "2");
  host.AddFile("C:\\src\\.folder\\b", "3");
  host.AddFolder("C:\\src\\empty");
  EXPECT_TRUE(CopyTreeChunked(run, "C:\\src", "C:\\x\\dst"));
  EXPECT_EQ(host.Content("C:\\x\\dst\\a"), "1");
  EXPECT_EQ(host.Content("C:\\x\\dst\\.hidden"), "2");
  EXPECT_EQ(host.Content("C:\\x\\dst\\.folder\\b"), "3");
  EXPECT_TRUE(host.Exists("C:\\x\\dst\\empty"));
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(CopyTreeChunkedTest, EmptySource_MakesTheDestinationAndIsComplete) {
  host.AddFolder("C:\\src");
  EXPECT_TRUE(CopyTreeChunked(run, "C:\\src\\", "C:\\dst\\"));
  EXPECT_TRUE(host.Exists("C:\\dst"));
}

TEST_F(CopyTreeChunkedTest, FilesOfAFolder_ComeBeforeItsFoldersAndTheListingGoesOnAfterEachFolder) {
  host.AddFile("C:\\src\\a\\in a", "x");
  host.AddFile("C:\\src\\b\\in b", "x");
  host.AddFile("C:\\src\\c", "x");
  host.AddFile("C:\\src\\z", "x");
  EXPECT_TRUE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(progress.files, (std::vector<std::string>{"c", "z", "in a", "in b"}));
}

TEST_F(CopyTreeChunkedTest, EveryFileAndFolder_Yields) {
  host.AddFile("C:\\src\\a", "x");
  host.AddFile("C:\\src\\sub\\b", "x");
  EXPECT_TRUE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(user.waited, std::vector<int>(3, 0));
}

TEST_F(CopyTreeChunkedTest, FailedFile_StopsTheWholeCopyAtOnceWithItsShortText) {
  host.AddFile("C:\\src\\sub\\bad", "x");
  host.AddFile("C:\\src\\sub\\later", "x");
  host.AddFile("C:\\src\\z\\later", "x");
  host.FailOn("WriteAt", "bad", host::ErrorClass::kDiskFull, "No space left on device");
  EXPECT_FALSE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  EXPECT_FALSE(host.Exists("C:\\dst\\sub\\later"));
  EXPECT_FALSE(host.Exists("C:\\dst\\z"));
  EXPECT_TRUE(user.messages.empty());
  ExpectStoppedAt("C:\\src\\sub\\bad", "could not be copied: Disk Full (No space left on device)");
}

TEST_F(CopyTreeChunkedTest, FailureWithoutShortText_IsNotedWithTheSystemsReason) {
  host.AddFile("C:\\src\\bad", "x");
  host.FailOn("ReadAt", "bad", host::ErrorClass::kOther, "odd");
  EXPECT_FALSE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  ExpectStoppedAt("C:\\src\\bad", "could not be copied: odd;");
}

TEST_F(CopyTreeChunkedTest, MissingSource_FailsWithoutAMessageButMakesTheDestination) {
  EXPECT_FALSE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  EXPECT_TRUE(host.Exists("C:\\dst"));
  EXPECT_TRUE(user.messages.empty());
  ExpectStoppedAt("C:\\src\\", "could not be listed: Path Not found");
}

TEST_F(CopyTreeChunkedTest, DestinationThatCannotBeMade_StopsTheCopy) {
  host.AddFile("C:\\src\\a", "x");
  host.FailOn("MakeFolders", "dst", host::ErrorClass::kAccessDenied, "");
  EXPECT_FALSE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  ExpectStoppedAt("C:\\dst\\", "could not be created: Permission denied;");
}

TEST_F(CopyTreeChunkedTest, SpecialFile_IsNeverOpenedButNotedAndTheCopyGoesOn) {
  host.AddSpecial("C:\\src\\pipe");
  host.AddFile("C:\\src\\z", "x");
  EXPECT_TRUE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.Content("C:\\dst\\z"), "x");
  EXPECT_THAT(host.calls, ::testing::Not(::testing::Contains(::testing::HasSubstr("pipe"))));
  ExpectOneNote("C:\\src\\pipe", "a device, a socket or a pipe");
}

TEST_F(CopyTreeChunkedTest, LinkThatLoops_StopsTheCopyWithANote) {
  host.AddLink("C:\\src\\loop", "C:\\src", true);
  host.AddFile("C:\\src\\z\\later", "x");
  EXPECT_FALSE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  EXPECT_FALSE(host.Exists("C:\\dst\\z"));
  ExpectStoppedAt("C:\\src\\loop", "a link back");
}

TEST_F(CopyTreeChunkedTest, BrokenLink_IsAFailedFile) {
  host.AddLink("C:\\src\\broken", "C:\\nowhere");
  EXPECT_FALSE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  ExpectStoppedAt("C:\\src\\broken", "target is missing");
}

TEST_F(CopyTreeChunkedTest, FileAndFolderThatDifferOnlyInCase_AreAClash) {
  host.AddFile("C:\\src\\NAME", "x");
  testing::FakeHost::Node folder;
  folder.name = "name";
  folder.kind = host::EntryKind::kFolder;
  host.nodes["c:\\src\\clash"] = folder;
  EXPECT_TRUE(CopyTreeChunked(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.Content("C:\\dst\\name"), "x");
  ExpectOneNote("C:\\src\\name", "only in letter case");
}

TEST_F(CopyTreeChunkedTest, DestinationInsideTheSource_IsNotCopiedIntoItself) {
  host.AddFile("C:\\src\\a", "x");
  EXPECT_TRUE(CopyTreeChunked(run, "C:\\src", "C:\\src\\dst"));
  EXPECT_EQ(host.Content("C:\\src\\dst\\a"), "x");
  EXPECT_FALSE(host.Exists("C:\\src\\dst\\dst"));
}

TEST_F(CopyFileChunkedTest, FileOfTwoChunksAndARest_MovesTheBarByPositions) {
  const std::string content(2 * 16384 + 5, 'x');
  host.AddFile("C:\\a", content);
  progress.shown = 100;
  EXPECT_TRUE(CopyFileChunked(run, "C:\\a", "C:\\b").ok());
  EXPECT_EQ(host.Content("C:\\b"), content);
  EXPECT_EQ(progress.values, (std::vector<std::int64_t>{100 + 16385, 100 + 32769, 100 + 32774}));
}

TEST_F(CopyFileChunkedTest, EveryByte_ArrivesInItsPlace) {
  std::string content;
  for (int i = 0; i < 40000; ++i) content += static_cast<char>(i % 251);
  host.AddFile("C:\\a", content);
  EXPECT_TRUE(CopyFileChunked(run, "C:\\a", "C:\\b").ok());
  EXPECT_EQ(host.Content("C:\\b"), content);
}

TEST_F(CopyFileChunkedTest, EachFile_AddsOneMoreThanItsLength) {
  host.AddFile("C:\\a", "12345");
  host.AddFile("C:\\exact", std::string(16384, 'x'));
  EXPECT_TRUE(CopyFileChunked(run, "C:\\a", "C:\\b").ok());
  EXPECT_EQ(progress.shown, 6);
  EXPECT_TRUE(CopyFileChunked(run, "C:\\exact", "C:\\b").ok());
  EXPECT_EQ(progress.shown, 6 + 16385);
}

TEST_F(CopyFileChunkedTest, EmptyFile_IsMadeAndAddsOne) {
  host.AddFile("C:\\a", "");
  EXPECT_TRUE(CopyFileChunked(run, "C:\\a", "C:\\b").ok());
  EXPECT_EQ(host.Content("C:\\b"), "");
  EXPECT_EQ(progress.shown, 1);
}

TEST_F(CopyFileChunkedTest, BarNearItsMaximum_StopsAtTheMaximum) {
  host.AddFile("C:\\a", std::string(20000, 'x'));
  SetTotal(run, 10000);
  EXPECT_TRUE(CopyFileChunked(run, "C:\\a", "C:\\b").ok());
  EXPECT_EQ(progress.shown, 10000);
}

TEST_F(CopyFileChunkedTest, LongerDestination_KeepsItsTailBehindTheNewContent) {
  host.AddFile("C:\\a", "new");
  host.AddFile("C:\\b", "old and longer");
  EXPECT_TRUE(CopyFileChunked(run, "C:\\a", "C:\\b").ok());
  EXPECT_EQ(host.Content("C:\\b"), "new and longer");
}

TEST_F(CopyFileChunkedTest, MissingSource_FailsWithoutMakingTheDestination) {
  EXPECT_EQ(CopyFileChunked(run, "C:\\missing", "C:\\b").error, host::ErrorClass::kNotFound);
  EXPECT_FALSE(host.Exists("C:\\b"));
}

TEST_F(CopyFileChunkedTest, ReadOnlyDestination_IsDeniedAndStays) {
  host.AddFile("C:\\a", "new");
  host.AddFile("C:\\b", "old", true);
  EXPECT_EQ(CopyFileChunked(run, "C:\\a", "C:\\b").error, host::ErrorClass::kAccessDenied);
  EXPECT_EQ(host.Content("C:\\b"), "old");
}

}  // namespace
}  // namespace discwright::util
