// Tests of the conversion between Windows-1252 and UTF-8.
#include "base/windows_1252.h"

#include <gtest/gtest.h>

namespace discwright::base {
namespace {

TEST(Windows1252, LettersAndTypographicSigns_AreSingleBytes) {
  EXPECT_EQ(ToWindows1252("Jürgen € \u0178\u00FF\u00A0"), "J\xFCrgen \x80 \x9F\xFF\xA0");
  EXPECT_EQ(FromWindows1252("J\xFCrgen \x80 \x9F\xFF\xA0"), "Jürgen € \u0178\u00FF\u00A0");
}

TEST(Windows1252, CharacterWithoutAByteOrTextThatIsNotUtf8_HasNoBytes) {
  for (const char* text : {"Ω", "\u0080", "日", "ü Ω", "J\xFCrgen"})
    EXPECT_EQ(ToWindows1252(text), std::nullopt) << text;
}

TEST(Windows1252, EveryByte_ComesBackAsItWas) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(ToWindows1252(FromWindows1252(bytes)), bytes) << byte;
  }
}

}  // namespace
}  // namespace discwright::base
