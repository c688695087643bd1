// Tests of the copy engine of the NT family, on the fake host.
#include <algorithm>
#include <limits>

#include "tests/support/util_fixture.h"
#include "util/copy_engines.h"

namespace discwright::util {
namespace {

constexpr std::int64_t kGigabyte = 1 << 30;
constexpr std::int32_t kMostBytes = std::numeric_limits<std::int32_t>::max();

class CopyNtTest : public testing::UtilFixture {
 protected:
  CopyRun run{user, notes, progress};

  void SetUp() override { SetTotal(run, 100); }

  // A second entry of C:\src whose name differs from an existing one only in letter case.
  void AddClash(const std::string& key, const std::string& name, host::EntryKind kind = host::EntryKind::kFile) {
    testing::FakeHost::Node node;
    node.name = name;
    node.kind = kind;
    node.content = "clash";
    host.nodes["c:\\src\\" + key] = node;
  }
};

using FolderSizeByFindTest = CopyNtTest;
using CopyTreeWithProgressTest = CopyNtTest;
using CopyTreeByFindTest = CopyNtTest;
using CopyOneFileTest = CopyNtTest;
using CopyProgressTest = CopyNtTest;

TEST_F(FolderSizeByFindTest, NestedTree_AddsTheFilesOfAllFolders) {
  host.AddFileOfSize("C:\\src\\a", 5);
  host.AddFileOfSize("C:\\src\\sub\\b", 7);
  host.AddFileOfSize("C:\\src\\sub\\deep\\c", 11);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src"), 23);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), 23);
}

TEST_F(FolderSizeByFindTest, NamesThatBeginWithADot_AreNotCounted) {
  host.AddFileOfSize("C:\\src\\.file", 5);
  host.AddFileOfSize("C:\\src\\.folder\\a", 7);
  host.AddFileOfSize("C:\\src\\b", 1);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), 1);
}

TEST_F(FolderSizeByFindTest, FolderThatCannotBeListed_CountsZeroWithoutANote) {
  host.AddFileOfSize("C:\\src\\locked\\a", 5);
  host.AddFileOfSize("C:\\src\\b", 1);
  host.FailOn("ListFolder", "locked", host::ErrorClass::kAccessDenied);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), 1);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\missing\\"), 0);
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(FolderSizeByFindTest, LoopsSpecialFilesAndBrokenLinks_CountZero) {
  host.AddFileOfSize("C:\\src\\a", 3);
  host.AddSpecial("C:\\src\\pipe");
  host.Find("C:\\src\\pipe")->size_override = 100;
  host.AddLink("C:\\src\\loop", "C:\\src", true);
  host.AddLink("C:\\src\\broken", "C:\\nowhere");
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), 3);
}

TEST_F(FolderSizeByFindTest, EntryWithAProblem_CountsZeroAndIsRemembered) {
  host.AddFileOfSize("C:\\src\\a", 3);
  host.AddFileOfSize("C:\\src\\sub\\unknown", 5);
  host.AddFileOfSize("C:\\src\\unknown too", 5);
  host.SetProblem("C:\\src\\sub\\unknown", host::ErrorClass::kAccessDenied, "no right to look");
  host.SetProblem("C:\\src\\unknown too", host::ErrorClass::kNotReady, "Input/output error");
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), 3);
  EXPECT_EQ(run.uncounted_place, "C:\\src\\sub\\unknown");
  EXPECT_EQ(run.uncounted.cause, "no right to look");
}

TEST_F(FolderSizeByFindTest, EveryEntry_LetsTheUserIn) {
  host.AddFile("C:\\src\\a", "x");
  host.AddFile("C:\\src\\sub\\b", "x");
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src"), 2);
  EXPECT_EQ(user.waited, std::vector<int>(3, 0));
}

