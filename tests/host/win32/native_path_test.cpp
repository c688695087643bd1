// Paths at the door of the system's ANSI calls.
#include "host/win32/native_path.h"

#include <gtest/gtest.h>
#include <windows.h>

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

TEST(DoorPath, SeparatorsAtTheEnd_AreOnlyKeptOfRoots) {
  EXPECT_EQ(DoorPath("C:\\a\\/").native, "C:\\a");
  EXPECT_EQ(DoorPath("a/").native, "a");
  EXPECT_EQ(DoorPath("C:\\\\").native, "C:\\");
  EXPECT_EQ(DoorPath("/").native, "\\");
}

TEST(DoorPath, WhatTheSystemCannotBeAsked_HasItsReason) {
  EXPECT_EQ(DoorPath("").status.error, ErrorClass::kNotFound);
  EXPECT_EQ(DoorPath("a?b").status.cause, NameNotInCodePage().cause);
  EXPECT_EQ(DoorPath("a<b").status.cause, StatusOf(ERROR_INVALID_NAME).cause);
  EXPECT_TRUE(DoorPath(std::string(MAX_PATH - 1, 'a')).status.ok());
  EXPECT_EQ(DoorPath(std::string(MAX_PATH, 'a')).status.cause, StatusOf(ERROR_FILENAME_EXCED_RANGE).cause);
}

TEST(NameOf, LastName_IsCutOffAtSeparatorsAndDrives) {
  EXPECT_EQ(NameOf("C:\\a\\b"), "b");
  EXPECT_EQ(NameOf("C:b"), "b");
  EXPECT_EQ(NameOf("b"), "b");
  EXPECT_EQ(NameOf("C:\\"), "");
}

TEST(SiblingOf, OtherName_StandsInTheSameFolder) {
  EXPECT_EQ(SiblingOf("C:\\a\\b", "x"), "C:\\a\\x");
  EXPECT_EQ(SiblingOf("C:\\b", "x"), "C:\\x");
  EXPECT_EQ(SiblingOf("C:b", "x"), "C:x");
  EXPECT_EQ(SiblingOf("b", "x"), "x");
}

TEST(InFolder, Separator_IsPutWhereItIsMissing) {
  EXPECT_EQ(InFolder("C:\\a", "x"), "C:\\a\\x");
  EXPECT_EQ(InFolder("C:\\", "x"), "C:\\x");
  EXPECT_EQ(InFolder("a/", "x"), "a/x");
  EXPECT_EQ(InFolder("C:", "x"), "C:x");
  EXPECT_EQ(InFolder("", "x"), "x");
}

TEST(ParentFolder, WayUp_EndsAtTheRoot) {
  EXPECT_EQ(ParentFolder("C:\\a\\b"), "C:\\a");
  EXPECT_EQ(ParentFolder("C:\\a"), "C:\\");
  EXPECT_EQ(ParentFolder("C:\\"), "C:\\");
  EXPECT_EQ(ParentFolder("\\\\server\\share"), "\\\\server");
  EXPECT_EQ(ParentFolder("\\"), "\\");
}

TEST(DevicePath, DeviceNamesInEveryFolderAndWithEveryExtension_AreDevices) {
  for (const char* path : {"nul", "C:\\x\\NUL", "x/aux.txt", "Com1", "LPT9.a.b", "con ", "prn .txt", "\\\\.\\C:"})
    EXPECT_TRUE(IsDevicePath(path)) << path;
  for (const char* path : {"nulx", "C:\\nul\\x", "com", "com0", "lpt10", "xcon", "console.txt", ""})
    EXPECT_FALSE(IsDevicePath(path)) << path;
}

TEST(PathFromNative, RelativePath_IsMadeAbsolute) {
  EXPECT_EQ(PathFromNative("x/y"), InFolder(CurrentFolder(), "x\\y"));
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
