// Tests of INI text.
#include "base/ini_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace discwright::base {
namespace {

using ::testing::ElementsAre;
using ::testing::FieldsAre;
using ::testing::IsEmpty;

TEST(FindIniValue, NamesInOtherLetterCase_AreFound) {
  EXPECT_EQ(FindIniValue("[Win2K_Info]\r\nSourceDir=d:\\\r\n", "win2k_iNFO", "SOURCEDIR"), "d:\\");
}

TEST(FindIniValue, BlanksAroundNamesAndValue_AreIgnored) {
  EXPECT_EQ(FindIniValue("  [ Main ]  \r\n \t key \t  =  \t value \t \r\n", "Main", "key"), "value");
}

TEST(FindIniValue, ValueInDoubleQuotes_LosesOnePair) {
  EXPECT_EQ(FindIniValue("[a]\nk =  \" x \"  \n", "a", "k"), " x ");
  EXPECT_EQ(FindIniValue("[a]\nk=\"\"x\"\"", "a", "k"), "\"x\"");
  EXPECT_EQ(FindIniValue("[a]\nk=\"\"", "a", "k"), "");
  EXPECT_EQ(FindIniValue("[a]\nk=\"x", "a", "k"), "\"x");
}

TEST(FindIniValue, ValueInSingleQuotes_LosesOnePair) {
  EXPECT_EQ(FindIniValue("[a]\nk = ' x ' \n", "a", "k"), " x ");
  EXPECT_EQ(FindIniValue("[a]\nk='\"x\"'", "a", "k"), "\"x\"");
  EXPECT_EQ(FindIniValue("[a]\nk=''", "a", "k"), "");
}

TEST(FindIniValue, QuotesThatDifferOrStandAlone_Stay) {
  for (const std::string value : {"'x\"", "\"x'", "'", "\"", "x'", "'x"}) {
    EXPECT_EQ(FindIniValue("[a]\nk=" + value, "a", "k"), value);
  }
}

TEST(WithQuotesKept, StoredValue_ReadsAsItIs) {
  for (const std::string value :
       {"\"x\"", "'x'", "\"\"", "''", "\"a\" and \"b\"", "\"", "'", "'x\"", "x", "", "\"\"x\"\""}) {
    EXPECT_EQ(FindIniValue(WithIniValue("", "a", "k", WithQuotesKept(value)), "a", "k"), value);
  }
  EXPECT_EQ(FindIniValue(WithIniValue("", "a", "k", WithQuotesKept(" 'x'\r\n")), "a", "k"), " 'x'  ");
}

TEST(WithQuotesKept, ValueThatReadingLeavesAlone_IsStoredAsItIs) {
  for (const std::string value : {"", "x", "\"x", "'x\"", "a \"b\" c", "it's"}) EXPECT_EQ(WithQuotesKept(value), value);
}

TEST(FindIniValue, ValueWithEqualsSignsBracketsAndSemicolons_IsWhole) {
  EXPECT_EQ(FindIniValue("[a]\nk=x=[y];z\n", "a", "k"), "x=[y];z");
}

TEST(FindIniValue, KeyThatIsMissingOrInAnotherSection_IsNothing) {
  const std::string text = "before=0\n[a]\nk=1\n[b]\nl=2\n";
  EXPECT_EQ(FindIniValue(text, "a", "l"), std::nullopt);
  EXPECT_EQ(FindIniValue(text, "c", "k"), std::nullopt);
  EXPECT_EQ(FindIniValue(text, "a", "before"), std::nullopt);
  EXPECT_EQ(FindIniValue("", "a", "k"), std::nullopt);
}

TEST(FindIniValue, EmptyValue_IsThere) { EXPECT_EQ(FindIniValue("[a]\r\nk=\r\n", "a", "k"), ""); }

TEST(FindIniValue, RepeatedKeysAndSections_GiveTheFirst) {
  const std::string text = "[a]\nk=1\nK=2\n[b]\n[A]\nk=3\nonly=4\n";
  EXPECT_EQ(FindIniValue(text, "a", "k"), "1");
  EXPECT_EQ(FindIniValue(text, "a", "only"), std::nullopt);
}

TEST(FindIniValue, CommentedKeyAndLineWithoutEqualsSign_AreNoKeys) {
  EXPECT_EQ(FindIniValue("[a]\n;k=1\n", "a", ";k"), std::nullopt);
  EXPECT_EQ(FindIniValue("[a]\nk\n", "a", "k"), std::nullopt);
}

TEST(IniSection, SectionWithCommentsAndBlankLines_GivesKeysInOrder) {
  const std::string text = "[x]\r\nz=9\r\n[a]\r\nB = \"2\"\r\n\r\n ; c=3\r\nnoise\r\na=1\r\n[b]\r\nd=4\r\n";
  EXPECT_THAT(IniSection(text, "A"), ElementsAre(FieldsAre("B", "2"), FieldsAre("a", "1")));
}

TEST(IniSection, MissingSection_HasNoKeys) { EXPECT_THAT(IniSection("[a]\nk=1\n", "b"), IsEmpty()); }

TEST(IniLines, EveryLine_IsReturnedInOrderWithItsKind) {
  using enum IniLineKind;
  EXPECT_THAT(IniLines(" [ a b ] x\r\n\t; c = d\r\n\r\n k = 'v' \nno key\n= v\n[a"),
              ElementsAre(FieldsAre(kSection, "a b", ""), FieldsAre(kComment, "; c = d", ""), FieldsAre(kBlank, "", ""),
                          FieldsAre(kKey, "k", "v"), FieldsAre(kOther, "no key", ""), FieldsAre(kOther, "= v", ""),
                          FieldsAre(kOther, "[a", "")));
}

TEST(IniLines, LastLineEnd_BeginsNoLine) {
  EXPECT_THAT(IniLines(""), IsEmpty());
  EXPECT_THAT(IniLines("[a]\n"), ::testing::SizeIs(1));
}

TEST(WithIniValue, ExistingKey_IsReplacedInPlaceAndAllElseStays) {
  EXPECT_EQ(
      WithIniValue("; top\r\n[a]\r\n  Key \t=  \"old one\"  \r\nm=1\n\r\n[b]\r\nkey=2\r\njunk", "A", "KEY", "new"),
      "; top\r\n[a]\r\n  Key \t=  new  \r\nm=1\n\r\n[b]\r\nkey=2\r\njunk");
}

TEST(WithIniValue, KeyWithoutValue_GetsItAfterItsBlanks) {
  EXPECT_EQ(WithIniValue("[a]\r\nk = \r\n", "a", "k", "1"), "[a]\r\nk = 1\r\n");
  EXPECT_EQ(WithIniValue("[a]\r\nk=", "a", "k", "1"), "[a]\r\nk=1");
}

TEST(WithIniValue, EmptyValue_KeepsTheKey) {
  EXPECT_EQ(WithIniValue("[a]\r\nk = 1\r\n", "a", "k", ""), "[a]\r\nk = \r\n");
}

TEST(WithIniValue, RepeatedKey_ChangesTheFirst) {
  EXPECT_EQ(WithIniValue("[a]\nk=1\nk=2\n[a]\nk=3\n", "a", "k", "x"), "[a]\nk=x\nk=2\n[a]\nk=3\n");
}

TEST(WithIniValue, MissingKey_IsAppendedBeforeTheBlankLinesOfItsSection) {
  EXPECT_EQ(WithIniValue("[a]\r\nk=1\r\n\r\n \r\n[b]\r\nm=2\r\n", "a", "m", "x"),
            "[a]\r\nk=1\r\nm=x\r\n\r\n \r\n[b]\r\nm=2\r\n");
  EXPECT_EQ(WithIniValue("[a]\r\n\r\n[b]\r\n", "a", "m", "x"), "[a]\r\nm=x\r\n\r\n[b]\r\n");
}

TEST(WithIniValue, MissingKeyOfLastSection_IsAppendedToTheText) {
  EXPECT_EQ(WithIniValue("[a]\r\nk=1", "a", "m", "x"), "[a]\r\nk=1\r\nm=x\r\n");
  EXPECT_EQ(WithIniValue("[a]", "a", "m", "x"), "[a]\r\nm=x\r\n");
}

TEST(WithIniValue, MissingSection_IsAppendedWithTheKey) {
  EXPECT_EQ(WithIniValue("", "a", "k", "1"), "[a]\r\nk=1\r\n");
  EXPECT_EQ(WithIniValue("[b]\r\nk=0", "a", "k", "1"), "[b]\r\nk=0\r\n[a]\r\nk=1\r\n");
}

TEST(WithIniValue, ValueWithLineEndsAndNul_StaysOnItsLine) {
  const std::string value("1\r\n[b]\0x", 8);
  EXPECT_EQ(WithIniValue("[a]\r\nk=0\r\n", "a", "k", value), "[a]\r\nk=1  [b] x\r\n");
  EXPECT_EQ(WithIniValue("", "a", "k", value), "[a]\r\nk=1  [b] x\r\n");
}

}  // namespace
}  // namespace discwright::base
