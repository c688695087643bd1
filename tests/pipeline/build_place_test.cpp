// Tests of program folders that can and cannot be written to.
#include "pipeline/build_place.h"

#include <gtest/gtest.h>

#include "tests/support/fake_host.h"

namespace discwright::pipeline {
namespace {

class WhyNotBuiltHereTest : public ::testing::Test {
 protected:
  discwright::testing::FakeHost host;
  std::shared_ptr<void> claim;
};

TEST_F(WhyNotBuiltHereTest, WritableFolder_IsAcceptedAndEmptyAfterTheBuild) {
  EXPECT_EQ(WhyNotBuiltHere(claim), "");
  EXPECT_NE(claim, nullptr);
  claim.reset();
  EXPECT_TRUE(host.Files().empty());
}

TEST_F(WhyNotBuiltHereTest, RunThatWasKilled_LeavesNothingForTheNextOne) {
  EXPECT_EQ(WhyNotBuiltHere(claim), "");
  EXPECT_TRUE(host.Exists("C:\\Discwright\\discwright.tmp"));
  for (const char* name : {"vexawin.img", "vexanet.img", ".discwright-12-3", "discwright.tmp"}) {
    host.AddFile(std::string("C:\\Discwright\\") + name, "of the killed run");
  }
  std::shared_ptr<void> next;
  EXPECT_EQ(WhyNotBuiltHere(next), "");
  claim.reset();
  next.reset();
  EXPECT_TRUE(host.Files().empty());
}

TEST_F(WhyNotBuiltHereTest, ImageOfARunThatEnded_Stays) {
  host.AddFile("C:\\Discwright\\vexawin.img", "image");
  EXPECT_EQ(WhyNotBuiltHere(claim), "");
  claim.reset();
  EXPECT_EQ(host.Files().size(), 1U);
}

TEST_F(WhyNotBuiltHereTest, FolderThatIsRefused_KeepsNoTestFile) {
  host.AddFile("C:\\Discwright\\vexacd\\photo.jpg", "mine");
  EXPECT_NE(WhyNotBuiltHere(claim), "");
  EXPECT_EQ(claim, nullptr);
  EXPECT_EQ(host.Files().size(), 1U);
}

TEST_F(WhyNotBuiltHereTest, FolderWhereAnotherBuilds_IsNamedWithAWayOut) {
  host.claimed_folder = "C:\\Discwright";
  EXPECT_EQ(WhyNotBuiltHere(claim),
            "Another build is under way in the program folder C:\\Discwright.\n"
            "Wait until it has ended, or copy the program to another folder and start it there.");
  EXPECT_EQ(claim, nullptr);
}

TEST_F(WhyNotBuiltHereTest, FolderThatRefuses_IsNamedWithTheCauseAndAWayOut) {
  host.program_folder = "C:\\Program Files\\Disc";
  host.FailOn("OpenBinary", "Program Files\\Disc", host::ErrorClass::kAccessDenied, "Access is denied");
  EXPECT_EQ(WhyNotBuiltHere(claim),
            "The program folder C:\\Program Files\\Disc cannot be written to: Access is denied.\n"
            "Copy the program to a folder of your own and start it there.");
}

TEST_F(WhyNotBuiltHereTest, FolderOfSomebodyElseInPlaceOfTheWorkspace_IsNamed) {
  host.AddFile("C:\\Discwright\\vexacd\\photo.jpg", "mine");
  EXPECT_NE(WhyNotBuiltHere(claim).find("C:\\Discwright\\vexacd is not known to be made by this program"),
            std::string::npos);
}

TEST_F(WhyNotBuiltHereTest, OtherFailures_AreNotReported) {
  host.FailOn("OpenBinary", "Discwright", host::ErrorClass::kDiskFull);
  EXPECT_EQ(WhyNotBuiltHere(claim), "");
}

}  // namespace
}  // namespace discwright::pipeline
