// Tests of single INI keys on disk.
#include "settings/ini_file.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/fake_host.h"

namespace discwright::settings {
namespace {

const std::string kFile = "C:\\Discwright\\test.ini";
const std::string kMark = "\xEF\xBB\xBF";

class INIFileTest : public ::testing::Test {
 protected:
  testing::FakeHost host;
  INIFile ini{kFile};

  bool IsCut(std::string_view section, std::string_view key) const {
    util::Notes notes;
    EXPECT_EQ(ini.ReadINIKey(notes, section, key).value, ini.GetINIKey(section, key));
    return !notes.all().empty();
  }

  std::string ThereAndBack(const std::string& value) {
    ini.SetINIKey("a", "k", value);
    return ini.GetINIKey("a", "k");
  }
};

TEST_F(INIFileTest, CreateIniWithSuperfluousBackslashes_JoinsWithExactlyOne) {
  ini.CreateIni("C:\\Folder\\\\", "\\\\file.ini");
  EXPECT_EQ(ini.FileName, "C:\\Folder\\file.ini");
  ini.CreateIni("C:\\Folder", "file.ini");
  EXPECT_EQ(ini.FileName, "C:\\Folder\\file.ini");
}

TEST_F(INIFileTest, CreateIniWithEmptyFolder_StartsWithABackslash) {
  ini.CreateIni("", "file.ini");
  EXPECT_EQ(ini.FileName, "\\file.ini");
  ini.CreateIni("\\\\", "file.ini");
  EXPECT_EQ(ini.FileName, "\\file.ini");
}

TEST_F(INIFileTest, CreateIni_CreatesNoFile) {
  ini.CreateIni("C:\\Discwright", "new.ini");
  EXPECT_TRUE(host.Files().empty());
}

TEST_F(INIFileTest, MissingFile_ReadsEmptyAndIsNotCreated) {
  EXPECT_EQ(ini.GetINIKey("a", "k"), "");
  EXPECT_FALSE(IsCut("a", "k"));
  EXPECT_TRUE(host.Files().empty());
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(INIFileTest, UnreadableFile_ReadsEmpty) {
  host.AddFile(kFile, "[a]\r\nk=1\r\n");
  host.FailOn("ReadWholeFile", "test.ini", host::ErrorClass::kAccessDenied);
  EXPECT_EQ(ini.GetINIKey("a", "k"), "");
}

TEST_F(INIFileTest, ReadINIKeyOfAnUnreadableFile_IsAFailureAndNoted) {
  util::Notes notes;
  host.AddFile(kFile, "[a]\r\nk=1\r\n");
  host.FailOn("ReadWholeFile", "test.ini", host::ErrorClass::kNotReady, "the disk is gone");
  EXPECT_EQ(ini.ReadINIKey(notes, "a", "k").status.error, host::ErrorClass::kNotReady);
  ASSERT_EQ(notes.all().size(), 1U);
  EXPECT_EQ(notes.all()[0].place, kFile);
  EXPECT_EQ(notes.all()[0].cause, "could not be read: the disk is gone");
}

TEST_F(INIFileTest, ReadINIKeyOfAMissingFileOrKey_IsEmptyAndNotNoted) {
  util::Notes notes;
  EXPECT_TRUE(ini.ReadINIKey(notes, "a", "k").ok());
  host.AddFile(kFile, "[a]\r\nl=1\r\n");
  EXPECT_TRUE(ini.ReadINIKey(notes, "a", "k").ok());
  EXPECT_EQ(ini.ReadINIKey(notes, "a", "k").value, "");
  EXPECT_TRUE(notes.all().empty());
}

TEST_F(INIFileTest, ValueOf120Characters_IsCutAt99) {
  host.AddFile(kFile, "[a]\r\nk=" + std::string(120, 'x') + "\r\nl=" + std::string(99, 'y') + "\r\n");
  EXPECT_EQ(ini.GetINIKey("a", "k"), std::string(99, 'x'));
  EXPECT_TRUE(IsCut("a", "k"));
  EXPECT_EQ(ini.GetINIKey("a", "l"), std::string(99, 'y'));
  EXPECT_FALSE(IsCut("a", "l"));
}

TEST_F(INIFileTest, QuotedValueOf99Characters_IsNotCut) {
  host.AddFile(kFile, "[a]\r\nk=\"" + std::string(99, 'x') + "\"\r\n");
  EXPECT_EQ(ini.GetINIKey("a", "k"), std::string(99, 'x'));
  EXPECT_FALSE(IsCut("a", "k"));
}

TEST_F(INIFileTest, LongValueOfSeveralBytesPerCharacter_IsCutAfter99Characters) {
  std::string omegas;
  for (int i = 0; i < 99; ++i) omegas += "Ω";
  host.AddFile(kFile, "[a]\r\nk=" + omegas + "Ω\r\n");
  EXPECT_EQ(ini.GetINIKey("a", "k"), omegas);
  EXPECT_TRUE(IsCut("a", "k"));
}

TEST_F(INIFileTest, ValueWhose99CharactersEndInBlanks_IsTrimmedAfterTheCut) {
  host.AddFile(kFile, "[a]\r\nk=" + std::string(90, 'x') + std::string(20, ' ') + "y\r\n");
  EXPECT_EQ(ini.GetINIKey("a", "k"), std::string(90, 'x'));
  EXPECT_TRUE(IsCut("a", "k"));
}

TEST_F(INIFileTest, BlanksAroundEqualsSignAndQuotedValue_ReadsBare) {
  host.AddFile(kFile, "[a]\r\nk    =   \" bare value \"   \r\n");
  EXPECT_EQ(ini.GetINIKey("a", "k"), "bare value");
}

TEST_F(INIFileTest, ValueThatStandsInQuotes_ReadsBackWithThem) {
  for (const std::string value : {"\"Joe\"", "'Joe'", "\"\"", "''", "\"", "\"a\" and \"b\"", "\"\"Joe\"\"", "it's"}) {
    EXPECT_EQ(ThereAndBack(value), value);
  }
  EXPECT_EQ(ThereAndBack(" \"Joe\"\r\n"), "\"Joe\"");
}

TEST_F(INIFileTest, ValueThatStandsInQuotes_IsStoredInOneMorePair) {
  ini.SetINIKey("a", "k", "'Joe'");
  EXPECT_EQ(host.Content(kFile), "[a]\r\nk=\"'Joe'\"\r\n");
}

TEST_F(INIFileTest, SectionInOtherLetterCase_IsFound) {
  host.AddFile(kFile, "[Win2K_Info]\r\nSP_exe=x\r\n");
  EXPECT_EQ(ini.GetINIKey("Win2k_Info", "sp_EXE"), "x");
}

TEST_F(INIFileTest, WritingToAMissingFile_CreatesIt) {
  ini.SetINIKey("a", "k", "1");
  EXPECT_EQ(host.Content(kFile), "[a]\r\nk=1\r\n");
  EXPECT_TRUE(ini.SetINIKey("a", "k", "2").ok());
}

TEST_F(INIFileTest, SeveralInstancesOnOneFile_SeeEachOthersWrites) {
  const INIFile other(kFile);
  ini.SetINIKey("a", "k", "1");
  other.SetINIKey("a", "l", "2");
  ini.SetINIKey("b", "m", "3");
  EXPECT_EQ(other.GetINIKey("a", "k") + ini.GetINIKey("a", "l") + other.GetINIKey("b", "m"), "123");
  EXPECT_EQ(host.Content(kFile), "[a]\r\nk=1\r\nl=2\r\n[b]\r\nm=3\r\n");
}

TEST_F(INIFileTest, Rewrite_KeepsCommentsOrderSpacingAndUnknownText) {
  host.AddFile(kFile, "; J\xFCrgen\r\n[b]\r\nz = 1 \r\njunk\r\n\r\n[a]\r\nK   =  \"old\"\r\n");
  ini.SetINIKey("A", "k", "new");
  EXPECT_EQ(host.Content(kFile), "; J\xFCrgen\r\n[b]\r\nz = 1 \r\njunk\r\n\r\n[a]\r\nK   =  new\r\n");
}

TEST_F(INIFileTest, ValueWithUmlauts_IsWindows1252OnDisk) {
  EXPECT_EQ(ThereAndBack("Jürgen"), "Jürgen");
  EXPECT_EQ(host.Content(kFile), "[a]\r\nk=J\xFCrgen\r\n");
}

TEST_F(INIFileTest, ValueInGreekOrCyrillic_IsMarkedUtf8OnDisk) {
  for (const std::string value : {"Ελλάδα", "Россия"}) {
    EXPECT_EQ(ThereAndBack(value), value);
    EXPECT_EQ(host.Content(kFile), std::string(kMark).append("[a]\r\nk=").append(value).append("\r\n"));
  }
}

TEST_F(INIFileTest, ValueOfRawBytes_ComesBackAsItIs) {
  EXPECT_EQ(ThereAndBack("/media/J\xFCrgen/x"), "/media/J\xFCrgen/x");
  ini.SetINIKey("a", "other", "1");
  EXPECT_EQ(ini.GetINIKey("a", "k"), "/media/J\xFCrgen/x");
}

TEST_F(INIFileTest, ValueWhoseBytesCouldBeUtf8_ComesBackAsItIs) { EXPECT_EQ(ThereAndBack("Ã¤"), "Ã¤"); }

TEST_F(INIFileTest, FileEditedByHandInUtf8_ReadsAsUtf8) {
  host.AddFile(kFile, "[a]\nk=Jürgen\n");
  EXPECT_EQ(ini.GetINIKey("a", "k"), "Jürgen");
}

TEST_F(INIFileTest, ValueWithLineEndsAndNul_DoesNotBreakTheFile) {
  EXPECT_EQ(ThereAndBack(std::string("1\r\n[b]\nk=2\0x", 12)), "1  [b] k=2 x");
  EXPECT_EQ(ini.GetINIKey("b", "k"), "");
}

TEST_F(INIFileTest, FailedWrite_IsReportedAndLeavesTheFile) {
  host.AddFile(kFile, "[a]\r\nk=1\r\n");
  host.FailOn("WriteWholeFile", "test.ini", host::ErrorClass::kDiskFull);
  EXPECT_EQ(ini.SetINIKey("a", "k", "2").error, host::ErrorClass::kDiskFull);
  EXPECT_EQ(host.Content(kFile), "[a]\r\nk=1\r\n");
}

TEST_F(INIFileTest, WritingToAFileThatCannotBeRead_IsReportedAndLeavesTheFile) {
  host.AddFile(kFile, "[a]\r\nk=1\r\nl=2\r\n");
  host.FailOn("ReadWholeFile", "test.ini", host::ErrorClass::kNotReady, "injected", 1);
  EXPECT_EQ(ini.SetINIKey("a", "k", "3").error, host::ErrorClass::kNotReady);
  EXPECT_EQ(host.Content(kFile), "[a]\r\nk=1\r\nl=2\r\n");
}

TEST(WholeNumber, LeadingDigitsWithOptionalSign_AreTheNumber) {
  EXPECT_EQ(WholeNumber("1"), 1);
  EXPECT_EQ(WholeNumber("  12abc "), 12);
  EXPECT_EQ(WholeNumber("2.9"), 2);
  EXPECT_EQ(WholeNumber("-1"), -1);
  EXPECT_EQ(WholeNumber("+3"), 3);
}

TEST(WholeNumber, TextWithoutLeadingDigits_IsZero) {
  for (const char* text : {"", " ", "True", "abc1", "+", "-", "+-1", "-+1", "- 1", ".5"})
    EXPECT_EQ(WholeNumber(text), 0);
}

TEST(WholeNumber, NumberTooLargeForAnInt_IsTheNearestOne) {
  EXPECT_EQ(WholeNumber("99999999999999999999x"), std::numeric_limits<int>::max());
  EXPECT_EQ(WholeNumber("+99999999999999999999"), std::numeric_limits<int>::max());
  EXPECT_EQ(WholeNumber("-99999999999999999999"), std::numeric_limits<int>::min());
}

}  // namespace
}  // namespace discwright::settings
