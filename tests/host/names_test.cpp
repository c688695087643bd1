// Tests of text that is compared without letter case.
#include <gtest/gtest.h>

#include "host/names.h"

namespace discwright::host {
namespace {

TEST(FoldCase, AsciiLetters_BecomeLowerCase) { EXPECT_EQ(FoldCase("WIN51IP.SP1_[@`{"), "win51ip.sp1_[@`{"); }

TEST(FoldCase, LettersOfWesternEurope_BecomeLowerCase) { EXPECT_EQ(FoldCase("ÄÖÜ ÉÑ Š"), "äöü éñ š"); }

TEST(FoldCase, CharactersWithoutCase_StayAsTheyAre) { EXPECT_EQ(FoldCase("€ 漢字 😀"), "€ 漢字 😀"); }

TEST(FoldCase, BytesThatAreNotUtf8_StayAsTheyAre) {
  EXPECT_EQ(FoldCase("A\xC4"
                     "B"),
            "a\xC4"
            "b");
  EXPECT_EQ(FoldCase("\xFF\xC0\x80\xED\xA0\x80\xE0\x80\x80"), "\xFF\xC0\x80\xED\xA0\x80\xE0\x80\x80");
  EXPECT_EQ(FoldCase("X\xF0\x9F\x98"), "x\xF0\x9F\x98");
  EXPECT_EQ(FoldCase("\xF4\x90\x80\x80"), "\xF4\x90\x80\x80");
}

TEST(FoldCase, Empty_StaysEmpty) { EXPECT_EQ(FoldCase(""), ""); }

}  // namespace
}  // namespace discwright::host
