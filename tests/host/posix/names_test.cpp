// Tests of letter case in the alphabets of all languages.
#include <gtest/gtest.h>

#include <cstdint>

#include "base/utf8.h"
#include "host/names.h"

namespace discwright::host {
namespace {

TEST(FoldCase, LettersBeyondAscii_BecomeLowerCaseInEveryLocale) { EXPECT_EQ(FoldCase("ÄÖÜ ÉÑ ЖЯ ΑΩ"), "äöü éñ жя αω"); }

TEST(FoldCase, LettersOfFourBytes_BecomeLowerCase) {
  EXPECT_EQ(FoldCase("\xF0\x90\x90\x80"), "\xF0\x90\x90\xA8");  // U+10400 and U+10428
}

TEST(NameOnDisc, NameWithoutAnUpperCaseLetter_BecomesUpperCase) {
  EXPECT_EQ(NameOnDisc("win51ip.sp1"), "WIN51IP.SP1");
  EXPECT_EQ(NameOnDisc("übung é жя.txt"), "ÜBUNG É ЖЯ.TXT");
  EXPECT_EQ(NameOnDisc("\xF0\x90\x90\xA8"), "\xF0\x90\x90\x80");  // U+10428 and U+10400
}

TEST(NameOnDisc, NameWithAnUpperCaseLetter_StaysAsItIs) {
  for (const char* name : {"Readme.txt", "I386", "setup.eXe", "übunG", "Übung", "жЯ"}) {
    EXPECT_EQ(NameOnDisc(name), name);
  }
}

TEST(NameOnDisc, LetterWithoutATwin_StaysAsItIs) {
  EXPECT_EQ(NameOnDisc("straße"), "STRAßE");
  // A dotless i, a long s, a micro sign, a final sigma: each shares its upper-case form with another letter.
  EXPECT_EQ(NameOnDisc("aıſµς"), "Aıſµς");
}

TEST(NameOnDisc, EveryName_IsFoundByTheNameOfItsCopy) {
  for (char32_t code_point = 0x20; code_point < 0x20000; ++code_point) {
    if (code_point >= 0xD800 && code_point < 0xE000) continue;
    std::string name;
    base::AppendUtf8(name, code_point);
    ASSERT_EQ(FoldCase(NameOnDisc(name)), FoldCase(name)) << static_cast<std::uint32_t>(code_point);
  }
}

TEST(NameOnDisc, DigitsBytesThatAreNotUtf8AndNothing_StayAsTheyAre) {
  EXPECT_EQ(NameOnDisc("51_漢字-1"), "51_漢字-1");
  EXPECT_EQ(NameOnDisc("a\xC4z"), "A\xC4Z");
  EXPECT_EQ(NameOnDisc(""), "");
}

TEST(ShortPath, ExistingPath_HasNone) { EXPECT_EQ(ShortPath("\\"), ""); }

}  // namespace
}  // namespace discwright::host
