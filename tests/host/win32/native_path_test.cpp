// Tests of paths for the ANSI calls of the system.
#include "host/win32/native_path.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "base/paths.h"
#include "host/names.h"
#include "host/native_text.h"
#include "host/system.h"
#include "host/win32/errors.h"

namespace discwright::host {
namespace {

TEST(AnsiText, CharactersOfTheCodePage_ComeBackUnchanged) {
  const std::string text = "Übung é.txt";
  ASSERT_TRUE(CodePageBytes(text).has_value());
  EXPECT_EQ(TextOfCodePage(*CodePageBytes(text)), text);
}

TEST(AnsiText, CharactersThatTheCodePageLacks_AreRefusedAlsoWhereASimilarOneExists) {
  if (GetACP() != 1252) GTEST_SKIP() << "the code page is another one";
  for (const char* text : {"漢", "\xC4\x80", "😀", "\xFF"}) EXPECT_FALSE(CodePageBytes(text)) << text;
}

TEST(NativePath, Slashes_BecomeBackslashes) { EXPECT_EQ(NativePath("C:/a\\b c/d"), "C:\\a\\b c\\d"); }

TEST(NativePath, WildcardOrNul_IsRefused) {
  for (const std::string_view path : {std::string_view("a?"), std::string_view("*"), std::string_view("a\0b", 3)})
    EXPECT_FALSE(NativePath(path));
}

TEST(AnsiPath, SeparatorsAtTheEnd_AreOnlyKeptOfRoots) {
  EXPECT_EQ(AnsiPath("C:\\a\\/").native, "C:\\a");
  EXPECT_EQ(AnsiPath("a/").native, "a");
  EXPECT_EQ(AnsiPath("C:\\\\").native, "C:\\");
  EXPECT_EQ(AnsiPath("/").native, "\\");
}

TEST(AnsiPath, PathThatTheSystemCannotTake_HasAReason) {
  EXPECT_EQ(AnsiPath("").status.error, ErrorClass::kNotFound);
  EXPECT_EQ(AnsiPath("a?b").status.cause, NameNotInCodePage().cause);
  EXPECT_EQ(AnsiPath("a<b").status.cause, StatusOf(ERROR_INVALID_NAME).cause);
  EXPECT_TRUE(AnsiPath(std::string(MAX_PATH - 1, 'a')).status.ok());
  EXPECT_EQ(AnsiPath(std::string(MAX_PATH, 'a')).status.cause, StatusOf(ERROR_FILENAME_EXCED_RANGE).cause);
}

TEST(PathFromNative, RelativePath_IsMadeAbsolute) {
  EXPECT_EQ(PathFromNative("x/y"), base::InFolder(CurrentFolder(), "x\\y"));
  EXPECT_EQ(PathFromNative("."), CurrentFolder());
  EXPECT_EQ(PathFromNative("\\x\\..\\y"), CurrentFolder().substr(0, 2) + "\\y");
}

TEST(PathFromNative, TrailingSeparator_IsOnlyKeptOfARoot) {
  EXPECT_EQ(PathFromNative("C:\\a/"), "C:\\a");
  EXPECT_EQ(PathFromNative("C:/"), "C:\\");
}

TEST(PathFromNative, LettersOfTheCodePage_AreKept) { EXPECT_EQ(PathFromNative("C:\\Übung"), "C:\\Übung"); }

TEST(PathFromNative, WhatTheCodePageLacks_OnlyGetsItsSeparators) { EXPECT_EQ(PathFromNative("漢/字"), "漢\\字"); }

TEST(PathFromNative, Empty_StaysEmpty) { EXPECT_EQ(PathFromNative(""), ""); }

TEST(PathToNative, PathFromNative_ComesBackUnchanged) {
  for (const char* path : {"C:\\", "C:\\a\\b c", "\\\\server\\share\\a"})
    EXPECT_EQ(PathToNative(PathFromNative(path)), path);
}

}  // namespace
}  // namespace discwright::host
