// Tests of facts about a Windows machine.
#include "host/system.h"
#include "host/names.h"

#include <gmock/gmock.h>
#include <windows.h>

#include "host/files.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

TEST(ProgramFolder, HoldsTheRunningProgram) {
  EXPECT_FALSE(ProgramFolder().ends_with('\\'));
  EXPECT_TRUE(CheckReadable(ProgramFolder() + "\\host_test.exe").ok());
}

TEST(CurrentFolder, IsAbsolute) {
  EXPECT_EQ(CurrentFolder(), PathFromNative(testing::TextOf(std::filesystem::current_path())));
  EXPECT_EQ(CurrentFolder().substr(1, 2), ":\\");
}

TEST(PlatformId, IsTheFamilyOfTheVersionNumber) {
  // The highest bit is set on Windows 95, 98 and Me.
  EXPECT_EQ(PlatformId(), (GetVersion() & 0x80000000u) != 0 ? 1 : 2);
}

TEST(ErrorMode, DriveWithoutADisc_DoesNotAskTheUser) {
  const UINT mode = SetErrorMode(SEM_FAILCRITICALERRORS);
  SetErrorMode(mode);
  EXPECT_NE(mode & SEM_FAILCRITICALERRORS, 0u);
}

}  // namespace
}  // namespace discwright::host
