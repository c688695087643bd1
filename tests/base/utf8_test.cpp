// Tests of reading UTF-8, and of recognising other encodings.
#include "base/utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace discwright::base {
namespace {

TEST(FirstUtf8Character, CharactersOfOneToFourBytes_AreRead) {
  const struct {
    std::string_view text;
    char32_t code_point;
    std::size_t length;
  } cases[] = {{"Ax", U'A', 1}, {"äx", U'ä', 2}, {"€x", U'€', 3}, {"\U0010FFFFx", U'\U0010FFFF', 4}};
  for (const auto& [text, code_point, length] : cases) {
    EXPECT_EQ(FirstUtf8Character(text).code_point, code_point) << text;
    EXPECT_EQ(FirstUtf8Character(text).length, length) << text;
  }
}

// A byte that begins no character, an overlong form, a surrogate, a number beyond Unicode, a character cut short.
TEST(IsValidUtf8, BytesThatAreNoCharacter_AreRefused) {
  for (const std::string text :
       {"\xFC", "\x80", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82"}) {
    EXPECT_FALSE(IsValidUtf8(text)) << text;
    EXPECT_FALSE(IsValidUtf8("good " + text)) << text;
    EXPECT_EQ(FirstUtf8Character(text).length, 0U) << text;
  }
  EXPECT_TRUE(IsValidUtf8(""));
  EXPECT_TRUE(IsValidUtf8("Jürgen €\U0010FFFF"));
}

TEST(AppendUtf8, WhatItAppends_IsReadAgain) {
  for (const char32_t code_point :
       {U'\0', U'\x7F', U'\x80', U'\u07FF', U'\u0800', U'\uFFFD', U'\U00010000', U'\U0010FFFF'}) {
    std::string text;
    AppendUtf8(text, code_point);
    EXPECT_EQ(FirstUtf8Character(text).code_point, code_point);
    EXPECT_EQ(FirstUtf8Character(text).length, text.size());
  }
}

TEST(IsUtf8File, MarkOrLettersBeyondAscii_MeanUtf8) {
  for (const char* text : {"\xEF\xBB\xBF", "\xEF\xBB\xBF\xFC", "Jürgen", "x Ω"}) EXPECT_TRUE(IsUtf8File(text)) << text;
  for (const char* text : {"", "plain", "J\xFCrgen", "ü\xFC"}) EXPECT_FALSE(IsUtf8File(text)) << text;
}

TEST(IsUtf16File, EitherByteOrderMark_MeansUtf16) {
  EXPECT_TRUE(IsUtf16File(std::string_view("\xFF\xFEx\0", 4)));
  EXPECT_TRUE(IsUtf16File(std::string_view("\xFE\xFF\0x", 4)));
  for (const char* text : {"", "\xFF", "\xFFx", "x\xFF\xFE", "\xEF\xBB\xBFx"}) EXPECT_FALSE(IsUtf16File(text)) << text;
}

TEST(FirstCharacters, CharactersOfSeveralBytes_AreNotSplit) {
  EXPECT_EQ(FirstCharacters("äΩ€\U0001F4BFx", 4), "äΩ€\U0001F4BF");
  EXPECT_EQ(FirstCharacters("äΩ", 1), "ä");
}

TEST(FirstCharacters, BytesThatAreNotUtf8_CountOneEach) {
  EXPECT_EQ(FirstCharacters("\xFC\xE2\x82x", 3), "\xFC\xE2\x82");
  EXPECT_EQ(FirstCharacters("\xE2\x82", 1), "\xE2");
}

TEST(FirstCharacters, ShorterText_IsWhole) {
  EXPECT_EQ(FirstCharacters("äb", 3), "äb");
  EXPECT_EQ(FirstCharacters("", 3), "");
  EXPECT_EQ(FirstCharacters("äb", 0), "");
}

}  // namespace
}  // namespace discwright::base
