// Tests of the path helpers, on the fake host.
#include "util/paths.h"

#include <gtest/gtest.h>

#include "tests/support/fake_host.h"

namespace discwright::util {
namespace {

std::string WithBackslash(std::string path) {
  AddBackslash(path);
  return path;
}

class Paths : public ::testing::Test {
 protected:
  testing::FakeHost host;
};

using FolderExistsTest = Paths;
using FileExistsTest = Paths;
using SplitPathTest = Paths;
using MakePathTest = Paths;
using PlatformTest = Paths;

TEST(IsPathSeparator, BothSlashes_AreSeparatorsAndNothingElseIs) {
  EXPECT_TRUE(IsPathSeparator('\\'));
  EXPECT_TRUE(IsPathSeparator('/'));
  EXPECT_FALSE(IsPathSeparator(':'));
  EXPECT_FALSE(IsPathSeparator('\0'));
}

TEST(Trim, BlanksAround_Go) { EXPECT_EQ(Trim("  a b "), "a b"); }
TEST(Trim, OtherWhiteSpace_Stays) { EXPECT_EQ(Trim(" \ta\n "), "\ta\n"); }
TEST(Trim, AllBlank_GivesEmpty) { EXPECT_EQ(Trim("   "), ""); }

TEST(AddBackslash, PathWithoutSeparatorAtItsEnd_GetsOne) { EXPECT_EQ(WithBackslash("C:\\a"), "C:\\a\\"); }
TEST(AddBackslash, PathThatEndsInABackslash_IsUnchanged) { EXPECT_EQ(WithBackslash("C:\\a\\"), "C:\\a\\"); }
TEST(AddBackslash, PathThatEndsInAForwardSlash_IsUnchanged) { EXPECT_EQ(WithBackslash("C:/a/"), "C:/a/"); }
TEST(AddBackslash, SeparatorFollowedByBlanks_IsUnchangedWithItsBlanks) {
  EXPECT_EQ(WithBackslash(" C:\\a\\  "), " C:\\a\\  ");
}
TEST(AddBackslash, TrailingBlanks_AreReplacedByABackslash) { EXPECT_EQ(WithBackslash("C:\\a  "), "C:\\a\\"); }
TEST(AddBackslash, LeadingBlanks_Stay) { EXPECT_EQ(WithBackslash("  C:\\a "), "  C:\\a\\"); }
TEST(AddBackslash, EmptyOrBlankPath_BecomesABackslash) {
  EXPECT_EQ(WithBackslash(""), "\\");
  EXPECT_EQ(WithBackslash("  "), "\\");
}

TEST(StripQuotes, TextInQuotesWithBlanksAround_LosesBoth) { EXPECT_EQ(StripQuotes("  \"C:\\a b\" "), "C:\\a b"); }
TEST(StripQuotes, BlanksInsideTheQuotes_Stay) { EXPECT_EQ(StripQuotes("\" a \""), " a "); }
TEST(StripQuotes, QuoteAtOneEndOnly_Stays) {
  EXPECT_EQ(StripQuotes("\"a "), "\"a");
  EXPECT_EQ(StripQuotes("a\""), "a\"");
}
TEST(StripQuotes, TwoPairsOfQuotes_LoseTheOuterPair) { EXPECT_EQ(StripQuotes("\"\"a\"\""), "\"a\""); }
TEST(StripQuotes, EmptyQuotes_GiveEmpty) { EXPECT_EQ(StripQuotes("\"\""), ""); }
TEST(StripQuotes, SingleQuoteCharacter_Stays) { EXPECT_EQ(StripQuotes("\""), "\""); }
TEST(StripQuotes, EmptyText_StaysEmpty) { EXPECT_EQ(StripQuotes(""), ""); }

TEST(Quoted, TextWithBlanksAround_IsTrimmedAndQuoted) { EXPECT_EQ(Quoted("  D:\\I386 "), "\"D:\\I386\""); }
TEST(Quoted, TextAlreadyInQuotes_IsOnlyTrimmed) { EXPECT_EQ(Quoted(" \"D:\\I386\" "), "\"D:\\I386\""); }
TEST(Quoted, QuoteAtOneEndOnly_IsQuotedAgain) { EXPECT_EQ(Quoted("\"a"), "\"\"a\""); }
TEST(Quoted, EmptyText_GivesTwoQuotes) { EXPECT_EQ(Quoted("  "), "\"\""); }

TEST(TrimNull, TextWithANul_IsCutBeforeIt) { EXPECT_EQ(TrimNull(std::string_view("ab\0cd\0", 6)), "ab"); }
TEST(TrimNull, TextWithoutANul_IsUnchanged) { EXPECT_EQ(TrimNull("ab "), "ab "); }
TEST(TrimNull, TextThatBeginsWithANul_GivesEmpty) { EXPECT_EQ(TrimNull(std::string_view("\0a", 2)), ""); }

TEST_F(SplitPathTest, PathWithFolders_IsSplitAtTheLastSeparator) {
  std::string folder;
  std::string file;
  SplitPath("C:\\a/b\\c.txt", folder, file);
  EXPECT_EQ(folder, "C:\\a/b");
  EXPECT_EQ(file, "c.txt");
}

TEST_F(Paths, ParentOf_IsTheFolderAroundOrTheDriveItself) {
  host.current_folder = "C:\\Current";
  EXPECT_EQ(ParentOf("D:\\cd\\I386"), "D:\\cd");
  EXPECT_EQ(ParentOf("D:\\cd/I386/"), "D:\\cd");
  EXPECT_EQ(ParentOf("D:\\I386"), "D:");
  EXPECT_EQ(ParentOf("D:\\"), "D:");
  EXPECT_EQ(ParentOf("\\I386"), "");
  EXPECT_EQ(ParentOf("\\"), "");
  EXPECT_EQ(ParentOf("I386"), "I386");
  EXPECT_EQ(ParentOf(""), "");
}

TEST_F(Paths, AsTyped_IsTheSystemsSpellingUnlessABackslashOfANameWouldBeMisread) {
  EXPECT_EQ(AsTyped("C:\\cd.iso"), "C:\\cd.iso");
  host.shows_slashes = true;
  EXPECT_EQ(AsTyped("\\home\\ann\\cd.iso"), "/home/ann/cd.iso");
}

TEST_F(SplitPathTest, ForwardSlashLast_CountsAsSeparator) {
  std::string folder;
  std::string file;
  SplitPath("C:\\a/c.txt", folder, file);
  EXPECT_EQ(folder, "C:\\a");
  EXPECT_EQ(file, "c.txt");
}

TEST_F(SplitPathTest, BareFileName_GivesTheCurrentFolderAndThatName) {
  std::string folder;
  std::string file;
  SplitPath("c.txt", folder, file);
  EXPECT_EQ(folder, "C:\\Current");
  EXPECT_EQ(file, "c.txt");
}

TEST_F(SplitPathTest, PathThatEndsInASeparator_LeavesBothOutputs) {
  std::string folder = "old folder";
  std::string file = "old file";
  SplitPath("C:\\a\\", folder, file);
  EXPECT_EQ(folder, "old folder");
  EXPECT_EQ(file, "old file");
}

TEST_F(SplitPathTest, FileInTheRoot_HasAnEmptyFolder) {
  std::string folder = "old folder";
  std::string file;
  SplitPath("\\c.txt", folder, file);
  EXPECT_EQ(folder, "");
  EXPECT_EQ(file, "c.txt");
}

TEST_F(SplitPathTest, InputThatIsAlsoAnOutput_IsReadFirst) {
  std::string path = "C:\\folder\\a long file name.txt";
  std::string file;
  SplitPath(path, path, file);
  EXPECT_EQ(path, "C:\\folder");
  EXPECT_EQ(file, "a long file name.txt");
}

TEST_F(FolderExistsTest, EmptyOrBlankPath_IsFalseThoughItsBackslashAloneWouldNameTheRoot) {
  host.AddFolder("\\");
  ASSERT_TRUE(FolderExists("\\"));
  EXPECT_FALSE(FolderExists(""));
  EXPECT_FALSE(FolderExists("   "));
}

TEST_F(FolderExistsTest, ExistingFolder_IsTrueHoweverItEnds) {
  host.AddFile("C:\\a b\\file", "x");
  EXPECT_TRUE(FolderExists("C:\\a b"));
  EXPECT_TRUE(FolderExists("C:\\a b\\"));
  EXPECT_TRUE(FolderExists("C:\\A B/"));
  EXPECT_TRUE(FolderExists("C:\\a b  "));
}

TEST_F(FolderExistsTest, EmptyFolder_IsTrue) {
  host.AddFolder("C:\\empty");
  EXPECT_TRUE(FolderExists("C:\\empty"));
}

TEST_F(FolderExistsTest, MissingFolderOrFile_IsFalse) {
  host.AddFile("C:\\file", "x");
  EXPECT_FALSE(FolderExists("C:\\missing"));
  EXPECT_FALSE(FolderExists("C:\\file"));
}

TEST_F(FolderExistsTest, FolderThatCannotBeListed_IsFalse) {
  host.AddFolder("C:\\locked");
  host.FailOn("ListFolder", "locked", host::ErrorClass::kAccessDenied);
  EXPECT_FALSE(FolderExists("C:\\locked"));
}

TEST_F(FileExistsTest, ExistingFile_IsTrue) {
  host.AddFile("C:\\a\\file.txt", "");
  EXPECT_TRUE(FileExists("C:\\A\\FILE.TXT"));
}

TEST_F(FileExistsTest, QuotedPathWithBlanks_TestsTheUnquotedPath) {
  host.AddFile("C:\\a b\\my file.txt", "x");
  EXPECT_TRUE(FileExists("  \"C:\\a b\\my file.txt\" "));
}

TEST_F(FileExistsTest, OneTrailingBackslash_IsIgnored) {
  host.AddFile("C:\\a", "x");
  EXPECT_TRUE(FileExists("C:\\a\\"));
}

TEST_F(FileExistsTest, SecondTrailingBackslash_IsPartOfThePathAndNoFileHasIt) {
  host.AddFile("C:\\a", "x");
  EXPECT_FALSE(FileExists("C:\\a\\\\"));
}

TEST_F(FileExistsTest, FolderWithoutWildcard_IsFalse) {
  host.AddFile("C:\\a\\file.txt", "x");
  EXPECT_FALSE(FileExists("C:\\a"));
  EXPECT_FALSE(FileExists("C:\\a\\"));
}

TEST_F(FileExistsTest, FileThatCannotBeOpened_IsFalse) {
  host.AddFile("C:\\a.txt", "x");
  host.FailOn("CheckReadable", "a.txt", host::ErrorClass::kAccessDenied);
  EXPECT_FALSE(FileExists("C:\\a.txt"));
}

TEST_F(FileExistsTest, FileThatCannotBeOpened_IsNotedOnRequest) {
  Notes notes;
  host.AddFile("C:\\a.txt", "x");
  host.FailOn("CheckReadable", "a.txt", host::ErrorClass::kNotReady, "the disk is gone", 1);
  EXPECT_FALSE(FileExists(notes, "\"C:\\a.txt\""));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, "C:\\a.txt");
  EXPECT_EQ(notes.all()[0].cause, "could not be opened: the disk is gone");
  EXPECT_TRUE(FileExists(notes, "C:\\a.txt"));
  EXPECT_EQ(notes.all().size(), 1U);
}

TEST_F(FileExistsTest, MissingFileOrFolder_IsNotNoted) {
  Notes notes;
  host.AddFolder("C:\\folder");
  for (const char* path : {"C:\\none.txt", "C:\\none\\a.txt", "C:\\folder"})
    EXPECT_FALSE(FileExists(notes, path)) << path;
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(Paths, RemoveIfExists_DeletesAReadOnlyFileAndAcceptsAMissingOne) {
  Notes notes;
  host.AddFile("C:\\a.txt", "x", true);
  EXPECT_TRUE(RemoveIfExists(notes, "C:\\a.txt"));
  EXPECT_FALSE(host.Exists("C:\\a.txt"));
  EXPECT_TRUE(RemoveIfExists(notes, "C:\\a.txt"));
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(Paths, RemoveIfExists_NotesAFileThatCannotBeDeleted) {
  Notes notes;
  host.AddFile("C:\\a.txt", "x");
  host.FailOn("RemoveFile", "a.txt", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_FALSE(RemoveIfExists(notes, "C:\\a.txt"));
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].cause, "could not be deleted: Permission denied");
}

TEST_F(FileExistsTest, MissingFileOrEmptyPath_IsFalse) {
  EXPECT_FALSE(FileExists("C:\\missing.txt"));
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists("\"\""));
  EXPECT_FALSE(FileExists("\\"));
}

TEST_F(FileExistsTest, WildcardThatMatchesAFile_IsTrue) {
  host.AddFile("C:\\a\\win51ip.sp1", "x");
  EXPECT_TRUE(FileExists("C:\\a\\WIN51*.*"));
  EXPECT_TRUE(FileExists("\"C:\\a\\*.sp1\""));
}

TEST_F(FileExistsTest, WildcardThatMatchesAFolder_IsTrue) {
  host.AddFolder("C:\\a\\i386");
  EXPECT_TRUE(FileExists("C:\\a\\i3*"));
}

TEST_F(FileExistsTest, WildcardThatMatchesNothing_IsFalse) {
  host.AddFile("C:\\a\\file.txt", "x");
  EXPECT_FALSE(FileExists("C:\\a\\*.exe"));
  EXPECT_FALSE(FileExists("C:\\missing\\*"));
}

TEST_F(FileExistsTest, WildcardWithoutFolder_LooksInTheCurrentFolder) {
  host.AddFile("C:\\Current\\here.txt", "x");
  EXPECT_TRUE(FileExists("he*"));
  EXPECT_FALSE(FileExists("there*"));
}

TEST_F(FileExistsTest, WildcardInTheRootOfADrive_IsFound) {
  host.AddFile("D:\\win51", "x");
  EXPECT_TRUE(FileExists("D:\\win*"));
}

TEST_F(MakePathTest, MissingFolders_AreAllMade) {
  EXPECT_TRUE(MakePath("C:\\a\\b\\c"));
  EXPECT_TRUE(FolderExists("C:\\a\\b\\c"));
}

TEST_F(MakePathTest, PathWithoutBackslash_GetsOneSoThatTheLastFolderIsMadeToo) {
  EXPECT_TRUE(MakePath("C:\\a"));
  EXPECT_TRUE(MakePath("C:\\b\\"));
  EXPECT_EQ(host.calls, (std::vector<std::string>{"MakeFolders C:\\a\\", "MakeFolders C:\\b\\"}));
}

TEST_F(MakePathTest, ExistingFolder_IsASuccess) { EXPECT_TRUE(MakePath(host.program_folder)); }

TEST_F(MakePathTest, FailureOfTheSystem_IsFalse) {
  host.FailOn("MakeFolders", "C:\\a", host::ErrorClass::kAccessDenied);
  EXPECT_FALSE(MakePath("C:\\a"));
}

TEST_F(PlatformTest, ShortPathOfTheSystem_IsGivenUpToItsNul) {
  host.short_paths["C:\\Program Files"] = std::string("C:\\PROGRA~1\0rest", 16);
  EXPECT_EQ(GetShortPath("C:\\Program Files"), "C:\\PROGRA~1");
}

TEST_F(PlatformTest, NoShortPath_GivesTheInput) { EXPECT_EQ(GetShortPath("C:\\Program Files"), "C:\\Program Files"); }

TEST_F(PlatformTest, TwoOpticalDrives_GiveTheFirst) {
  host.optical_drives = {"E:", "D:"};
  EXPECT_EQ(FirstCDROMDrive(), "E:");
}

TEST_F(PlatformTest, NoOpticalDrive_GivesEmpty) { EXPECT_EQ(FirstCDROMDrive(), ""); }

TEST_F(PlatformTest, NtFamily_IsWinNT) {
  host.platform_id = 2;
  EXPECT_EQ(GetPlatformId(), 2);
  EXPECT_TRUE(IsWinNT());
}

TEST_F(PlatformTest, BitTwoWithOthers_IsWinNT) {
  host.platform_id = 3;
  EXPECT_TRUE(IsWinNT());
}

TEST_F(PlatformTest, Windows9x_IsNotWinNT) {
  host.platform_id = 1;
  EXPECT_EQ(GetPlatformId(), 1);
  EXPECT_FALSE(IsWinNT());
}

}  // namespace
}  // namespace discwright::util
