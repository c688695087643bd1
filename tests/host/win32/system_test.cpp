// Facts about a Windows machine.
#include "host/system.h"

#include <gmock/gmock.h>
#include <windows.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::TempFolder;

TEST(ProgramFolder, HoldsTheRunningProgram) {
  EXPECT_FALSE(ProgramFolder().ends_with('\\'));
  EXPECT_TRUE(CanRead(ProgramFolder() + "\\host_test.exe"));
}

TEST(CurrentFolder, IsAbsolute) {
  EXPECT_EQ(CurrentFolder(), PathFromNative(testing::TextOf(std::filesystem::current_path())));
  EXPECT_EQ(CurrentFolder().substr(1, 2), ":\\");
}

TEST(PlatformId, IsTheFamilyOfTheVersionNumber) {
  // The highest bit is set on Windows 95, 98 and Me.
  EXPECT_EQ(PlatformId(), (GetVersion() & 0x80000000u) != 0 ? 1 : 2);
}

TEST(OpticalDrives, DrivesThatTheSystemTakesForOptical_AreListedInItsOrder) {
  std::vector<std::string> expected;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const std::string drive = std::string(1, letter) + ":";
    if (GetDriveTypeA((drive + "\\").c_str()) == DRIVE_CDROM) expected.push_back(drive);
  }
  EXPECT_EQ(OpticalDrives(), expected);
}

TEST(ShortPath, LongName_HasAFormOfEightAndThreeThatLeadsToTheSameFile) {
  const TempFolder folder;
  folder.Write("A long file name.text", "content");
  const std::string shortened = ShortPath(folder.Core("A long file name.text"));
  EXPECT_EQ(shortened.find(' '), shortened.npos);
  std::string content;
  EXPECT_TRUE(ReadWholeFile(shortened, content).ok());
  EXPECT_EQ(content, "content");
}

TEST(ShortPath, MissingPathOrNameThatTheCodePageLacks_HasNone) {
  const TempFolder folder;
  EXPECT_EQ(ShortPath(folder.Core("a missing file")), "");
  EXPECT_EQ(ShortPath(folder.Core("漢字")), "");
  EXPECT_EQ(ShortPath(""), "");
}

TEST(NameOnDisc, EveryName_StaysAsItIs) {
  for (const char* name : {"win51ip.sp1", "I386", "Readme.txt", "übung", ""}) EXPECT_EQ(NameOnDisc(name), name);
}

TEST(ErrorMode, DriveWithoutADisc_DoesNotAskTheUser) {
  const UINT mode = SetErrorMode(SEM_FAILCRITICALERRORS);
  SetErrorMode(mode);
  EXPECT_NE(mode & SEM_FAILCRITICALERRORS, 0u);
}

}  // namespace
}  // namespace discwright::host
