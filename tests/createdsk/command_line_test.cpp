// The program CreateDsk itself, run in a folder of its own.
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
  CreateDskProgram() { std::filesystem::copy(CREATEDSK_PROGRAM, program_); }
  ProgramFolder::End Run(const std::string& arguments) { return folder_.Run(Quote(program_) + " " + arguments); }

  ProgramFolder folder_;
  std::filesystem::path program_ = folder_.path() / "CreateDsk";
};

TEST_F(CreateDskProgram, InAFolderWithBlanksAndUmlauts_LeavesTheImageThere) {
  folder_.Add("readme.txt", "read me\r\n");
  folder_.AddDiskIni("[Files]\r\nREADME.TXT=readme.txt\r\n");
  const ProgramFolder::End end = Run("-t 144 mine");
  EXPECT_EQ(end.exit_code, 0) << end.output;
  EXPECT_THAT(folder_.Names(), UnorderedElementsAre("CreateDsk", "files", "mine.img"));
  EXPECT_EQ(std::filesystem::file_size(folder_.Image()), 1'474'560U);
  EXPECT_EQ(folder_.OnDisk("README.TXT"), "read me\r\n");
}

TEST_F(CreateDskProgram, WithOptionsBehindTheProfile_MakesTheLargeDisk) {
  folder_.Add("drivers.txt", "choose");
  folder_.AddDiskIni("[Selection]\r\nDRIVERS.TXT=drivers.txt\r\n");
  const ProgramFolder::End end = Run("mine -sel -t 288");
  EXPECT_EQ(end.exit_code, 0) << end.output;
  EXPECT_EQ(std::filesystem::file_size(folder_.Image()), 2'949'120U);
  EXPECT_EQ(folder_.OnDisk("DRIVERS.TXT"), "choose");
}

TEST_F(CreateDskProgram, WithWrongUsage_ShowsUsageAndReturnsTwo) {
  for (const std::string arguments : {"", "mine", "-t 144", "-t 360 mine", "-t 144 mine -what", "-t 144 mine yours"}) {
    const ProgramFolder::End end = Run(arguments);
    EXPECT_EQ(end.exit_code, 2) << arguments;
    EXPECT_THAT(end.output, AllOf(HasSubstr("CreateDsk: "), HasSubstr("Usage: CreateDsk -t 144|288 PROFILE [-sel]")));
  }
  EXPECT_EQ(Run("2>" + Quote(folder_.path() / "errors")).output, "");
  EXPECT_THAT(ReadFile(folder_.path() / "errors"), HasSubstr("Usage: "));
}

TEST_F(CreateDskProgram, WithWrongProfile_SaysSoOnStandardErrorAndReturnsOne) {
  folder_.AddDiskIni("");
  const ProgramFolder::End end = Run("-t 144 none >" + Quote(folder_.path() / "standard output"));
  EXPECT_EQ(end.exit_code, 1);
  EXPECT_THAT(end.output, AllOf(HasSubstr("CreateDsk: "), HasSubstr("take one of mine.")));
  EXPECT_EQ(ReadFile(folder_.path() / "standard output"), "");
}

TEST_F(CreateDskProgram, WhenTheImageCannotBeWrittenWhole_LeavesTheOlderOne) {
  folder_.AddDiskIni("");
  WriteFile(folder_.Image(), "older");
  // A limit of the file size stands for a disk without room.
  const ProgramFolder::End end = folder_.Run("trap '' XFSZ; ulimit -f 100; " + Quote(program_) + " -t 144 mine");
  EXPECT_EQ(end.exit_code, 1) << end.output;
  EXPECT_THAT(end.output, HasSubstr("mine.img cannot be written"));
  EXPECT_EQ(ReadFile(folder_.Image()), "older");
  EXPECT_THAT(folder_.Names(), UnorderedElementsAre("CreateDsk", "files", "mine.img"));
}

}  // namespace
}  // namespace discwright::testing
