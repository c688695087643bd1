// Tests of deleting folder trees, on the fake host.
#include <gtest/gtest.h>

#include "tests/support/fake_host.h"
#include "util/paths.h"

namespace discwright::util {
namespace {

class DelTreeTest : public ::testing::Test {
 protected:
  testing::FakeHost host;
  Notes notes;
};

TEST_F(DelTreeTest, TreeWithReadOnlyFilesAndNestedEmptyFolders_IsRemovedWhole) {
  host.AddFile("C:\\t\\read only.txt", "x", true);
  host.AddFile("C:\\t\\a\\b\\.hidden", "x", true);
  host.AddFolder("C:\\t\\a\\empty\\emptier");
  host.AddFolder("C:\\t\\z");
  EXPECT_TRUE(DelTree("C:\\t", &notes));
  EXPECT_FALSE(host.Exists("C:\\t"));
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(DelTreeTest, PathWithTrailingSeparator_IsRemovedToo) {
  host.AddFile("C:\\t\\file", "x");
  EXPECT_TRUE(DelTree("C:\\t\\"));
  EXPECT_FALSE(host.Exists("C:\\t"));
}

TEST_F(DelTreeTest, FilesBesideTheTree_Stay) {
  host.AddFile("C:\\t\\file", "x");
  host.AddFile("C:\\t2\\file", "y");
  EXPECT_TRUE(DelTree("C:\\t"));
  EXPECT_EQ(host.Content("C:\\t2\\file"), "y");
}

TEST_F(DelTreeTest, MissingFolder_IsTrueWithoutANote) {
  EXPECT_TRUE(DelTree("C:\\missing", &notes));
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(DelTreeTest, EmptyOrBlankPath_DeletesNothing) {
  host.AddFile("C:\\Current\\file", "x");
  EXPECT_TRUE(DelTree(""));
  EXPECT_TRUE(DelTree("  "));
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(DelTreeTest, FileAtThePath_Stays) {
  host.AddFile("C:\\t", "x");
  EXPECT_TRUE(DelTree("C:\\t"));
  EXPECT_EQ(host.Content("C:\\t"), "x");
}

TEST_F(DelTreeTest, MountPoint_StaysWithEverythingInItAndIsNoted) {
  host.AddFile("C:\\t\\a\\ours", "x");
  host.AddFile("C:\\t\\b\\users\\photo.jpg", "mine");
  host.mount_points = {testing::FakeHost::Key("C:\\t\\b\\users")};
  EXPECT_FALSE(DelTree("C:\\t", &notes));
  EXPECT_EQ(host.Content("C:\\t\\b\\users\\photo.jpg"), "mine");
  EXPECT_FALSE(host.Exists("C:\\t\\a"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\t\\b\\users");
  EXPECT_EQ(notes.all()[0].cause, "was not deleted: it is a mount point; unmount it");
}

// Something of the user may be mounted there.
TEST_F(DelTreeTest, FolderThatCannotBeExamined_StaysWithEverythingInItAndIsNoted) {
  host.AddFile("C:\\tree\\inner\\photo.jpg", "mine");
  host.FailOn("FactsOfFolder", "inner", host::ErrorClass::kNotReady, "the disk is gone");
  EXPECT_FALSE(DelTree("C:\\tree", &notes));
  EXPECT_EQ(host.Content("C:\\tree\\inner\\photo.jpg"), "mine");
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\tree\\inner");
  EXPECT_EQ(notes.all()[0].cause, "could not be deleted: the disk is gone");
}

TEST_F(DelTreeTest, FolderThatCannotBeListed_IsNotTakenForDeleted) {
  host.AddFile("C:\\t\\file", "x");
  host.FailOn("ListFolder", "C:\\t", host::ErrorClass::kNotReady, "Input/output error");
  EXPECT_FALSE(DelTree("C:\\t", &notes));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].cause, "could not be deleted: Input/output error");
}

TEST_F(DelTreeTest, LinksInTheTree_AreRemovedAndTheirTargetsStay) {
  host.AddFile("C:\\keep\\file", "x");
  host.AddLink("C:\\t\\folder link", "C:\\keep");
  host.AddLink("C:\\t\\file link", "C:\\keep\\file");
  host.AddLink("C:\\t\\broken link", "C:\\nowhere");
  host.AddLink("C:\\t\\loop", "C:\\t", true);
  EXPECT_TRUE(DelTree("C:\\t", &notes));
  EXPECT_FALSE(host.Exists("C:\\t"));
  EXPECT_EQ(host.Content("C:\\keep\\file"), "x");
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(DelTreeTest, PathThatIsItselfALink_IsRemovedAndItsTargetStays) {
  host.AddFile("C:\\keep\\file", "x");
  host.AddLink("C:\\t", "C:\\keep");
  EXPECT_TRUE(DelTree("C:\\t\\"));
  EXPECT_FALSE(host.Exists("C:\\t"));
  EXPECT_EQ(host.Content("C:\\keep\\file"), "x");
}

TEST_F(DelTreeTest, SpecialFile_IsRemovedToo) {
  host.AddSpecial("C:\\t\\pipe");
  EXPECT_TRUE(DelTree("C:\\t"));
  EXPECT_FALSE(host.Exists("C:\\t"));
}

TEST_F(DelTreeTest, FileThatCannotBeDeleted_EndsWithFalseAndOneNoteAndTheRestIsGone) {
  host.AddFile("C:\\t\\a\\in use", "x");
  host.AddFile("C:\\t\\a\\z", "x");
  host.AddFile("C:\\t\\b\\file", "x");
  host.FailOn("RemoveFile", "in use", host::ErrorClass::kAccessDenied, "Text file busy");
  EXPECT_FALSE(DelTree("C:\\t", &notes));
  EXPECT_EQ(host.Files(), (std::vector<std::string>{"C:\\t\\a\\in use"}));
  EXPECT_FALSE(host.Exists("C:\\t\\b"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\t\\a\\in use");
  EXPECT_EQ(notes.all()[0].cause, "could not be deleted: Text file busy");
}

TEST_F(DelTreeTest, EmptiedFolderThatCannotBeRemoved_IsNotedItself) {
  host.AddFile("C:\\t\\sub\\file", "x");
  host.FailOn("RemoveEmptyFolder", "sub", host::ErrorClass::kAccessDenied, "busy");
  EXPECT_FALSE(DelTree("C:\\t", &notes));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\t\\sub");
}

TEST_F(DelTreeTest, FolderThatCannotBeListed_IsNotedWithThatReason) {
  host.AddFile("C:\\t\\sub\\file", "x");
  host.FailOn("ListFolder", "sub", host::ErrorClass::kAccessDenied, "no right to look");
  EXPECT_FALSE(DelTree("C:\\t", &notes));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\t\\sub");
  EXPECT_EQ(notes.all()[0].cause, "could not be deleted: no right to look");
}

TEST_F(DelTreeTest, FolderThatCannotBeLookedAt_IsNotedAndNotCalledMissing) {
  host.AddFile("C:\\t\\a", "x");
  host.FailOn("Look", "t", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_FALSE(DelTree("C:\\t", &notes));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].cause, "could not be deleted: Permission denied");
}

TEST_F(DelTreeTest, EntryWithAProblem_IsTried) {
  host.AddFile("C:\\t\\a", "x");
  host.SetProblem("C:\\t\\a", host::ErrorClass::kNotReady, "Input/output error");
  EXPECT_TRUE(DelTree("C:\\t", &notes));
}

TEST_F(DelTreeTest, Stopped_DeletesNothingMoreAndNotesNothing) {
  for (const char* file : {"C:\\t\\a", "C:\\t\\sub\\b", "C:\\t\\sub\\c", "C:\\t\\z"}) host.AddFile(file, "x");
  int asked = 0;
  // The third question comes after the first file of the folder "sub" was deleted.
  EXPECT_FALSE(DelTree("C:\\t", &notes, [&] { return ++asked < 4; }));
  EXPECT_EQ(asked, 4);
  EXPECT_THAT(host.Files(), ::testing::IsSupersetOf({"C:\\t\\sub\\c", "C:\\t\\z"}));
  EXPECT_FALSE(host.Exists("C:\\t\\sub\\b"));
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(DelTreeTest, FailureWithoutNotes_IsOnlyTheResult) {
  host.AddFile("C:\\t\\file", "x");
  host.FailOn("RemoveFile", "file", host::ErrorClass::kAccessDenied);
  EXPECT_FALSE(DelTree("C:\\t"));
}

TEST_F(DelTreeTest, ManyFilesInOneFolder_AreEachRemovedOnce) {
  constexpr std::size_t kFiles = 2000;
  for (std::size_t i = 0; i < kFiles; ++i) host.AddFile("C:\\t\\" + std::to_string(i), "");
  EXPECT_TRUE(DelTree("C:\\t"));
  EXPECT_EQ(host.calls.size(), kFiles + 1);  // and the folder
}

}  // namespace
}  // namespace discwright::util