TEST_F(FolderSizeByFindTest, CancelledCount_StopsAtOnce) {
  for (const char* file : {"a", "b\\c", "b\\d", "e"}) host.AddFile(std::string("C:\\src\\") + file, "x");
  run.go_on = [this] { return user.do_events_calls < 2; };
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src"), std::nullopt);
  EXPECT_TRUE(run.is_cancelled);
  EXPECT_EQ(user.do_events_calls, 2);
}

TEST_F(FolderSizeByFindTest, LinkToAFolderOutside_IsFollowed) {
  host.AddFileOfSize("C:\\other\\a", 3);
  host.AddLink("C:\\src\\link", "C:\\other");
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), 3);
}

TEST_F(FolderSizeByFindTest, SumOfTheLargestNumber_IsStillCounted) {
  host.AddFileOfSize("C:\\src\\a", kMostBytes);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), kMostBytes);
}

TEST_F(FolderSizeByFindTest, SumOfTwoGigabytes_Overflows) {
  host.AddFileOfSize("C:\\src\\a", kMostBytes);
  host.AddFileOfSize("C:\\src\\sub\\b", 1);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), std::nullopt);
}

TEST_F(FolderSizeByFindTest, OverflowInASubfolder_IsPassedUp) {
  host.AddFileOfSize("C:\\src\\sub\\a", kMostBytes);
  host.AddFileOfSize("C:\\src\\sub\\b", kMostBytes);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), std::nullopt);
}

TEST_F(FolderSizeByFindTest, SizeBeyondFourGigabytes_CountsItsLowHalfAsSignedNumber) {
  host.AddFileOfSize("C:\\src\\a", 5 * kGigabyte);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), kGigabyte);
  host.AddFileOfSize("C:\\src\\a", 3 * kGigabyte);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), -kGigabyte);
}

TEST_F(FolderSizeByFindTest, SumBelowTheSmallestNumber_OverflowsToo) {
  for (const char* file : {"C:\\src\\a", "C:\\src\\b", "C:\\src\\c"}) host.AddFileOfSize(file, 3 * kGigabyte);
  EXPECT_EQ(FolderSizeByFind(run, "C:\\src\\"), std::nullopt);
}

TEST_F(CopyTreeWithProgressTest, Tree_IsCopiedWholeAndTheBarEndsAtItsSize) {
  host.AddFile("C:\\src\\a.txt", "12345");
  host.AddFile("C:\\src\\Sub\\B.txt", "1234567");
  host.AddFolder("C:\\src\\empty");
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kComplete);
  EXPECT_EQ(host.Content("C:\\dst\\a.txt"), "12345");
  EXPECT_EQ(host.Content("C:\\dst\\Sub\\B.txt"), "1234567");
  EXPECT_EQ(host.RealName("C:\\dst\\sub\\b.txt"), "B.txt");
  EXPECT_TRUE(host.Exists("C:\\dst\\empty"));
  EXPECT_EQ(progress.total, 12);
  EXPECT_EQ(progress.shown, 12);
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(CopyTreeWithProgressTest, EmptySource_CopiesNothingMakesNoDestinationAndFails) {
  host.AddFolder("C:\\src");
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kFailed);
  EXPECT_FALSE(host.Exists("C:\\dst"));
  EXPECT_TRUE(user.messages.empty());
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(CopyTreeWithProgressTest, MissingSource_FailsWithoutAMessageAndIsNoted) {
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kFailed);
  EXPECT_TRUE(user.messages.empty());
  EXPECT_FALSE(host.Exists("C:\\dst"));
  ExpectOneNote("C:\\src", "could not be listed");
}

TEST_F(CopyTreeWithProgressTest, CancelledWhileCounting_DoesNotBegin) {
  host.AddFile("C:\\src\\a", "x");
  run.go_on = [] { return false; };
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kCancelled);
  EXPECT_FALSE(host.Exists("C:\\dst"));
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(CopyTreeWithProgressTest, CancelledDuringTheCopy_CopiesToTheEnd) {
  for (const char* file : {"a", "b"}) host.AddFile(std::string("C:\\src\\") + file, "x");
  run.go_on = [this] { return progress.files.empty(); };
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kComplete);
  EXPECT_EQ(host.Content("C:\\dst\\b"), "x");
}

