// Text without letter case, of every language.
#include <gtest/gtest.h>

#include "host/system.h"

namespace discwright::host {
namespace {

TEST(FoldCase, LettersBeyondAscii_BecomeLowerCaseWhateverTheProgramsLocale) {
  EXPECT_EQ(FoldCase("ÄÖÜ ÉÑ ЖЯ ΑΩ"), "äöü éñ жя αω");
}

TEST(FoldCase, LettersOfFourBytes_BecomeLowerCase) {
  EXPECT_EQ(FoldCase("\xF0\x90\x90\x80"), "\xF0\x90\x90\xA8");  // U+10400 and U+10428
}

}  // namespace
}  // namespace discwright::host
