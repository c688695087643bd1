// Tests of the conversion between the core's paths and those of the system.
#include "host/posix/native_path.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "host/names.h"
#include "host/system.h"
#include "tests/host/temp_folder.h"

namespace discwright::host {
namespace {

using testing::TempFolder;

std::string Cwd() { return std::filesystem::current_path(); }

TEST(NativePath, MixedSeparators_BecomeSlashes) { EXPECT_EQ(NativePath("\\a/b\\c d"), "/a/b/c d"); }

TEST(NativePath, DoubledAndTrailingSeparatorsAndDots_AreDropped) { EXPECT_EQ(NativePath("\\a\\\\.\\b/\\"), "/a/b"); }

TEST(NativePath, ParentComponent_IsLeftToTheSystem) { EXPECT_EQ(NativePath("\\a\\..\\b"), "/a/../b"); }

TEST(NativePath, Root_IsASlash) { EXPECT_EQ(NativePath("\\"), "/"); }

TEST(NativePath, RelativePath_StartsAtTheCurrentFolder) { EXPECT_EQ(NativePath("x\\y"), NativeJoin(Cwd(), "x/y")); }

TEST(NativePath, EmptyPathOrNul_IsEmpty) {
  EXPECT_EQ(NativePath(""), "");
  EXPECT_EQ(NativePath(std::string_view("\\a\0b", 4)), "");
}

TEST(NativePath, StandInForABackslash_BecomesABackslash) {
  EXPECT_EQ(NativePath("\\a\xEF\x81\x9C"
                       "b"),
            "/a\\b");
}

TEST(PathFromNative, Slashes_BecomeBackslashes) { EXPECT_EQ(PathFromNative("/a/b c"), "\\a\\b c"); }

TEST(PathFromNative, BackslashInAName_IsShownAsItsStandIn) {
  EXPECT_EQ(PathFromNative("/a/b\\c"),
            "\\a\\b\xEF\x81\x9C"
            "c");
}

TEST(PathFromNative, RelativePath_IsMadeAbsolute) {
  EXPECT_EQ(PathFromNative("x/y"), PathFromNative(Cwd() + "/x/y"));
  EXPECT_EQ(PathFromNative("."), CurrentFolder());
}

TEST(PathFromNative, TrailingSeparator_IsDropped) { EXPECT_EQ(PathFromNative("/a/"), "\\a"); }

TEST(PathFromNative, Empty_StaysEmpty) { EXPECT_EQ(PathFromNative(""), ""); }

TEST(PathToNative, PathFromNative_ComesBackUnchanged) {
  for (const std::string path : {"/", "/a/b", "/a\\b/c", "/\xFF\xFE/x", "/with blank/$HOME/`id`/\n"}) {
    EXPECT_EQ(PathToNative(PathFromNative(path)), path);
  }
}

TEST(PathToNative, ExistingPathInAnotherCase_IsSpelledAsOnTheDisk) {
  const TempFolder folder;
  folder.Write("Folder/File.Txt", "");
  EXPECT_EQ(PathToNative(folder.Core("FOLDER\\file.txt")), folder.Native("Folder/File.Txt"));
}

TEST(PathToNative, MissingName_KeepsItsCaseBelowTheRealFolder) {
  const TempFolder folder;
  folder.MakeFolder("Folder");
  EXPECT_EQ(PathToNative(folder.Core("FOLDER\\New\\Name")), folder.Native("Folder/New/Name"));
}

TEST(NativeName, NameWithABackslash_CanBeWrittenListedAndRemoved) {
  const TempFolder folder;
  folder.Write("one\\two", "content");
  const Listing listing = ListFolder(folder.Core(), "*.*");
  ASSERT_EQ(listing.value.size(), 1u);
  const std::string path = folder.Core() + "\\" + listing.value[0].name;
  const std::string content = ReadWholeFile(path).value;
  EXPECT_EQ(content, "content");
  EXPECT_EQ(Look(folder.Core("one\\two")).status.error, ErrorClass::kNotFound);
  EXPECT_TRUE(WriteWholeFile(path, "new").ok());
  EXPECT_EQ(folder.Read("one\\two"), "new");
  EXPECT_TRUE(RemoveFile(path).ok());
  EXPECT_TRUE(folder.Names().empty());
}

const std::vector<std::string> kNamesWithStandIns = {
    "a\\b",           "a\uF05Cb",       "a\uF05Db",       "a\\\\b",     "a\uF05C\uF05Cb",
    "a\uF05D\uF05Db", "a\uF05D\uF05Cb", "a\uF05C\uF05Db", "a\\\uF05Cb", "a\uF05C\\b",
    "a\uF05D\\b",     "a\\\uF05Db",     "\uF05C",         "\uF05D",     "\\"};

TEST(NativeName, NamesWithBackslashesAndStandIns_AreAllFoundCopiedAndRemoved) {
  const TempFolder folder;
  const TempFolder copies;
  for (const std::string& name : kNamesWithStandIns) folder.Write(name, name);
  const Listing listing = ListFolder(folder.Core(), "*.*");
  EXPECT_EQ(listing.value.size(), kNamesWithStandIns.size());
  for (const Entry& entry : listing.value) {
    const std::string content = ReadWholeFile(folder.Core(entry.name)).value;
    EXPECT_EQ(PathToNative(folder.Core(entry.name)), folder.Native(content));
    EXPECT_EQ(PathFromNative(folder.Native(content)), folder.Core(entry.name));
    EXPECT_TRUE(CopyFileWithProgress(folder.Core(entry.name), copies.Core(entry.name), nullptr).ok());
    EXPECT_EQ(copies.Read(content), content);
    EXPECT_TRUE(RemoveFile(folder.Core(entry.name)).ok());
  }
  EXPECT_EQ(copies.Names().size(), kNamesWithStandIns.size());
  EXPECT_TRUE(folder.Names().empty());
}

TEST(NativeName, NamesWithBackslashesAndStandIns_AreFoundInAnyCaseAndNeverTakenForEachOther) {
  for (const std::string& name : kNamesWithStandIns) {
    const TempFolder folder;
    folder.Write(name, "content");
    for (const std::string& other : kNamesWithStandIns) {
      std::string asked = PathFromNative("/" + other).substr(1);
      std::replace(asked.begin(), asked.end(), 'a', 'A');
      EXPECT_EQ(Look(folder.Core(asked)).ok(), name == other) << name << " " << other;
    }
  }
}

TEST(NativePath, StandInInTheCurrentFolder_StaysAsItIs) {
  const TempFolder folder;
  const std::string before = Cwd();
  for (const std::string& name : kNamesWithStandIns) {
    folder.MakeFolder(name);
    std::filesystem::current_path(folder.Native(name));
    EXPECT_EQ(NativePath("file"), folder.Native(name) + "/file");
  }
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace discwright::host
