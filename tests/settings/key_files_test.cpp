// Tests of copying installation details to the build copy.
#include "settings/key_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/ini_file.h"
#include "tests/support/fake_host.h"

namespace discwright::settings {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string kWorking = "C:\\Discwright\\keyfile2.txt";
const std::string kBuild = "C:\\Discwright\\keyfile.txt";

const std::string kWin9xKeys =
    "[Win9xInfo]\r\nOwnerName=Owner 9\r\nOrganization=Org 9\r\nOptimizedFor=Microsoft Windows 98\r\n"
    "ComputerName=PC9\r\nWorkgroup=GROUP9\r\n";
const std::string kWin2KKeys =
    "[Win2KInfo]\r\nTemplateFile=c:\\u.txt\r\nOwnerName=Owner 2\r\nOrganization=Org 2\r\nComputerName=PC2\r\n"
    "Workgroup=GROUP2\r\nJoinDomain=True\r\n";
const std::string kWin9xCopied =
    "[Win9xInfo]\r\nOwnerName=Owner 9\r\nOrganization=Org 9\r\nComputerName=PC9\r\nWorkgroup=GROUP9\r\n";

class FillKeyFileTest : public ::testing::Test {
 protected:
  testing::FakeHost host;
  util::Notes notes;
};

TEST(HoldsAnswersTest, SectionThatADialogHasWritten_HoldsAnswersEvenIfEmpty) {
  testing::FakeHost host;
  EXPECT_FALSE(HoldsAnswers(kWin9xSection));
  host.AddFile(kWorking, "[Win9xInfo]\r\nOwnerName=\r\n");
  EXPECT_TRUE(HoldsAnswers(kWin9xSection));
  EXPECT_FALSE(HoldsAnswers(kWin2KSection));
}

TEST_F(FillKeyFileTest, NoDialogEverConfirmed_CreatesNoBuildCopy) {
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true, .AddInfo_toWin2KSetup = true});
  EXPECT_TRUE(host.Files().empty());
}

TEST_F(FillKeyFileTest, BothSections_AreCopiedInOrderWithoutOptimizedFor) {
  host.AddFile(kWorking, kWin9xKeys + kWin2KKeys);
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true, .AddInfo_toWin2KSetup = true});
  EXPECT_EQ(host.Content(kBuild), kWin9xCopied + kWin2KKeys);
}

TEST_F(FillKeyFileTest, OneSectionChosen_CopiesThatOneOnly) {
  host.AddFile(kWorking, kWin9xKeys + kWin2KKeys);
  FillKeyFile(notes, {.AddInfo_toWin2KSetup = true});
  EXPECT_EQ(host.Content(kBuild), kWin2KKeys);
  host::RemoveFile(kBuild);
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true});
  EXPECT_EQ(host.Content(kBuild), kWin9xCopied);
}

TEST_F(FillKeyFileTest, NoSectionChosen_CreatesNoBuildCopy) {
  host.AddFile(kWorking, kWin9xKeys);
  FillKeyFile(notes, {});
  EXPECT_FALSE(host.Exists(kBuild));
}

TEST_F(FillKeyFileTest, OptimizedForOfAnExistingBuildCopy_StaysAsItWas) {
  host.AddFile(kWorking, kWin9xKeys);
  host.AddFile(kBuild, "[Win9xInfo]\r\nOptimizedFor=Microsoft Windows Millennium\r\n[Mine]\r\nx=1\r\n");
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true});
  const INIFile build(kBuild);
  EXPECT_EQ(build.GetINIKey("Win9xInfo", "OptimizedFor"), "Microsoft Windows Millennium");
  EXPECT_EQ(build.GetINIKey("Win9xInfo", "OwnerName"), "Owner 9");
  EXPECT_EQ(build.GetINIKey("Mine", "x"), "1");
}

