// Tests of the bytes of settings files.
#include "host/native_text.h"

#include <gtest/gtest.h>

namespace discwright::host {
namespace {

const std::string kMark = "\xEF\xBB\xBF";

std::string ThereAndBack(const std::string& text) { return DecodeText(EncodeText(text)); }

TEST(EncodeText, AsciiText_StaysAsItIs) {
  EXPECT_EQ(EncodeText("[Main]\r\na=1\r\n"), "[Main]\r\na=1\r\n");
  EXPECT_EQ(EncodeText(""), "");
}

TEST(EncodeText, UmlautsAndTypographicSigns_AreSingleBytes) {
  EXPECT_EQ(EncodeText("Jürgen kostet 5 €"), "J\xFCrgen kostet 5 \x80");
  EXPECT_EQ(EncodeText("\u0178\u00FF\u00A0"), "\x9F\xFF\xA0");
}

TEST(EncodeText, NumbersThatWindows1252LeavesOpen_AreTheirOwnBytes) {
  EXPECT_EQ(EncodeText("\u00C2\u0081\u008D\u008F\u0090\u009D!"), "\xC2\x81\x8D\x8F\x90\x9D!");
}

TEST(EncodeText, CharacterBeyondWindows1252_IsMarkedUtf8) {
  for (const std::string text : {"Ελλάδα", "Россия", "日本", "\U0001F4BF", "\u0080", "ü Ω"}) {
    EXPECT_EQ(EncodeText(text), kMark + text);
  }
}

TEST(EncodeText, TextThatIsNotUtf8_IsMarkedAndKeepsItsBytes) {
  for (const std::string text : {"J\xFCrgen", "ü\xFC", "\xED\xA0\x80", "\xC0\x80", "\xF4\x90\x80\x80", "\xE2\x82"}) {
    EXPECT_EQ(EncodeText(text), kMark + text);
  }
}

TEST(EncodeText, TextWhoseBytesWouldLookLikeUtf8_IsMarkedUtf8) {
  EXPECT_EQ(EncodeText("Ã¤"), kMark + "Ã¤");
  EXPECT_EQ(EncodeText("Ã¤ü"), "\xC3\xA4\xFC");
}

TEST(EncodeText, TextWhoseBytesWouldLookLikeTheMark_IsMarkedUtf8) { EXPECT_EQ(EncodeText("ï»¿ü"), kMark + "ï»¿ü"); }

TEST(DecodeText, MarkedBytes_LoseTheMarkOnly) {
  EXPECT_EQ(DecodeText(kMark + "Ω"), "Ω");
  EXPECT_EQ(DecodeText(kMark + "\xFC"), "\xFC");
  EXPECT_EQ(DecodeText(kMark), "");
}

TEST(DecodeText, UnmarkedUtf8_IsUtf8) { EXPECT_EQ(DecodeText("Jürgen Ω"), "Jürgen Ω"); }

TEST(DecodeText, UnmarkedBytesThatAreNotUtf8_AreWindows1252) {
  EXPECT_EQ(DecodeText("J\xFCrgen \x80\x81"), "Jürgen €\u0081");
}

TEST(TextEncoding, EveryText_ComesBackAsItWas) {
  std::string all_bytes;
  for (int byte = 0; byte < 256; ++byte) all_bytes += static_cast<char>(byte);
  EXPECT_EQ(ThereAndBack(all_bytes), all_bytes);
  EXPECT_EQ(EncodeText(DecodeText(all_bytes)), all_bytes);
  for (const std::string text : {"", "plain", "äöü", "Ã¤", "ï»¿", "ï»¿ü", "\uFEFFx", "Ελλάδα", "Россия", "\x80",
                                 "ä\xFF", "\xEF\xBB\xBF", "\xEF\xBB", "\U0010FFFF"}) {
    EXPECT_EQ(ThereAndBack(text), text);
  }
}

}  // namespace
}  // namespace discwright::host
