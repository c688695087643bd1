// Tests of the file operations that the build steps share.
#include "integration/file_patcher.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/build_fixture.h"

namespace discwright::integration {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kFile = "C:\\Discwright\\file.bin";

class Patching : public testing::BuildFixture {
 protected:
  Patching() {
    ListenToAll(main, [this](forms::Control& control, forms::Facet, forms::By) {
      if (&control == &main) hourglass.push_back(main.busy);
    });
  }

  bool Binary(const std::string& content, const std::string& find, const std::string& replace) {
    host.AddFile(kFile, content);
    return PatchBinaryFile(context, kFile, find, replace);
  }
  std::string Text(const std::string& content, const std::string& find, const std::string& replace) {
    host.AddFile(kFile, content);
    EXPECT_FALSE(PatchTextFile(context, kFile, find, replace));
    return host.Content(kFile);
  }
  void ExpectError(const std::string& text) const {
    ASSERT_THAT(user.messages, SizeIs(1));
    EXPECT_EQ(user.messages[0].text, text);
    EXPECT_EQ(user.messages[0].title, "Patching Error");
    EXPECT_THAT(notes.all(), SizeIs(1));
  }
  bool NothingWasWritten() const {
    return std::none_of(host.calls.begin(), host.calls.end(),
                        [](const std::string& call) { return call.starts_with("WriteWholeFile"); });
  }

