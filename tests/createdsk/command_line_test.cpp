// Tests of the real program, run in a temporary program folder.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/createdsk/program_folder.h"

namespace discwright::testing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

class CreateDskProgram : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!HasShell()) GTEST_SKIP() << "no shell here";
    std::filesystem::copy(u8"" CREATEDSK_PROGRAM, program_);
  }
  ShellEnd Run(const std::string& arguments) { return folder_.Run(ShellProgram(program_) + " " + arguments); }
  std::string ProgramName() const { return program_.filename().string(); }

  ProgramFolder folder_;
  std::filesystem::path program_ = folder_.path() / std::filesystem::path(u8"" CREATEDSK_PROGRAM).filename();
};

TEST_F(CreateDskProgram, InAFolderWithBlanksAndUmlauts_LeavesTheImageThere) {
  folder_.Add("readme.txt", "read me\r\n");
  folder_.AddDiskIni("[Files]\r\nREADME.TXT=readme.txt\r\n");
  const ShellEnd end = Run("-t 144 mine");
  EXPECT_EQ(end.exit_code, 0) << end.output;
  EXPECT_THAT(folder_.Names(), UnorderedElementsAre(ProgramName(), "files", "mine.img"));
  EXPECT_EQ(std::filesystem::file_size(folder_.Image()), 1'474'560U);
  EXPECT_EQ(folder_.OnDisk("README.TXT"), "read me\r\n");
}

TEST_F(CreateDskProgram, WithOptionsBehindTheProfile_MakesTheLargeDisk) {
  folder_.Add("drivers.txt", "choose");
  folder_.AddDiskIni("[Selection]\r\nDRIVERS.TXT=drivers.txt\r\n");
  const ShellEnd end = Run("mine -sel -t 288");
  EXPECT_EQ(end.exit_code, 0) << end.output;
  EXPECT_EQ(std::filesystem::file_size(folder_.Image()), 2'949'120U);
  EXPECT_EQ(folder_.OnDisk("DRIVERS.TXT"), "choose");
}

TEST_F(CreateDskProgram, WithWrongUsage_ShowsUsageAndReturnsTwo) {
  for (const std::string arguments : {"", "mine", "-t 144", "-t 360 mine", "-t 144 mine -what", "-t 144 mine yours"}) {
    const ShellEnd end = Run(arguments);
    EXPECT_EQ(end.exit_code, 2) << arguments;
    EXPECT_THAT(end.output, AllOf(HasSubstr("CreateDsk: "), HasSubstr("Usage: CreateDsk -t 144|288 PROFILE [-sel]")));
  }
  EXPECT_EQ(Run("2>" + ShellPath(folder_.path() / "errors")).output, "");
  EXPECT_THAT(ReadFile(folder_.path() / "errors"), HasSubstr("Usage: "));
}

TEST_F(CreateDskProgram, WithWrongProfile_ReportsItOnStandardErrorAndReturnsOne) {
  folder_.AddDiskIni("");
  const ShellEnd end = Run("-t 144 none >" + ShellPath(folder_.path() / "standard output"));
  EXPECT_EQ(end.exit_code, 1);
  EXPECT_THAT(end.output, AllOf(HasSubstr("CreateDsk: "), HasSubstr("take one of mine.")));
  EXPECT_EQ(ReadFile(folder_.path() / "standard output"), "");
}

}  // namespace
}  // namespace discwright::testing