TEST_F(FillKeyFileTest, ValuesThatStandInQuotes_KeepThem) {
  host.AddFile(kWorking, "[Win9xInfo]\r\nOwnerName=\"\"Joe\"\"\r\nOrganization=\"'x'\"\r\nWorkgroup=a;\"b\"=c\r\n");
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true});
  const INIFile build(kBuild);
  EXPECT_EQ(build.GetINIKey("Win9xInfo", "OwnerName"), "\"Joe\"");
  EXPECT_EQ(build.GetINIKey("Win9xInfo", "Organization"), "'x'");
  EXPECT_EQ(build.GetINIKey("Win9xInfo", "Workgroup"), "a;\"b\"=c");
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(FillKeyFileTest, ValueThatIsInQuotesOnceItIsCut_KeepsThem) {
  const std::string start = "\"" + std::string(97, 'x') + "\"";
  host.AddFile(kWorking, "[Win9xInfo]\r\nOwnerName=" + start + " and more\r\n");
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true});
  EXPECT_EQ(INIFile(kBuild).GetINIKey("Win9xInfo", "OwnerName"), start);
}

TEST_F(FillKeyFileTest, FailedWrite_IsNotedForEachKey) {
  host.AddFile(kWorking, kWin9xKeys);
  host.FailOn("WriteWholeFile", "keyfile.txt", host::ErrorClass::kDiskFull, "No space left on device", 1);
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true});
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, kBuild);
  EXPECT_EQ(notes.all()[0].cause, "OwnerName could not be written: No space left on device");
  EXPECT_EQ(INIFile(kBuild).GetINIKey("Win9xInfo", "Workgroup"), "GROUP9");
}

TEST_F(FillKeyFileTest, WorkingStoreThatCannotBeRead_IsNotedAndLeavesTheBuildCopy) {
  host.AddFile(kWorking, kWin9xKeys);
  host.AddFile(kBuild, kWin9xCopied);
  host.FailOn("ReadWholeFile", "keyfile2.txt", host::ErrorClass::kNotReady, "the disk is gone");
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true});
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, kWorking);
  EXPECT_EQ(notes.all()[0].cause, "could not be read: the disk is gone");
  EXPECT_EQ(host.Content(kBuild), kWin9xCopied);
}

TEST_F(FillKeyFileTest, AnyCallThatFailsOnce_IsNotedAndEmptiesNoValue) {
  host.AddFile(kWorking, kWin9xKeys);
  const auto nodes = host.nodes;
  for (int number = 0;; ++number) {
    host.nodes = nodes;
    host.AddFile(kBuild, kWin9xCopied);
    notes = {};
    host.FailCall(number);
    FillKeyFile(notes, {.AddInfo_toWin9xSetup = true});
    if (host.FailedCall().empty()) break;
    EXPECT_THAT(notes.all(), SizeIs(1)) << host.FailedCall();
    EXPECT_EQ(host.Content(kBuild), kWin9xCopied) << host.FailedCall();
  }
}

TEST_F(FillKeyFileTest, ValueLongerThan99Characters_ArrivesCutAndIsNoted) {
  host.AddFile(kWorking, "[Win9xInfo]\r\nOwnerName=" + std::string(120, 'x') + "\r\n");
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true});
  EXPECT_NE(host.Content(kBuild).find("OwnerName=" + std::string(99, 'x') + "\r\n"), std::string::npos);
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].place, kWorking);
  EXPECT_THAT(notes.all()[0].cause, HasSubstr("OwnerName"));
}

// FillSetupDataFromKeyFileToUnattend notes a template that it does not find.
TEST_F(FillKeyFileTest, TemplateWithALongPath_ArrivesCutAndIsNotNoted) {
  host.AddFile(kWorking, "[Win2KInfo]\r\nTemplateFile=" + std::string(120, 'x') + "\r\n");
  FillKeyFile(notes, {.AddInfo_toWin2KSetup = true});
  EXPECT_NE(host.Content(kBuild).find("TemplateFile=" + std::string(99, 'x') + "\r\n"), std::string::npos);
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(FillKeyFileTest, MissingKeys_EmptyThoseOfTheBuildCopy) {
  host.AddFile(kWorking, "");
  host.AddFile(kBuild, kWin9xCopied);
  FillKeyFile(notes, {.AddInfo_toWin9xSetup = true});
  EXPECT_EQ(host.Content(kBuild), "[Win9xInfo]\r\nOwnerName=\r\nOrganization=\r\nComputerName=\r\nWorkgroup=\r\n");
}

}  // namespace
}  // namespace discwright::settings