  std::vector<bool> hourglass;  // each change of the mouse pointer
};

using PatchBinaryFileTest = Patching;
using PatchTextFileTest = Patching;

TEST_F(PatchBinaryFileTest, PatternStandsTwice_BothAreReplaced) {
  EXPECT_TRUE(Binary("xi386yyi386z", "i386", "erdc"));
  EXPECT_EQ(host.Content(kFile), "xerdcyyerdcz");
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_THAT(notes.all(), IsEmpty());
}

TEST_F(PatchBinaryFileTest, OtherLetterCase_IsNoMatch) {
  EXPECT_FALSE(Binary("I386", "i386", "erdc"));
  EXPECT_EQ(host.Content(kFile), "I386");
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(PatchBinaryFileTest, BytesOfEveryValue_StayAsTheyAre) {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  EXPECT_TRUE(Binary(bytes + "i386" + bytes, "i386", "erdc"));
  EXPECT_EQ(host.Content(kFile), bytes + "erdc" + bytes);
}

TEST_F(PatchBinaryFileTest, MissingFile_IsNoError) {
  EXPECT_FALSE(PatchBinaryFile(context, kFile, "i386", "erdc"));
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_FALSE(host.Exists(kFile));
}

TEST_F(PatchBinaryFileTest, EmptyFile_IsNotTouched) {
  EXPECT_FALSE(Binary("", "i386", "erdc"));
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_TRUE(NothingWasWritten());
}

TEST_F(PatchBinaryFileTest, ReadOnlyFile_IsPatchedAndKeepsItsTimes) {
  host.AddFile(kFile, "i386", true);
  EXPECT_TRUE(PatchBinaryFile(context, kFile, "i386", "erdc"));
  EXPECT_EQ(host.Content(kFile), "erdc");
  EXPECT_THAT(host.calls, ElementsAre(std::string("WriteWholeFile ") + kFile + " (keeping its times)"));
}

TEST_F(PatchBinaryFileTest, ReadOnlyFileWithoutMatch_LosesTheMarkAllTheSame) {
  host.AddFile(kFile, "nothing", true);
  EXPECT_FALSE(PatchBinaryFile(context, kFile, "i386", "erdc"));
  EXPECT_FALSE(host.Find(kFile)->read_only);
}

TEST_F(PatchBinaryFileTest, ShorterReplacement_LeavesTheRestOfThePattern) {
  EXPECT_TRUE(Binary("xi386y", "i386", "ab"));
  EXPECT_EQ(host.Content(kFile), "xab86y");
}

TEST_F(PatchBinaryFileTest, LongerReplacement_OverwritesWhatFollows) {
  EXPECT_TRUE(Binary("xi386yyyy", "i386", "longer"));
  EXPECT_EQ(host.Content(kFile), "xlongeryy");
}

TEST_F(PatchBinaryFileTest, ScanGoesOnOverTheBytesJustWritten) {
  EXPECT_TRUE(Binary("aaa..", "aa", "ba"));
  EXPECT_EQ(host.Content(kFile), "bba..");
  EXPECT_TRUE(Binary("ab....", "ab", "cab"));  // finds itself again until it reaches the end
  ExpectError(std::string("Error while patching ") + kFile + " in Hex mode");
}

TEST_F(PatchBinaryFileTest, FileEndsWithTheStartOfThePattern_IsAnErrorAndNothingIsWritten) {
  EXPECT_FALSE(Binary("some bytes, and i", "i386", "erdc"));
  ExpectError(std::string("Error while patching ") + kFile + " in Hex mode");
  EXPECT_EQ(host.Content(kFile), "some bytes, and i");
  EXPECT_TRUE(NothingWasWritten());
}

TEST_F(PatchBinaryFileTest, Error_NamesTheFileAsTheHostSpellsIt) {
  host.shows_slashes = true;
  EXPECT_FALSE(Binary("some bytes, and i", "i386", "erdc"));
  std::string shown = kFile;
  std::replace(shown.begin(), shown.end(), '\\', '/');
  ExpectError("Error while patching " + shown + " in Hex mode");
}

TEST_F(PatchBinaryFileTest, ErrorAfterAReplacementInMemory_GivesTrueAndWritesNothing) {
  EXPECT_TRUE(Binary("i386 and i3", "i386", "erdc"));
  ExpectError(std::string("Error while patching ") + kFile + " in Hex mode");
  EXPECT_EQ(host.Content(kFile), "i386 and i3");
}

TEST_F(PatchBinaryFileTest, ReplacementRunsPastTheEnd_IsAnErrorAndNothingIsWritten) {
  EXPECT_FALSE(Binary("xi386", "i386", "longer"));
  ExpectError(std::string("Error while patching ") + kFile + " in Hex mode");
  EXPECT_EQ(host.Content(kFile), "xi386");
}

TEST_F(PatchBinaryFileTest, NothingToFind_IsAnError) {
  EXPECT_FALSE(Binary("bytes", "", "x"));
  ExpectError(std::string("Error while patching ") + kFile + " in Hex mode");
}

TEST_F(PatchBinaryFileTest, Umlauts_AreOneByteEachOfTheCodePage) {
  EXPECT_TRUE(Binary("a\xFC\x62", "\xC3\xBC", "\xC3\x96"));
  EXPECT_EQ(host.Content(kFile), "a\xD6\x62");
}

TEST_F(PatchBinaryFileTest, CharactersThatTheCodePageLacks_AreAnError) {
  EXPECT_FALSE(Binary("bytes", "b", "\xE6\x97\xA5"));
  ExpectError(std::string("Error while patching ") + kFile + " in Hex mode");
  EXPECT_EQ(host.Content(kFile), "bytes");
}

TEST_F(PatchBinaryFileTest, LockedOrUnreadableFile_IsAnErrorWithItsCauseNoted) {
  for (const char* call : {"ClearAttributes", "ReadWholeFile", "WriteWholeFile"}) {
    host.FailOn(call, "file.bin", host::ErrorClass::kAccessDenied, "in use", 1);
    Binary("i386", "i386", "erdc");
    EXPECT_EQ(host.Content(kFile), "i386") << call;
    EXPECT_THAT(notes.all().back().cause, HasSubstr("in use")) << call;
  }
  EXPECT_THAT(user.messages, SizeIs(3));
}

TEST_F(PatchBinaryFileTest, MousePointer_IsAnHourglassWhileItWorks) {
  Binary("i386", "i386", "erdc");
  EXPECT_THAT(hourglass, ElementsAre(true, false));
  hourglass.clear();
  Binary("i", "i386", "erdc");
  EXPECT_THAT(hourglass, ElementsAre(true, false));
}

TEST_F(PatchTextFileTest, EveryPlaceInAnyLetterCase_IsReplaced) {
  EXPECT_EQ(Text("set X=0\r\nSET x=0\r\n", "Set X=0", "Set X=1"), "Set X=1\r\nSet X=1\r\n\r\n");
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(PatchTextFileTest, RespectingLetterCaseIsAskedFor_IsIgnored) {
  host.AddFile(kFile, "ABC");
  EXPECT_FALSE(PatchTextFile(context, kFile, "abc", "x", true));
  EXPECT_EQ(host.Content(kFile), "x\r\n");
}

TEST_F(PatchTextFileTest, LettersBeyondAscii_IgnoreCaseToo) {
  EXPECT_EQ(Text("\xDC\x62\x65r \xFC\x62\x65r", "\xC3\xBC\x62\x65r", "\xC3\x84"), "\xC4 \xC4\r\n");
}

TEST_F(PatchTextFileTest, FileWithoutLineEnd_EndsWithOne) { EXPECT_EQ(Text("text", "nothing", "x"), "text\r\n"); }

TEST_F(PatchTextFileTest, EveryPatch_AddsALineEnd) {
  Text("text\r\n", "text", "more");
  PatchTextFile(context, kFile, "nothing", "x");
  EXPECT_EQ(host.Content(kFile), "more\r\n\r\n\r\n");
}

TEST_F(PatchTextFileTest, ReplacementHoldsWhatIsLookedFor_IsNotLookedAtAgain) {
  EXPECT_EQ(Text("aXa", "a", "aa"), "aaXaa\r\n");
}

TEST_F(PatchTextFileTest, EmptyFile_BecomesALineEnd) { EXPECT_EQ(Text("", "a", "b"), "\r\n"); }

TEST_F(PatchTextFileTest, NothingToFind_ReplacesNothing) { EXPECT_EQ(Text("text", "", "b"), "text\r\n"); }

TEST_F(PatchTextFileTest, BytesThatAreNoUtf8_StayAsTheyAre) {
  EXPECT_EQ(Text("\xE4\x81\xFF\x80\xC3\xA4 x", "x", "y"), "\xE4\x81\xFF\x80\xC3\xA4 y\r\n");
}

TEST_F(PatchTextFileTest, MissingFile_IsNoError) {
  EXPECT_FALSE(PatchTextFile(context, kFile, "a", "b"));
  EXPECT_THAT(user.messages, IsEmpty());
  EXPECT_FALSE(host.Exists(kFile));
}

TEST_F(PatchTextFileTest, ReadOnlyFile_IsPatched) {
  host.AddFile(kFile, "a", true);
  PatchTextFile(context, kFile, "a", "b");
  EXPECT_EQ(host.Content(kFile), "b\r\n");
  EXPECT_THAT(hourglass, ElementsAre(true, false));
}

TEST_F(PatchTextFileTest, FileThatCannotBeRead_IsAnError) {
  host.FailOn("ReadWholeFile", "file.bin", host::ErrorClass::kAccessDenied);
  EXPECT_EQ(Text("a", "a", "b"), "a");
  ExpectError(std::string("Error while patching ") + kFile);
}

TEST_F(PatchTextFileTest, CharactersThatTheCodePageLacks_AreAnErrorAndNothingIsWritten) {
  EXPECT_EQ(Text("a", "a", "\xE6\x97\xA5"), "a");
  ExpectError(std::string("Error while patching ") + kFile);
}

class CopyMatchingFilesTest : public testing::BuildFixture {
 protected:
  CopyMatchingFilesTest() {
    host.AddFolder("C:\\to");
    host.AddFile("D:\\WIN51", "1");
    host.AddFile("D:\\WIN51IP", "2", true);
    host.AddFile("D:\\WIN51IP.SP2", "3");
    host.AddFile("D:\\OTHER", "4");
  }
  bool Copy(const std::string& from, const std::string& to) { return CopyMatchingFiles(notes, from, to); }
};

TEST_F(CopyMatchingFilesTest, Matches_KeepTheirNamesWhateverTheDestinationsLastNameSays) {
  EXPECT_TRUE(Copy("D:\\I386\\..\\win51*.*", "C:\\to\\anything"));
  EXPECT_EQ(host.Content("C:\\to\\WIN51"), "1");
  EXPECT_EQ(host.Content("C:\\to\\WIN51IP"), "2");
  EXPECT_EQ(host.Content("C:\\to\\WIN51IP.SP2"), "3");
  EXPECT_FALSE(host.Exists("C:\\to\\OTHER"));
  EXPECT_FALSE(host.Exists("C:\\to\\anything"));
}

TEST_F(CopyMatchingFilesTest, NothingMatches_IsTrueAndCopiesNothing) {
  EXPECT_TRUE(Copy("D:\\cdrom*.*", "C:\\to\\CDROM*.*"));
  EXPECT_TRUE(Copy("D:\\no such folder\\*.*", "C:\\to\\*.*"));
  EXPECT_THAT(notes.all(), IsEmpty());
  EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(CopyMatchingFilesTest, FileThatIsThere_IsOverwritten) {
  host.AddFile("C:\\to\\WIN51", "old");
  EXPECT_TRUE(Copy("D:\\WIN51", "C:\\to\\WIN51"));
  EXPECT_EQ(host.Content("C:\\to\\WIN51"), "1");
}

TEST_F(CopyMatchingFilesTest, FirstFailure_EndsItSilentlyWithANote) {
  host.FailOn("CopyFileWithProgress", "WIN51IP ", host::ErrorClass::kNotReady, "scratched");
  EXPECT_FALSE(Copy("D:\\win51*.*", "C:\\to\\WIN51*.*"));
  EXPECT_TRUE(host.Exists("C:\\to\\WIN51"));
  EXPECT_FALSE(host.Exists("C:\\to\\WIN51IP.SP2"));
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].cause, "could not be copied, nor was any of win51*.* after it: scratched");
  EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(CopyMatchingFilesTest, FolderThatCannotBeListed_IsNotedButNotOneThatIsMissing) {
  EXPECT_TRUE(Copy("D:\\none\\win51*.*", "C:\\to\\x"));
  EXPECT_THAT(notes.all(), IsEmpty());
  host.FailOn("ListFolder", "D:\\", host::ErrorClass::kAccessDenied, "Permission denied");
  EXPECT_FALSE(Copy("D:\\win51*.*", "C:\\to\\x"));
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_EQ(notes.all()[0].cause, "could not be listed: Permission denied");
}

TEST_F(CopyMatchingFilesTest, FolderThatMatches_IsAFailure) {
  host.AddFolder("D:\\WIN51A");
  EXPECT_FALSE(Copy("D:\\win51*.*", "C:\\to\\WIN51*.*"));
  EXPECT_THAT(notes.all(), SizeIs(1));
}

TEST_F(CopyMatchingFilesTest, LinkThatLoops_EndsItAndADeviceDoesNot) {
  host.AddSpecial("D:\\WIN51A");
  host.AddLink("D:\\WIN51IP.SP1", "D:\\", true);
  EXPECT_FALSE(Copy("D:\\win51*.*", "C:\\to\\WIN51*.*"));
  EXPECT_EQ(host.Content("C:\\to\\WIN51IP"), "2");
  EXPECT_FALSE(host.Exists("C:\\to\\WIN51A"));
  EXPECT_FALSE(host.Exists("C:\\to\\WIN51IP.SP2"));
  EXPECT_THAT(notes.all(), SizeIs(2));
}

TEST_F(CopyMatchingFilesTest, SystemThatShowsLowerCase_StoresUpperCaseWhenAsked) {
  host.shows_disc_names_in_lower_case = true;
  host.AddFile("E:\\win51ip.sp1", "x");
  host.AddFile("E:\\Win51", "y");
  EXPECT_TRUE(CopyMatchingFiles(notes, "E:\\win51*.*", "C:\\to\\x", util::CopiedNames::kAsOnDisc));
  EXPECT_EQ(host.RealName("C:\\to\\win51ip.sp1"), "WIN51IP.SP1");
  EXPECT_EQ(host.RealName("C:\\to\\win51"), "Win51");
  EXPECT_TRUE(CopyMatchingFiles(notes, "E:\\win51ip*", "C:\\Discwright\\x"));
  EXPECT_EQ(host.RealName("C:\\Discwright\\win51ip.sp1"), "win51ip.sp1");
}

class ShellTest : public testing::BuildFixture {};

TEST_F(ShellTest, Move_AsksForNoWindowAndNoQuestionsOnTopOfTheFlagsGiven) {
  host.AddFile("C:\\from\\a", "1");
  int handle = 0;
  EXPECT_EQ(MoveWithShell(&handle, "C:\\from\\*.*", "C:\\to", 0, "Moving"), "");
  ASSERT_THAT(host.shell_operations, SizeIs(1));
  const host::ShellOperation& operation = host.shell_operations[0];
  EXPECT_EQ(operation.verb, host::ShellVerb::kMove);
  EXPECT_EQ(operation.owner_window, &handle);
  EXPECT_EQ(operation.source, "C:\\from\\*.*");
  EXPECT_EQ(operation.destination, "C:\\to");
  EXPECT_EQ(operation.flags, 20);
  EXPECT_EQ(operation.title, "Moving");
  EXPECT_EQ(host.Content("C:\\to\\a"), "1");
}

TEST_F(ShellTest, Flags_AreAddedAndNotJoined) {
  MoveWithShell(nullptr, "C:\\from\\*.*", "C:\\to", 4, "");
  EXPECT_EQ(host.shell_operations[0].flags, 24);
}

TEST_F(ShellTest, Rename_HasFixedFlags) {
  host.AddFile("C:\\from\\I386\\a", "1");
  EXPECT_EQ(RenameWithShell(nullptr, "C:\\from\\I386", "C:\\from\\ERDC", "title"), "");
  EXPECT_EQ(host.shell_operations[0].verb, host::ShellVerb::kRename);
  EXPECT_EQ(host.shell_operations[0].flags, 20);
  EXPECT_EQ(host.shell_operations[0].title, "title");
  EXPECT_EQ(host.Content("C:\\from\\ERDC\\a"), "1");
}

TEST_F(ShellTest, Answers_AreTheNumberThenAbortedThenNothing) {
  host.shell_answers = {{5, false}, {1026, true}, {0, true}, {0, false}};
  EXPECT_EQ(MoveWithShell(nullptr, "a", "b", 0, ""), "5");
  EXPECT_EQ(RenameWithShell(nullptr, "a", "b", ""), "1026");
  EXPECT_EQ(MoveWithShell(nullptr, "a", "b", 0, ""), "Aborted");
  EXPECT_EQ(RenameWithShell(nullptr, "a", "b", ""), "");
}

}  // namespace
}  // namespace discwright::integration