TEST_F(CopyTreeWithProgressTest, EntryWithAProblem_StopsTheCopyAndIsNamed) {
  for (const char* file : {"a", "b", "c"}) host.AddFile(std::string("C:\\src\\") + file, "x");
  host.SetProblem("C:\\src\\b", host::ErrorClass::kNotReady, "Input/output error");
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kFailed);
  EXPECT_EQ(host.Content("C:\\dst\\a"), "x");
  EXPECT_FALSE(host.Exists("C:\\dst\\c"));
  ExpectStoppedAt("C:\\src\\b", "could not be copied: Input/output error");
}

TEST_F(CopyTreeWithProgressTest, TreeOfWhichNothingCanBeRead_IsNotedWithTheFirstReason) {
  host.AddFile("C:\\src\\sub\\a", "x");
  host.SetProblem("C:\\src\\sub\\a", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kFailed);
  ExpectOneNote("C:\\src\\sub\\a", "could not be read, and nothing was copied from C:\\src: Permission denied");
}

TEST_F(CopyTreeWithProgressTest, TreeWhoseOnlyFolderCannotBeListed_IsNotedWithThatReason) {
  host.AddFile("C:\\src\\locked\\a", "x");
  host.FailOn("ListFolder", "locked", host::ErrorClass::kAccessDenied, "no right to look");
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kFailed);
  ExpectOneNote("C:\\src\\locked\\", "no right to look");
}

TEST_F(CopyTreeWithProgressTest, TreeOfABrokenLink_IsNotCalledEmpty) {
  host.AddLink("C:\\src\\link", "C:\\nowhere");
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kFailed);
  ExpectOneNote("C:\\src\\link", "it is a link whose target is missing");
}

TEST_F(CopyTreeWithProgressTest, TreeOfEmptyFiles_CopiesNothingAndIsNoted) {
  host.AddFile("C:\\src\\sub\\a", "");
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kFailed);
  EXPECT_FALSE(host.Exists("C:\\dst"));
  EXPECT_TRUE(user.messages.empty());
  ExpectOneNote("C:\\src", "nothing was copied: this folder contains only empty files");
}

TEST_F(CopyTreeWithProgressTest, TreeOfDotFilesOnly_CopiesNothing) {
  host.AddFile("C:\\src\\.file", "x");
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kFailed);
  EXPECT_FALSE(host.Exists("C:\\dst"));
  ExpectOneNote("C:\\src", "names that begin with a dot");
  EXPECT_THAT(notes.all()[0].cause, ::testing::Not(::testing::HasSubstr("bytes")));
}

TEST_F(CopyTreeWithProgressTest, TreeOfTwoGigabytes_IsARuntimeFailureAndNoted) {
  host.AddFileOfSize("C:\\src\\a", kMostBytes);
  host.AddFileOfSize("C:\\src\\b", 1);
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kRuntimeFailure);
  EXPECT_FALSE(host.Exists("C:\\dst"));
  ExpectOneNote("C:\\src", "2 GB");
}

TEST_F(CopyTreeWithProgressTest, SingleFileOfThreeGigabytes_IsARuntimeFailure) {
  host.AddFileOfSize("C:\\src\\a", 3 * kGigabyte);
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kRuntimeFailure);
}

TEST_F(CopyTreeWithProgressTest, SingleFileOfFiveGigabytes_IsCopiedAndTheBytesStopAtTheTotal) {
  host.AddFileOfSize("C:\\src\\a", 5 * kGigabyte);
  EXPECT_EQ(CopyTreeWithProgress(run, "C:\\src", "C:\\dst"), CopyEnd::kComplete);
  EXPECT_TRUE(host.Exists("C:\\dst\\a"));
  EXPECT_EQ(progress.total, kGigabyte);
  EXPECT_EQ(progress.shown, kGigabyte);
}

