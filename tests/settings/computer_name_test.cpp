// Tests of the names that Windows Setup refuses.
#include "settings/computer_name.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace discwright::settings {
namespace {

using ::testing::HasSubstr;

constexpr SetupFamily kFamilies[] = {SetupFamily::kWin9x, SetupFamily::kWin2K};

TEST(ComputerName, LettersDigitsAndHyphens_AreTaken) {
  for (const SetupFamily family : kFamilies) {
    for (const char* name : {"OLDPC", "old-pc-2", "A", "7UP", "ABCDEFGHIJKLMNO", "", "  ", " OLDPC "}) {
      EXPECT_EQ(WhyNoComputerName(name, family), "") << name;
      EXPECT_EQ(WhyNoWorkgroupName(name, family), "") << name;
    }
  }
}

TEST(ComputerName, LongerThan15Characters_IsRefused) {
  for (const SetupFamily family : kFamilies) {
    EXPECT_EQ(WhyNoComputerName("ABCDEFGHIJKLMNOP", family),
              "the computer name 'ABCDEFGHIJKLMNOP' is longer than 15 characters");
    EXPECT_EQ(WhyNoWorkgroupName("ABCDEFGHIJKLMNOP", family),
              "the workgroup name 'ABCDEFGHIJKLMNOP' is longer than 15 characters");
    EXPECT_EQ(WhyNoComputerName("ÄBCDEFGHIJKLMNÖ", family), "");  // 15 characters, 17 bytes
  }
}

TEST(ComputerName, Blank_IsRefusedButInAWorkgroupOfWindows2000) {
  EXPECT_EQ(WhyNoComputerName("OLD PC", SetupFamily::kWin2K), "the computer name 'OLD PC' contains a blank");
  EXPECT_EQ(WhyNoComputerName("OLD PC", SetupFamily::kWin9x), "the computer name 'OLD PC' contains a blank");
  EXPECT_EQ(WhyNoWorkgroupName("MY HOME", SetupFamily::kWin9x), "the workgroup name 'MY HOME' contains a blank");
  EXPECT_EQ(WhyNoWorkgroupName("MY HOME", SetupFamily::kWin2K), "");
}

TEST(ComputerName, SignsThatEverySystemRefuses_AreNamed) {
  for (const SetupFamily family : kFamilies) {
    for (const char sign : std::string("\"/\\[]:|<>+=;,?*")) {
      const std::string name = std::string("A") + sign + "B";
      EXPECT_THAT(WhyNoComputerName(name, family),
                  HasSubstr(std::string("contains a character that Windows Setup refuses: ") + sign));
      EXPECT_THAT(WhyNoWorkgroupName(name, family), HasSubstr("refuses: ")) << name;
    }
  }
}

TEST(ComputerName, SignsThatAreDocumentedAsTaken_AreTaken) {
  for (const SetupFamily family : kFamilies) {
    for (const char sign : std::string("!@#$%^&()-_'{}.~")) {
      EXPECT_EQ(WhyNoComputerName(std::string("A") + sign, family), "");
      EXPECT_EQ(WhyNoWorkgroupName(std::string("A") + sign, family), "");
    }
  }
}

TEST(ComputerName, ControlCharacters_AreRefused) {
  EXPECT_THAT(WhyNoComputerName("A\tB", SetupFamily::kWin2K), HasSubstr("cannot be printed"));
  EXPECT_THAT(WhyNoWorkgroupName("A\x7F", SetupFamily::kWin9x), HasSubstr("cannot be printed"));
}

TEST(ComputerName, Accent_IsRefusedByWindows98Only) {
  EXPECT_THAT(WhyNoComputerName("A`", SetupFamily::kWin9x), HasSubstr("refuses: `"));
  EXPECT_EQ(WhyNoComputerName("A`", SetupFamily::kWin2K), "");
}

TEST(ComputerName, DigitsOnly_AreRefusedByWindows2000Only) {
  EXPECT_THAT(WhyNoComputerName("12345", SetupFamily::kWin2K), HasSubstr("digits only"));
  EXPECT_EQ(WhyNoComputerName("12345", SetupFamily::kWin9x), "");
  EXPECT_EQ(WhyNoWorkgroupName("12345", SetupFamily::kWin2K), "");
}

TEST(ComputerName, PeriodAtTheStart_IsRefusedByWindows2000Only) {
  EXPECT_THAT(WhyNoComputerName(".PC", SetupFamily::kWin2K), HasSubstr("begins with a period"));
  EXPECT_EQ(WhyNoComputerName(".PC", SetupFamily::kWin9x), "");
}

TEST(ComputerName, AsteriskAlone_LetsWindows2000MakeUpAName) {
  EXPECT_EQ(WhyNoComputerName(" * ", SetupFamily::kWin2K), "");
  EXPECT_NE(WhyNoComputerName("*", SetupFamily::kWin9x), "");
  EXPECT_NE(WhyNoWorkgroupName("*", SetupFamily::kWin2K), "");
}

}  // namespace
}  // namespace discwright::settings
