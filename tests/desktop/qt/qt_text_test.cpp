// Tests of the conversion between the core's text and Qt's.
#include "desktop/qt/qt_text.h"

#include <gmock/gmock.h>

namespace discwright::desktop {
namespace {

TEST(QtText, LettersBeyondAscii_AreTheSameBothWays) {
  const std::string text = "M\xC3\xBCller \xE2\x82\xAC";
  EXPECT_EQ(ToQt(text), QStringLiteral("Müller €"));
  EXPECT_EQ(FromQt(ToQt(text)), text);
}

TEST(QtText, BytesThatAreNoUtf8_BecomeTheReplacementCharacter) { EXPECT_EQ(ToQt("a\xFF"), QStringLiteral("a\uFFFD")); }

}  // namespace
}  // namespace discwright::desktop