TEST_F(CopyTreeByFindTest, SourceThatCannotBeListed_ShowsItWithItsBackslashAndFails) {
  EXPECT_FALSE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_EQ(user.messages[0].text, "Source folder \"C:\\src\\\" not found.");
  EXPECT_EQ(user.messages[0].title, "Vexa Discwright");
  EXPECT_EQ(user.messages[0].icon, host::MessageIcon::kNone);
  EXPECT_FALSE(host.Exists("C:\\dst"));
  ExpectStoppedAt("C:\\src\\", "could not be listed");
}

TEST_F(CopyTreeByFindTest, SourceThatCannotBeListed_IsShownAsTheHostSpellsIt) {
  host.shows_slashes = true;
  EXPECT_FALSE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_EQ(user.messages[0].text, "Source folder \"C:/src/\" not found.");
}

TEST_F(CopyTreeByFindTest, SubfolderThatCannotBeListed_IsShownAndStopsTheWholeCopy) {
  host.AddFile("C:\\src\\a", "x");
  host.AddFile("C:\\src\\locked\\b", "x");
  host.AddFile("C:\\src\\z", "x");
  host.FailOn("ListFolder", "src\\locked", host::ErrorClass::kAccessDenied, "no right to look");
  EXPECT_FALSE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_EQ(user.messages[0].text, "Source folder \"C:\\src\\locked\\\" not found.");
  EXPECT_TRUE(host.Exists("C:\\dst\\a"));
  EXPECT_FALSE(host.Exists("C:\\dst\\z"));
  ExpectStoppedAt("C:\\src\\locked\\", "no right to look");
}

TEST_F(CopyTreeByFindTest, EmptySource_MakesTheDestinationWithAllItsFolders) {
  host.AddFolder("C:\\src");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\x\\y\\dst"));
  EXPECT_TRUE(host.Exists("C:\\x\\y\\dst"));
}

TEST_F(CopyTreeByFindTest, BothFoldersWithBackslash_AreTheSameCopy) {
  host.AddFile("C:\\src\\a", "x");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src\\", "C:\\dst\\"));
  EXPECT_EQ(host.Content("C:\\dst\\a"), "x");
}

TEST_F(CopyTreeByFindTest, ExistingFileOfTheDestination_IsOverwrittenAndOthersStay) {
  host.AddFile("C:\\src\\a", "new");
  host.AddFile("C:\\dst\\a", "old and longer");
  host.AddFile("C:\\dst\\b", "stays");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.Content("C:\\dst\\a"), "new");
  EXPECT_EQ(host.Content("C:\\dst\\b"), "stays");
}

TEST_F(CopyTreeByFindTest, DotFile_IsCopiedAndDotFolderIsPassedOverAndNoted) {
  host.AddFile("C:\\src\\.file", "x");
  host.AddFile("C:\\src\\.folder\\a", "x");
  host.AddFile("C:\\src\\z", "x");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.Content("C:\\dst\\.file"), "x");
  EXPECT_EQ(host.Content("C:\\dst\\z"), "x");
  EXPECT_FALSE(host.Exists("C:\\dst\\.folder"));
  ExpectOneNote("C:\\src\\.folder", "begin with a dot are skipped");
}

TEST_F(CopyTreeByFindTest, EveryFile_IsNamedAndRepaintedInListingOrder) {
  host.AddFile("C:\\src\\b", "x");
  host.AddFile("C:\\src\\a", "x");
  host.AddFile("C:\\src\\aa\\c", "x");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(progress.files, (std::vector<std::string>{"a", "c", "b"}));
}

