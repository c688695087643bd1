// Tests of the ISO destination test: what it accepts, and that it leaves no trace.
#include "wizard/iso_destination.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/fake_host.h"

namespace discwright::wizard {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class IsoDestinationTest : public ::testing::Test {
 protected:
  IsoDestinationTest() { host.AddFolder("E:\\images"); }
  testing::FakeHost host;
};

TEST_F(IsoDestinationTest, ExistingFile_IsCorrectAndUntouched) {
  host.AddFile("E:\\images\\cd.iso", "an image");
  EXPECT_TRUE(IsoDestinationIsCorrect("E:\\images\\cd.iso"));
  EXPECT_EQ(host.Content("E:\\images\\cd.iso"), "an image");
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, ExistingFileThatCannotBeRead_IsNeitherEmptiedNorRemoved) {
  host.AddFile("E:\\images\\cd.iso", "an image");
  host.FailOn("CanRead", "cd.iso", host::ErrorClass::kAccessDenied);
  EXPECT_TRUE(IsoDestinationIsCorrect("E:\\images\\cd.iso"));
  EXPECT_EQ(host.Content("E:\\images\\cd.iso"), "an image");
}

TEST_F(IsoDestinationTest, NewFileInAnExistingFolder_IsTriedOutWithoutATrace) {
  EXPECT_TRUE(IsoDestinationIsCorrect("E:\\images\\new.iso"));
  EXPECT_THAT(host.calls, ElementsAre("OpenBinary E:\\images\\new.iso", "RemoveFile E:\\images\\new.iso"));
  EXPECT_FALSE(host.Exists("E:\\images\\new.iso"));
}

TEST_F(IsoDestinationTest, NewFileInARootFolder_IsCorrect) { EXPECT_TRUE(IsoDestinationIsCorrect("E:\\new.iso")); }

TEST_F(IsoDestinationTest, BareFileName_IsTriedInTheCurrentFolder) {
  EXPECT_TRUE(IsoDestinationIsCorrect("new.iso"));
  EXPECT_FALSE(host.Exists("C:\\Current\\new.iso"));
}

TEST_F(IsoDestinationTest, MissingFolder_IsWrong) {
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\nowhere\\new.iso"));
  EXPECT_FALSE(host.Exists("E:\\nowhere"));
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, EmptyText_IsWrong) { EXPECT_FALSE(IsoDestinationIsCorrect("")); }

TEST_F(IsoDestinationTest, Folder_IsWrong) {
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\images"));
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\images\\"));
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\new\\"));
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, QuotesAndBlanksAroundTheName_AreNoPartOfIt) {
  host.AddFile("E:\\images\\cd.iso", "an image");
  EXPECT_TRUE(IsoDestinationIsCorrect("\"E:\\images\\cd.iso\""));
  EXPECT_TRUE(IsoDestinationIsCorrect(" E:\\images\\cd.iso "));
  EXPECT_TRUE(IsoDestinationIsCorrect("E:\\images\\cd.iso\\"));
  EXPECT_THAT(host.calls, IsEmpty());
  EXPECT_TRUE(IsoDestinationIsCorrect(" \"E:\\images\\new.iso\""));
  EXPECT_THAT(host.calls, ElementsAre("OpenBinary E:\\images\\new.iso", "RemoveFile E:\\images\\new.iso"));
}

TEST_F(IsoDestinationTest, QuotedFolderDeviceOrPipe_IsWrongAndNeverOpened) {
  host.AddSpecial("E:\\images\\pipe");
  for (const char* text : {"\"E:\\images\"", "\"E:\\images\\\"", "\"E:\\images\\pipe\"", "\"\"", "  "}) {
    EXPECT_FALSE(IsoDestinationIsCorrect(text)) << text;
  }
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, Wildcard_IsCorrectWhereItMatches) {
  host.AddFile("E:\\images\\cd.iso", "an image");
  EXPECT_TRUE(IsoDestinationIsCorrect("\"E:\\images\\c*.iso\""));
  EXPECT_THAT(host.calls, IsEmpty());
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\nowhere\\c*.iso"));
}

TEST_F(IsoDestinationTest, LinkToAFolder_IsWrong) {
  host.AddLink("E:\\link", "E:\\images");
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\link"));
}

TEST_F(IsoDestinationTest, DevicePipeOrSocket_IsWrongAndNeverOpened) {
  host.AddSpecial("E:\\images\\pipe");
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\images\\pipe"));
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(IsoDestinationTest, LinkToNothing_IsWrongAndItsTargetIsNotMade) {
  host.AddLink("E:\\images\\cd.iso", "E:\\images\\target.iso");
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\images\\cd.iso"));
  EXPECT_TRUE(host.Exists("E:\\images\\cd.iso"));
  EXPECT_FALSE(host.Exists("E:\\images\\target.iso"));
}

TEST_F(IsoDestinationTest, FileThatCannotBeCreated_IsWrong) {
  host.FailOn("OpenBinary", "new.iso", host::ErrorClass::kAccessDenied);
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\images\\new.iso"));
}

TEST_F(IsoDestinationTest, ProbeThatCannotBeWritten_IsWrongAndRemoved) {
  host.FailOn("WriteAt", "new.iso", host::ErrorClass::kDiskFull);
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\images\\new.iso"));
  EXPECT_FALSE(host.Exists("E:\\images\\new.iso"));
}

TEST_F(IsoDestinationTest, ProbeThatCannotBeRemoved_IsWrongAndHoldsTheTestLine) {
  host.FailOn("RemoveFile", "new.iso", host::ErrorClass::kAccessDenied);
  EXPECT_FALSE(IsoDestinationIsCorrect("E:\\images\\new.iso"));
  EXPECT_EQ(host.Content("E:\\images\\new.iso"), "Test\r\n");
}

}  // namespace
}  // namespace discwright::wizard
