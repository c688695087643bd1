// Tests of command lines for the two command interpreters.
#include "host/win32/command_interpreter.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>

#include "host/native_text.h"
#include "host/system.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

class CommandInterpreter : public ::testing::Test {
 protected:
  CommandInterpreter() { GetEnvironmentVariableA("COMSPEC", old_.data(), static_cast<DWORD>(old_.size())); }
  ~CommandInterpreter() override { SetEnvironmentVariableA("COMSPEC", old_.data()); }

  std::string Native(const std::string& name) const { return CodePageBytes(folder_.Core(name)).value_or(""); }

  testing::TempFolder folder_;
  std::array<char, MAX_PATH> old_{};
};

TEST_F(CommandInterpreter, ProgramsAndMissingFiles_StayAsTheyAre) {
  folder_.Write("tool.exe", "");
  folder_.Write("tool.exe.bat", "");
  EXPECT_EQ(RunnableLine(Native("tool.exe") + " x.bat"), Native("tool.exe") + " x.bat");
  EXPECT_EQ(RunnableLine(Native("tool") + " x.bat"), Native("tool") + " x.bat");
  EXPECT_EQ(RunnableLine(Native("missing.bat")), Native("missing.bat"));
  EXPECT_EQ(RunnableLine(""), "");
}

TEST_F(CommandInterpreter, BatchFile_IsGivenToCmdInTwoPairsOfQuotes) {
  SetEnvironmentVariableA("COMSPEC", "C:\\cmd.exe");
  folder_.Write("make cd.BAT", "");
  EXPECT_EQ(RunnableLine(Native("make cd.BAT") + " a \"b c\""),
            "\"C:\\cmd.exe\" /c \"\"" + Native("make cd.BAT") + "\" a \"b c\"\"");
}

TEST_F(CommandInterpreter, BatchFileWithPercentSigns_IsNamedByAVariable) {
  SetEnvironmentVariableA("COMSPEC", "C:\\cmd.exe");
  folder_.Write("%OS%.bat", "");
  EXPECT_EQ(RunnableLine(Native("%OS%.bat") + " a"), "\"C:\\cmd.exe\" /c \"\"%DISCWRIGHT_SCRIPT%\" a\"");
  std::array<char, MAX_PATH> path{};
  GetEnvironmentVariableA("DISCWRIGHT_SCRIPT", path.data(), static_cast<DWORD>(path.size()));
  EXPECT_EQ(path.data(), Native("%OS%.bat"));
}

TEST_F(CommandInterpreter, BatchFileInQuotes_IsTheSame) {
  folder_.Write("make cd.bat", "");
  EXPECT_EQ(RunnableLine("  \"" + Native("make cd.bat") + "\" a"), RunnableLine(Native("make cd.bat") + " a"));
}

TEST_F(CommandInterpreter, BatchFile_IsGivenToCommandComByItsShortName) {
  SetEnvironmentVariableA("COMSPEC", "C:\\COMMAND.COM");
  folder_.Write("make cd.bat", "");
  const std::string short_path = CodePageBytes(ShortPath(folder_.Core("make cd.bat"))).value_or("");
  if (short_path.find(' ') != short_path.npos) GTEST_SKIP() << "this volume keeps no short names";
  EXPECT_EQ(RunnableLine(Native("make cd.bat") + " a"), "C:\\COMMAND.COM /c " + short_path + " a");
}

}  // namespace
}  // namespace discwright::host