TEST_F(CopyTreeByFindTest, FailedFile_StopsItsFolderAndAllAboveWithOneNoteAndEarlierFilesStay) {
  host.AddFile("C:\\src\\a", "x");
  host.AddFile("C:\\src\\sub\\deep\\bad", "x");
  host.AddFile("C:\\src\\sub\\deep\\later", "x");
  host.AddFile("C:\\src\\sub\\later", "x");
  host.AddFile("C:\\src\\z", "x");
  host.FailOn("CopyFileWithProgress", "bad", host::ErrorClass::kNotReady, "Input/output error");
  EXPECT_FALSE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.Content("C:\\dst\\a"), "x");
  EXPECT_FALSE(host.Exists("C:\\dst\\sub\\deep\\later"));
  EXPECT_FALSE(host.Exists("C:\\dst\\sub\\later"));
  EXPECT_FALSE(host.Exists("C:\\dst\\z"));
  EXPECT_TRUE(user.messages.empty());
  ExpectStoppedAt("C:\\src\\sub\\deep\\bad", "Input/output error");
}

TEST_F(CopyTreeByFindTest, DestinationThatCannotBeMade_IsNotedAndItsFirstFileStopsTheCopy) {
  host.AddFile("C:\\src\\a", "x");
  host.FailOn("MakeFolders", "dst", host::ErrorClass::kAccessDenied, "read-only disk");
  EXPECT_FALSE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  ASSERT_EQ(notes.all().size(), 2U);
  EXPECT_EQ(notes.all()[0].place, "C:\\dst\\");
  EXPECT_EQ(notes.all()[0].cause, "could not be created: read-only disk");
  EXPECT_EQ(notes.all()[1].place, "C:\\src\\a");
}

TEST_F(CopyTreeByFindTest, EmptyFolderThatCannotBeMade_IsNotedAndTheCopyGoesOn) {
  host.AddFolder("C:\\src\\empty");
  host.AddFile("C:\\src\\z", "x");
  host.FailOn("MakeFolders", "empty", host::ErrorClass::kAccessDenied);
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.Content("C:\\dst\\z"), "x");
  ExpectOneNote("C:\\dst\\empty\\", "could not be created");
}

TEST_F(CopyTreeByFindTest, SpecialFile_IsNeverOpenedButNotedAndTheCopyGoesOn) {
  host.AddSpecial("C:\\src\\pipe");
  host.AddFile("C:\\src\\z", "x");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.calls,
            (std::vector<std::string>{"MakeFolders C:\\dst\\", "CopyFileWithProgress C:\\src\\z -> C:\\dst\\z"}));
  ExpectOneNote("C:\\src\\pipe", "a device, a socket or a pipe");
}

TEST_F(CopyTreeByFindTest, LinkThatLoops_StopsTheCopyWithANote) {
  host.AddLink("C:\\src\\loop", "C:\\src", true);
  host.AddFile("C:\\src\\z", "x");
  EXPECT_FALSE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_FALSE(host.Exists("C:\\dst\\loop"));
  EXPECT_FALSE(host.Exists("C:\\dst\\z"));
  ExpectStoppedAt("C:\\src\\loop", "a link back to one of its own parent folders");
}

TEST_F(CopyTreeByFindTest, BrokenLink_IsAFailedFile) {
  host.AddLink("C:\\src\\broken", "C:\\nowhere");
  host.AddFile("C:\\src\\z", "x");
  EXPECT_FALSE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_FALSE(host.Exists("C:\\dst\\z"));
  ExpectStoppedAt("C:\\src\\broken", "a link whose target is missing");
}

TEST_F(CopyTreeByFindTest, LinkToAFolderOutside_IsCopiedAsAFolder) {
  host.AddFile("C:\\other\\a", "x");
  host.AddLink("C:\\src\\link", "C:\\other");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.Content("C:\\dst\\link\\a"), "x");
}

TEST_F(CopyTreeByFindTest, NamesThatDifferOnlyInCase_KeepTheFirstAndPassOverTheSecond) {
  host.AddFile("C:\\src\\readme", "lower case, listed last");
  AddClash("clash", "README");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.RealName("C:\\dst\\readme"), "README");
  EXPECT_EQ(std::count_if(host.calls.begin(), host.calls.end(),
                          [](const std::string& call) { return call.starts_with("CopyFileWithProgress"); }),
            1);
  ExpectOneNote("C:\\src\\readme", "only in letter case");
}

