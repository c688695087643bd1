// Tests of text in the code pages of Windows.
#include "host/win32/native_text.h"

#include <gtest/gtest.h>

namespace discwright::host {
namespace {

TEST(NearestInCodePage, TextsThatThePageHolds_AreItsBytes) {
  EXPECT_EQ(NearestInCodePage("Größe", 1252),
            "Gr\xF6\xDF"
            "e");
  EXPECT_EQ(NearestInCodePage("Größe", 850),
            "Gr\x94\xE1"
            "e");
  EXPECT_EQ(NearestInCodePage("", 1252), "");
}

TEST(NearestInCodePage, WhatThePageLacks_IsAQuestionMark) {
  EXPECT_EQ(NearestInCodePage("日", 1252), "?");
  EXPECT_EQ(NearestInCodePage("a\xFF"
                              "b",
                              1252),
            "a?b");
}

}  // namespace
}  // namespace discwright::host
