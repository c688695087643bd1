// Tests of the drives and the file manager of Windows.
#include "host/desktop.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <array>

#include "host/files.h"

namespace discwright::host {
namespace {

std::string FolderOfWindows() {
  std::array<char, MAX_PATH> folder{};
  return {folder.data(), GetWindowsDirectoryA(folder.data(), MAX_PATH)};
}

TEST(DriveRoots, EveryDriveOfTheSystem_IsListedByItsLetter) {
  std::vector<std::string> expected;
  for (unsigned drive = 0; drive < 26; ++drive) {
    const char letter = static_cast<char>('A' + drive);
    if ((GetLogicalDrives() >> drive & 1u) != 0) expected.push_back(std::string(1, letter) + ":\\");
  }
  EXPECT_EQ(DriveRoots(), expected);
}

TEST(OpticalDrives, DrivesThatTheSystemTakesForOptical_AreListedInItsOrder) {
  std::vector<std::string> expected;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const std::string drive = std::string(1, letter) + ":";
    if (GetDriveTypeA((drive + "\\").c_str()) == DRIVE_CDROM) expected.push_back(drive);
  }
  EXPECT_EQ(OpticalDrives(), expected);
}

TEST(DriveRoots, EveryRoot_IsADrive) {
  for (const std::string& root : DriveRoots()) {
    EXPECT_NE(GetDriveTypeA(root.c_str()), static_cast<UINT>(DRIVE_NO_ROOT_DIR)) << root;
  }
}

TEST(HomeFolder, SystemWithADriveC_HasNone) { EXPECT_EQ(HomeFolder(), ""); }

TEST(FileManagerLine, EveryText_FollowsAsItStands) {
  const std::string program = FolderOfWindows() + "\\explorer.exe";
  EXPECT_TRUE(CheckReadable(program).ok());
  for (const std::string text : {"C:\\My files\\Über uns", "c:/a b\\", "\"D:\\a\" b", " ", ""}) {
    EXPECT_EQ(FileManagerLine(text), program + " " + text);
  }
}

}  // namespace
}  // namespace discwright::host