TEST_F(CopyTreeByFindTest, FoldersThatDifferOnlyInCase_AreNotMixed) {
  host.AddFile("C:\\src\\sub\\a", "x");
  AddClash("clash", "SUB", host::EntryKind::kFolder);
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  ExpectOneNote("C:\\src\\sub", "only in letter case");
}

TEST_F(CopyTreeByFindTest, SkippedDotFolder_TakesNoNameFromALaterFile) {
  host.AddFile("C:\\src\\.a", "x");
  AddClash("clash", ".A", host::EntryKind::kFolder);
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_TRUE(host.Exists("C:\\dst\\.a"));
}

TEST_F(CopyTreeByFindTest, SameNameInTwoFolders_IsNoClash) {
  host.AddFile("C:\\src\\a\\file", "x");
  host.AddFile("C:\\src\\b\\FILE", "y");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(CopyTreeByFindTest, FolderNameThatEndsInABlank_IsCopiedUnderThatName) {
  host.AddFile("C:\\src\\sub \\a", "x");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.Content("C:\\dst\\sub \\a"), "x");
}

TEST_F(CopyTreeByFindTest, DestinationInsideTheSource_IsNotCopiedIntoItself) {
  host.AddFile("C:\\src\\a", "x");
  host.AddFolder("C:\\src\\dst");
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\src\\dst"));
  EXPECT_EQ(host.Content("C:\\src\\dst\\a"), "x");
  EXPECT_FALSE(host.Exists("C:\\src\\dst\\dst\\dst"));
}

TEST_F(CopyTreeByFindTest, EveryEntry_YieldsAndEveryCallOfThePlatformToo) {
  host.AddFile("C:\\src\\a", "x");
  host.AddFolder("C:\\src\\b");
  host.pieces_per_file = 3;
  EXPECT_TRUE(CopyTreeByFind(run, "C:\\src", "C:\\dst"));
  EXPECT_EQ(user.waited, std::vector<int>(2 + 1 + 3, 0));
}

TEST_F(CopyOneFileTest, File_IsCopiedAndTheBarMovesWithin) {
  host.AddFileOfSize("C:\\a", 100);
  host.pieces_per_file = 4;
  SetTotal(run, 1000);
  progress.shown = 30;
  EXPECT_TRUE(CopyOneFile(run, "C:\\a", "C:\\b").ok());
  EXPECT_EQ(progress.values, (std::vector<std::int64_t>{55, 80, 105, 130}));
}

TEST_F(CopyOneFileTest, FailureOfThePlatform_IsItsStatus) {
  host.AddFile("C:\\a", "x");
  host.FailOn("CopyFileWithProgress", "C:\\a", host::ErrorClass::kDiskFull);
  EXPECT_EQ(CopyOneFile(run, "C:\\a", "C:\\b").error, host::ErrorClass::kDiskFull);
}

TEST_F(CopyProgressTest, StreamSwitch_RemembersTheBarsValueAndLeavesIt) {
  progress.shown = 42;
  EXPECT_TRUE(CopyProgress(run, host::CopyEvent::kStreamSwitch, 0));
  EXPECT_EQ(run.start_value, 42);
  EXPECT_EQ(progress.shown, 42);
  EXPECT_EQ(user.waited, std::vector<int>{0});
}

TEST_F(CopyProgressTest, FinishedChunk_AddsTheFilesBytesToTheRememberedValue) {
  run.start_value = 40;
  EXPECT_TRUE(CopyProgress(run, host::CopyEvent::kChunkFinished, 20));
  EXPECT_TRUE(CopyProgress(run, host::CopyEvent::kChunkFinished, 50));
  EXPECT_EQ(progress.shown, 90);
}

TEST_F(CopyProgressTest, SumBeyondTheMaximum_StopsAtTheMaximum) {
  run.start_value = 90;
  EXPECT_TRUE(CopyProgress(run, host::CopyEvent::kChunkFinished, 20));
  EXPECT_EQ(progress.shown, 100);
}

}  // namespace
}  // namespace discwright::util
