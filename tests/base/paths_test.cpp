// Tests of the program's paths as text.
#include "base/paths.h"

#include <gtest/gtest.h>

namespace discwright::base {
namespace {

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

}  // namespace
}  // namespace discwright::base
