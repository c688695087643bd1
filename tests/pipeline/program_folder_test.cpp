// Program folders that can and cannot be written to.
#include "pipeline/program_folder.h"

#include <gtest/gtest.h>

#include "tests/support/fake_host.h"

namespace discwright::pipeline {
namespace {

class WhyNotBuiltHereTest : public ::testing::Test {
 protected:
  discwright::testing::FakeHost host;
};

TEST_F(WhyNotBuiltHereTest, WritableFolder_HasNothingToTellAndNothingLeftInIt) {
  EXPECT_EQ(WhyNotBuiltHere(), "");
  EXPECT_TRUE(host.Files().empty());
}

TEST_F(WhyNotBuiltHereTest, FolderThatRefuses_IsNamedWithTheCauseAndAWayOut) {
  host.program_folder = "C:\\Program Files\\Disc";
  host.FailOn("OpenBinary", "Program Files\\Disc", host::ErrorClass::kAccessDenied, "Access is denied");
  EXPECT_EQ(WhyNotBuiltHere(),
            "The program folder C:\\Program Files\\Disc cannot be written to: Access is denied.\n"
            "Copy the program to a folder of your own and start it there.");
}

TEST_F(WhyNotBuiltHereTest, OtherFailures_AreLeftToTheStepsThatMeetThem) {
  host.FailOn("OpenBinary", "Discwright", host::ErrorClass::kDiskFull);
  EXPECT_EQ(WhyNotBuiltHere(), "");
}

}  // namespace
}  // namespace discwright::pipeline
