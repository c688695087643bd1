// Tests of patching files in place.
#include "integration/patching.h"

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

TEST_F(PatchBinaryFileTest, ProgramLargerThanATextFile_IsPatchedUpToItsOwnLimit) {
  EXPECT_TRUE(Binary(std::string(host::kLargestText, 'x') + "i386", "i386", "erdc"));
  EXPECT_THAT(notes.all(), IsEmpty());
  EXPECT_FALSE(Binary(std::string(std::size_t{64} << 20, 'x') + "i386", "i386", "erdc"));
  ASSERT_THAT(notes.all(), SizeIs(1));
  EXPECT_THAT(notes.all()[0].cause, HasSubstr("it is too large: "));
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

TEST_F(PatchBinaryFileTest, ReadOnlyFileWithoutMatch_StillBecomesWritable) {
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

TEST_F(PatchBinaryFileTest, EmptyPattern_IsAnError) {
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

TEST_F(PatchTextFileTest, LettersBeyondAscii_IgnoreCaseToo) {
  EXPECT_EQ(Text("\xDC\x62\x65r \xFC\x62\x65r", "\xC3\xBC\x62\x65r", "\xC3\x84"), "\xC4 \xC4\r\n");
}

TEST_F(PatchTextFileTest, FileWithoutLineEnd_EndsWithOne) { EXPECT_EQ(Text("text", "nothing", "x"), "text\r\n"); }

TEST_F(PatchTextFileTest, EveryPatch_AddsALineEnd) {
  Text("text\r\n", "text", "more");
  PatchTextFile(context, kFile, "nothing", "x");
  EXPECT_EQ(host.Content(kFile), "more\r\n\r\n\r\n");
}

TEST_F(PatchTextFileTest, ReplacementThatContainsThePattern_IsNotSearchedAgain) {
  EXPECT_EQ(Text("aXa", "a", "aa"), "aaXaa\r\n");
}

TEST_F(PatchTextFileTest, EmptyFile_BecomesALineEnd) { EXPECT_EQ(Text("", "a", "b"), "\r\n"); }

TEST_F(PatchTextFileTest, EmptyPattern_ReplacesNothing) { EXPECT_EQ(Text("text", "", "b"), "text\r\n"); }

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

}  // namespace
}  // namespace discwright::integration
