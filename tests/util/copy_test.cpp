// Tests of the choice of the copy engine, of what both engines show, and of the copy that shows no progress.
#include "util/copy.h"

#include <algorithm>
#include <limits>

#include "tests/support/util_fixture.h"

namespace discwright::util {
namespace {

constexpr int kWindows9x = 1;
constexpr int kNtFamily = 2;

class CopyFixture : public testing::UtilFixture {
 protected:
  CopyEnd Copy(CopiedNames names = CopiedNames::kAsListed) {
    return CopyPathWithProgress({user, notes, progress}, "C:\\src", "C:\\dst", names);
  }
};

using CopyPathWithProgressTest = CopyFixture;
using CopyFolderTreeTest = CopyFixture;

class CopyOnBothPlatforms : public CopyFixture, public ::testing::WithParamInterface<int> {
 protected:
  void SetUp() override { host.platform_id = GetParam(); }
};

TEST_P(CopyOnBothPlatforms, Tree_IsCopiedWholeAndComplete) {
  host.AddFile("C:\\src\\a", "1");
  host.AddFile("C:\\src\\sub\\.b", "2");
  EXPECT_EQ(Copy(), CopyEnd::kComplete);
  EXPECT_EQ(host.Content("C:\\dst\\a"), "1");
  EXPECT_EQ(host.Content("C:\\dst\\sub\\.b"), "2");
}

TEST_P(CopyOnBothPlatforms, Progress_HearsThePreparationTheTotalEachFileAndTheEnd) {
  host.AddFile("C:\\src\\a", "1");
  host.AddFile("C:\\src\\sub\\b", "23");
  EXPECT_EQ(Copy(), CopyEnd::kComplete);
  EXPECT_EQ(progress.events, (std::vector<std::string>{"prepare", "total 3", "file a", "file b", "end"}));
}

TEST_P(CopyOnBothPlatforms, ProgressOfACopyThatFails_HearsTheEnd) {
  EXPECT_EQ(Copy(), CopyEnd::kFailed);
  EXPECT_EQ(progress.events.front(), "prepare");
  EXPECT_EQ(progress.events.back(), "end");
}

TEST_P(CopyOnBothPlatforms, DestinationDeepInsideTheSource_IsPassedOverAndNoted) {
  host.AddFile("C:\\src\\a", "1");
  host.AddFile("C:\\src\\job\\b", "2");
  EXPECT_EQ(CopyPathWithProgress({user, notes, progress}, "C:\\src", "c:/SRC/job/cd/"), CopyEnd::kComplete);
  EXPECT_EQ(host.Content("C:\\src\\job\\cd\\job\\b"), "2");
  EXPECT_FALSE(host.Exists("C:\\src\\job\\cd\\job\\cd"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\src\\job\\cd");
}

TEST_P(CopyOnBothPlatforms, DestinationBehindALinkInTheSource_IsPassedOverAndNoted) {
  host.AddFile("C:\\src\\a", "1");
  host.AddFile("C:\\work\\b", "2");
  host.AddLink("C:\\src\\link", "C:\\work");
  EXPECT_EQ(CopyPathWithProgress({user, notes, progress}, "C:\\src", "C:\\work\\cd"), CopyEnd::kComplete);
  EXPECT_EQ(host.Content("C:\\work\\cd\\link\\b"), "2");
  EXPECT_FALSE(host.Exists("C:\\work\\cd\\link\\cd"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\src\\link\\cd");
}

TEST_P(CopyOnBothPlatforms, BytesThatAreShownAlready_AreCountedOn) {
  host.AddFileOfSize("C:\\src\\a", 10);
  host.AddFileOfSize("C:\\src\\b", 20);
  progress.shown = 10;
  EXPECT_EQ(Copy(), CopyEnd::kComplete);
  for (const std::int64_t value : progress.values) EXPECT_GT(value, 10);
}

TEST_P(CopyOnBothPlatforms, TreeOfTwoGigabytes_IsARuntimeFailureThatCopiesNothingAndIsNoted) {
  host.AddFileOfSize("C:\\src\\a", std::numeric_limits<std::int32_t>::max());
  host.AddFileOfSize("C:\\src\\b", 1);
  EXPECT_EQ(Copy(), CopyEnd::kRuntimeFailure);
  EXPECT_FALSE(host.Exists("C:\\dst"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\src");
}

TEST_P(CopyOnBothPlatforms, NamesAsOnDisc_AreRaisedWhereTheSystemShowsThemInLowerCase) {
  host.shows_disc_names_in_lower_case = true;
  host.AddFile("C:\\src\\i386\\win51.ip", "1");
  host.AddFile("C:\\src\\i386\\Mixed.txt", "2");
  host.AddFile("C:\\src\\Docs\\readme.1st", "3");
  host.AddFolder("C:\\src\\empty");
  EXPECT_EQ(Copy(CopiedNames::kAsOnDisc), CopyEnd::kComplete);
  EXPECT_EQ(host.RealName("C:\\dst\\i386"), "I386");
  EXPECT_EQ(host.RealName("C:\\dst\\i386\\win51.ip"), "WIN51.IP");
  EXPECT_EQ(host.RealName("C:\\dst\\i386\\mixed.txt"), "Mixed.txt");
  EXPECT_EQ(host.RealName("C:\\dst\\docs"), "Docs");
  EXPECT_EQ(host.RealName("C:\\dst\\docs\\readme.1st"), "README.1ST");
  EXPECT_EQ(host.RealName("C:\\dst\\empty"), "EMPTY");
  EXPECT_EQ(host.RealName("C:\\dst"), "dst");
  EXPECT_EQ(host.Content("C:\\dst\\I386\\WIN51.IP"), "1");
}

TEST_P(CopyOnBothPlatforms, NamesAsOnDisc_AreTheListedOnesWhereTheSystemShowsThemAsTheyAre) {
  host.AddFile("C:\\src\\i386\\win51.ip", "1");
  EXPECT_EQ(Copy(CopiedNames::kAsOnDisc), CopyEnd::kComplete);
  EXPECT_EQ(host.RealName("C:\\dst\\i386"), "i386");
  EXPECT_EQ(host.RealName("C:\\dst\\i386\\win51.ip"), "win51.ip");
}

TEST_P(CopyOnBothPlatforms, PlainCopy_KeepsItsNamesOnEverySystem) {
  host.shows_disc_names_in_lower_case = true;
  host.AddFile("C:\\src\\sub\\file", "1");
  EXPECT_EQ(Copy(), CopyEnd::kComplete);
  EXPECT_EQ(host.RealName("C:\\dst\\sub"), "sub");
  EXPECT_EQ(host.RealName("C:\\dst\\sub\\file"), "file");
}

TEST_P(CopyOnBothPlatforms, FailedFileOfADisc_IsNotedUnderItsNameInTheSource) {
  host.shows_disc_names_in_lower_case = true;
  host.AddFile("C:\\src\\i386\\bad", "1");
  host.FailOn(host.platform_id == kNtFamily ? "CopyFileWithProgress" : "ReadAt", "bad", host::ErrorClass::kNotReady);
  EXPECT_EQ(Copy(CopiedNames::kAsOnDisc), CopyEnd::kFailed);
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\src\\i386\\bad");
}

TEST_P(CopyOnBothPlatforms, MissingSource_FailsWithoutAMessageAndIsNoted) {
  EXPECT_EQ(Copy(), CopyEnd::kFailed);
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(notes.all().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Platforms, CopyOnBothPlatforms, ::testing::Values(kWindows9x, kNtFamily),
                         [](const auto& platform) { return platform.param == kWindows9x ? "Windows9x" : "NtFamily"; });

TEST_F(CopyPathWithProgressTest, NtFamily_UsesThePlatformsFileCopy) {
  host.AddFile("C:\\src\\a", "12345");
  EXPECT_EQ(Copy(), CopyEnd::kComplete);
  EXPECT_THAT(host.calls, ::testing::Contains("CopyFileWithProgress C:\\src\\a -> C:\\dst\\a"));
  EXPECT_EQ(progress.total, 5);
}

TEST_F(CopyPathWithProgressTest, Windows9x_MovesTheBytesItselfAndCountsDotNames) {
  host.platform_id = kWindows9x;
  host.AddFileOfSize("C:\\src\\a", 5);
  host.AddFileOfSize("C:\\src\\.b", 7);
  EXPECT_EQ(Copy(), CopyEnd::kComplete);
  EXPECT_THAT(host.calls, ::testing::Contains("OpenBinary C:\\dst\\a"));
  EXPECT_EQ(progress.total, 12);
}

TEST_F(CopyPathWithProgressTest, CancelledWhileCounting_CopiesNothingOnBothFamilies) {
  host.AddFile("C:\\src\\a", "x");
  for (const int family : {1, 2}) {
    host.platform_id = family;
    EXPECT_EQ(CopyPathWithProgress({user, notes, progress, [] { return false; }}, "C:\\src", "C:\\dst"),
              CopyEnd::kCancelled);
    EXPECT_FALSE(host.Exists("C:\\dst"));
  }
}

TEST_F(CopyPathWithProgressTest, EmptySourceOnWindows9x_IsComplete) {
  host.platform_id = kWindows9x;
  host.AddFolder("C:\\src");
  EXPECT_EQ(Copy(), CopyEnd::kComplete);
  EXPECT_TRUE(host.Exists("C:\\dst"));
}

TEST_F(CopyFolderTreeTest, TreeWithDotNamesAndEmptyFiles_IsCopiedWholeWithoutDisplay) {
  host.AddFile("C:\\src\\empty", "");
  host.AddFile("C:\\src\\.hidden", "1");
  host.AddFile("C:\\src\\.folder\\sub\\b", "2");
  host.AddFile("C:\\src\\z", "3");
  EXPECT_TRUE(CopyFolderTree(notes, "C:\\src", "C:\\x\\dst"));
  EXPECT_EQ(host.Content("C:\\x\\dst\\empty"), "");
  EXPECT_EQ(host.Content("C:\\x\\dst\\.hidden"), "1");
  EXPECT_EQ(host.Content("C:\\x\\dst\\.folder\\sub\\b"), "2");
  EXPECT_EQ(host.Content("C:\\x\\dst\\z"), "3");
  EXPECT_EQ(user.do_events_calls, 0);
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(CopyFolderTreeTest, EmptySource_MakesTheDestination) {
  host.AddFolder("C:\\src");
  EXPECT_TRUE(CopyFolderTree(notes, "C:\\src\\", "C:\\dst\\"));
  EXPECT_TRUE(host.Exists("C:\\dst"));
}

TEST_F(CopyFolderTreeTest, NamesInLowerCase_AreKeptOnEverySystem) {
  host.shows_disc_names_in_lower_case = true;
  host.AddFile("C:\\src\\sub\\file", "1");
  EXPECT_TRUE(CopyFolderTree(notes, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.RealName("C:\\dst\\sub"), "sub");
  EXPECT_EQ(host.RealName("C:\\dst\\sub\\file"), "file");
}

TEST_F(CopyFolderTreeTest, FailedFile_StopsTheCopyWithOneNote) {
  host.AddFile("C:\\src\\sub\\bad", "x");
  host.AddFile("C:\\src\\z", "x");
  host.FailOn("CopyFileWithProgress", "bad", host::ErrorClass::kAccessDenied, "Operation not permitted");
  EXPECT_FALSE(CopyFolderTree(notes, "C:\\src", "C:\\dst"));
  EXPECT_FALSE(host.Exists("C:\\dst\\z"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\src\\sub\\bad");
  EXPECT_THAT(notes.all()[0].cause, ::testing::HasSubstr("Permission denied (Operation not permitted)"));
}

TEST_F(CopyFolderTreeTest, MissingSource_FailsAndIsNoted) {
  EXPECT_FALSE(CopyFolderTree(notes, "C:\\src", "C:\\dst"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\src\\");
}

TEST_F(CopyFolderTreeTest, SpecialFile_IsNotedAndTheCopyGoesOn) {
  host.AddSpecial("C:\\src\\pipe");
  host.AddFile("C:\\src\\z", "x");
  EXPECT_TRUE(CopyFolderTree(notes, "C:\\src", "C:\\dst"));
  EXPECT_EQ(host.Content("C:\\dst\\z"), "x");
  EXPECT_EQ(notes.all().size(), 1U);
}

TEST_F(CopyFolderTreeTest, LinkThatLoops_StopsTheCopyWithANote) {
  host.AddLink("C:\\src\\loop", "C:\\src", true);
  host.AddFile("C:\\src\\z", "x");
  EXPECT_FALSE(CopyFolderTree(notes, "C:\\src", "C:\\dst"));
  EXPECT_FALSE(host.Exists("C:\\dst\\z"));
  EXPECT_EQ(notes.all().size(), 1U);
}

TEST_F(CopyFolderTreeTest, EntryWithAProblem_StopsTheCopyWithANote) {
  host.AddFile("C:\\src\\a", "x");
  host.SetProblem("C:\\src\\a", host::ErrorClass::kOther, "Cannot allocate memory");
  EXPECT_FALSE(CopyFolderTree(notes, "C:\\src", "C:\\dst"));
  ExpectStoppedAt("C:\\src\\a", "Cannot allocate memory");
}

TEST_F(CopyFolderTreeTest, DestinationInsideTheSource_StillEnds) {
  host.AddFile("C:\\src\\a", "x");
  EXPECT_TRUE(CopyFolderTree(notes, "C:\\src", "C:\\src\\dst"));
  EXPECT_FALSE(host.Exists("C:\\src\\dst\\dst"));
}

}  // namespace
}  // namespace discwright::util
