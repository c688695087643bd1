// Tests of the suggestions for misspelled names.
#include "util/spelling.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/support/fake_host.h"

namespace discwright::util {
namespace {

constexpr std::array<std::string_view, 6> kNames = {"ChkGet_Win2k", "ChkGet_Win9x", "ChkGet_Advtools",
                                                    "ChkERDC",      "TxtISOLoc",    "Win"};

class Spelling : public ::testing::Test {
 protected:
  testing::FakeHost host;

  static std::string Suggested(std::string_view word) { return std::string(Closest(word, kNames).value_or("nothing")); }
};

TEST_F(Spelling, NameItself_IsFoundInAnyLetterCase) {
  EXPECT_EQ(Suggested("ChkERDC"), "ChkERDC");
  EXPECT_EQ(Suggested("CHKGET_WIN9X"), "ChkGet_Win9x");
}

TEST_F(Spelling, WrongMissingAddedOrSwappedCharacters_AreRecognised) {
  EXPECT_EQ(Suggested("ChkGet_WinXP"), "ChkGet_Win2k");
  EXPECT_EQ(Suggested("ChkGetWin9x"), "ChkGet_Win9x");
  EXPECT_EQ(Suggested("ChkGet_AdvTool"), "ChkGet_Advtools");
  EXPECT_EQ(Suggested("TxtISO_Loc"), "TxtISOLoc");
  EXPECT_EQ(Suggested("hCkEDRC"), "ChkERDC");
}

TEST_F(Spelling, ThirdOfALongWord_MayBeWrongAndNotMore) {
  EXPECT_EQ(Suggested("XXXXXet_Advtools"), "ChkGet_Advtools");  // 5 of 16
  EXPECT_EQ(Suggested("XXXXXXt_Advtools"), "nothing");
}

TEST_F(Spelling, ShortWords_MayHaveFewerMistakes) {
  EXPECT_EQ(Suggested("Wim"), "Win");
  EXPECT_EQ(Suggested("Wx"), "nothing");
  constexpr std::array<std::string_view, 1> kTwoLetters = {"ab"};
  EXPECT_EQ(Closest("b", kTwoLetters), "ab");
  EXPECT_EQ(Closest("x", kTwoLetters), std::nullopt);
  EXPECT_EQ(Suggested("XhkXRDC"), "ChkERDC");
  EXPECT_EQ(Suggested("XhXXRDC"), "nothing");
}

TEST_F(Spelling, Nonsense_SuggestsNothing) {
  for (const char* word : {"", "x", "rubbish", "Password", "ChkFooBarBaz", "aVeryLongWordThatIsNoNameOfAnything"}) {
    EXPECT_EQ(Suggested(word), "nothing") << word;
  }
  EXPECT_FALSE(Closest("anything", {}));
}

TEST_F(Spelling, SeveralAreAsNear_TakesTheFirst) {
  EXPECT_EQ(Suggested("ChkGet_Win"), "ChkGet_Win2k");
  EXPECT_EQ(Suggested("ChkGet_Win9"), "ChkGet_Win9x");
}

}  // namespace
}  // namespace discwright::util
