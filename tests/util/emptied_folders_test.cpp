// Tests of the folders that a build empties: whose they are, their marks, and paths that lead into them.
#include "util/emptied_folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/fake_host.h"

namespace discwright::util {
namespace {

using ::testing::HasSubstr;

class EmptiedFoldersTest : public ::testing::Test {
 protected:
  testing::FakeHost host;
  Notes notes;
};

TEST_F(EmptiedFoldersTest, MissingAndEmptyFolders_MayBeEmptied) {
  EXPECT_EQ(WhyNotEmptied(), "");
  host.AddFolder("C:\\Discwright\\vexacd");
  host.AddFolder("C:\\Discwright\\advtemp");
  EXPECT_EQ(WhyNotEmptied(), "");
}

TEST_F(EmptiedFoldersTest, FolderOfSomebodyElse_MayNotAndTheUserIsToldWhatToDo) {
  host.AddFile("C:\\Discwright\\vexacd\\photo.jpg", "mine");
  EXPECT_EQ(WhyNotEmptied(),
            "The folder C:\\Discwright\\vexacd is not known to be made by this program in this place, and a build "
            "would delete everything in it.\nMove it to another place or delete it, and start the build again.");
  host.nodes.erase(testing::FakeHost::Key("C:\\Discwright\\vexacd\\photo.jpg"));
  host.AddFile("C:\\Discwright\\advtemp\\photo.jpg", "mine");
  EXPECT_THAT(WhyNotEmptied(), HasSubstr("The folder C:\\Discwright\\advtemp is not known"));
}

TEST_F(EmptiedFoldersTest, FolderThatWasMadeWithItsMark_MayBeEmptiedUntilAnotherTakesItsPlace) {
  for (const Item item : {Item::kWorkspace, Item::kStaging}) {
    EXPECT_TRUE(MakeEmptiedFolder(item).ok());
    host.AddFile(PathOf(item) + "\\file", "of a build");
    EXPECT_EQ(WhyNotEmptied(), "");
  }
  host.nodes.erase(testing::FakeHost::Key("C:\\Discwright\\vexacd\\file"));
  host.nodes.erase(testing::FakeHost::Key("C:\\Discwright\\vexacd"));
  host.AddFile("C:\\Discwright\\vexacd\\photo.jpg", "mine");
  EXPECT_THAT(WhyNotEmptied(), HasSubstr("is not known to be made by this program"));
}

TEST_F(EmptiedFoldersTest, WorkspaceWithTheMarkOfTheStagingFolder_MayNotBeEmptied) {
  EXPECT_TRUE(MakeEmptiedFolder(Item::kStaging).ok());
  host.AddFile("C:\\Discwright\\vexacd\\photo.jpg", "mine");
  EXPECT_NE(WhyNotEmptied(), "");
}

TEST_F(EmptiedFoldersTest, MarkedFolderThatCannotBeListed_IsStillOurs) {
  host.AddLeftFile("C:\\Discwright\\vexacd\\file", "of a build");
  host.FailOn("ListFolder", "vexacd", host::ErrorClass::kAccessDenied);
  EXPECT_EQ(WhyNotEmptied(), "");
}

TEST_F(EmptiedFoldersTest, UnmarkedFolderThatCannotBeListed_MayNotBeEmptied) {
  host.AddFolder("C:\\Discwright\\vexacd");
  host.FailOn("ListFolder", "vexacd", host::ErrorClass::kAccessDenied);
  EXPECT_NE(WhyNotEmptied(), "");
}

TEST_F(EmptiedFoldersTest, FolderThatCannotBeExamined_IsNotTakenForMissing) {
  host.FailOn("FactsOfFolder", "vexacd", host::ErrorClass::kNotReady, "Input/output error");
  EXPECT_EQ(WhyNotEmptied(),
            "The folder C:\\Discwright\\vexacd cannot be examined: Input/output error.\nRepair it or delete it, and "
            "start the build again.");
}

TEST_F(EmptiedFoldersTest, MountPointsAtOrInTheFolder_AreNamed) {
  host.AddLeftFile("C:\\Discwright\\vexacd\\deep\\users\\photo.jpg", "mine");
  host.mount_points = {testing::FakeHost::Key("C:\\Discwright\\vexacd\\deep\\users")};
  EXPECT_EQ(WhyNotEmptied(),
            "The folder C:\\Discwright\\vexacd\\deep\\users is a mount point, and a build would delete everything in "
            "it.\nUnmount it, and start the build again.");
  host.mount_points = {testing::FakeHost::Key("C:\\Discwright\\vexacd")};
  EXPECT_THAT(WhyNotEmptied(), HasSubstr("The folder C:\\Discwright\\vexacd is a mount point"));
}

TEST_F(EmptiedFoldersTest, LinkInPlaceOfTheFolder_IsDeletedWithoutItsTarget) {
  host.AddFile("D:\\photos\\photo.jpg", "mine");
  host.AddLink("C:\\Discwright\\vexacd", "D:\\photos");
  EXPECT_EQ(WhyNotEmptied(), "");
  DeleteEmptiedFolder(Item::kWorkspace, notes);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd"));
  EXPECT_EQ(host.Content("D:\\photos\\photo.jpg"), "mine");
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(EmptiedFoldersTest, LinkThatIsStillThere_IsNeverMarkedAsOurs) {
  host.AddFile("D:\\photos\\photo.jpg", "mine");
  host.AddLink("C:\\Discwright\\vexacd", "D:\\photos");
  EXPECT_FALSE(MakeEmptiedFolder(Item::kWorkspace).ok());
  EXPECT_FALSE(host.Exists("C:\\Discwright\\vexacd.own"));
}

TEST_F(EmptiedFoldersTest, DeletedFolder_TakesItsMarkWithIt) {
  EXPECT_TRUE(MakeEmptiedFolder(Item::kStaging).ok());
  EXPECT_TRUE(host.Exists("C:\\Discwright\\advtemp.own"));
  DeleteEmptiedFolder(Item::kStaging, notes);
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp"));
  EXPECT_FALSE(host.Exists("C:\\Discwright\\advtemp.own"));
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(EmptiedFoldersTest, FolderThatCannotBeDeleted_KeepsItsMarkAndIsNoted) {
  host.AddLeftFile("C:\\Discwright\\vexacd\\locked", "old");
  host.FailOn("RemoveFile", "locked", host::ErrorClass::kAccessDenied, "in use");
  DeleteEmptiedFolder(Item::kWorkspace, notes);
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\Discwright\\vexacd\\locked");
  EXPECT_EQ(WhyNotEmptied(), "");
}

TEST_F(EmptiedFoldersTest, PathsIntoTheFolders_AreFoundThroughLinks) {
  host.AddFolder("C:\\Discwright\\vexacd\\vexa\\mine");
  host.AddLink("D:\\link", "C:\\Discwright\\vexacd\\vexa");
  EXPECT_EQ(EmptiedFolderAround("D:\\link"), "C:\\Discwright\\vexacd");
  EXPECT_EQ(EmptiedFolderAround("D:\\link\\mine"), "C:\\Discwright\\vexacd");
  EXPECT_EQ(EmptiedFolderAround("D:/link/new/deep.iso"), "C:\\Discwright\\vexacd");
  EXPECT_EQ(EmptiedFolderAround("C:\\Discwright\\ADVTEMP\\new.iso"), "C:\\Discwright\\advtemp");
}

TEST_F(EmptiedFoldersTest, PathsBesideOrAboveTheFolders_AreNotInThem) {
  host.AddFolder("C:\\Discwright\\vexacd");
  host.AddLink("C:\\Discwright\\vexacd\\link", "D:\\photos");
  for (const char* path :
       {"C:\\Discwright", "C:\\", "C:\\Discwright\\vexacd of mine", "D:\\vexacd", "C:\\Discwright\\vexacd\\..\\mine"}) {
    EXPECT_EQ(EmptiedFolderAround(path), "") << path;
  }
}

}  // namespace
}  // namespace discwright::util
