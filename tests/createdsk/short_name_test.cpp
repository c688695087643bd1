// Tests of 8.3 names and volume labels.
#include "tools/createdsk/short_name.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace discwright::tools {
namespace {

using ::testing::HasSubstr;

std::string BytesOf(std::string_view text) {
  const std::optional<ShortName> name = ToShortName(text);
  return name ? std::string(name->begin(), name->end()) : "refused";
}

TEST(ShortName, OfEachShape_IsPaddedAndInCapitals) {
  EXPECT_EQ(BytesOf("README.TXT"), "README  TXT");
  EXPECT_EQ(BytesOf("readme.t"), "README  T  ");
  EXPECT_EQ(BytesOf("DOS"), "DOS        ");
  EXPECT_EQ(BytesOf("A"), "A          ");
  EXPECT_EQ(BytesOf("EIGHT_88.SYS"), "EIGHT_88SYS");
  EXPECT_EQ(BytesOf("$%'-_@~`.!()"), "$%'-_@~`!()");
}

class NoShortName : public ::testing::TestWithParam<const char*> {};

TEST_P(NoShortName, NameThatDosCannotHave_IsRefused) { EXPECT_EQ(BytesOf(GetParam()), "refused"); }

INSTANTIATE_TEST_SUITE_P(All, NoShortName,
                         ::testing::Values("", ".", "..", ".TXT", "A.", "NINECHARS", "A.HTML", "A.B.C", "A B", "A+B",
                                           "A,B", "A;B", "A=B", "A[B", "A/B", "A:B", "A*", "A?", "A\"", "A|", "A<",
                                           "\xC3\x84", "\xC4", "A\x7F", "A\x01", "CON", "con.txt", "LPT1", "CLOCK$"));

TEST(ShortName, AsText_IsTheNameWithItsDot) {
  EXPECT_EQ(ToText(*ToShortName("readme.txt")), "README.TXT");
  EXPECT_EQ(ToText(*ToShortName("dos")), "DOS");
}

TEST(ShortName, WithBytesThatAreNoText_IsShownWithQuestionMarks) {
  EXPECT_EQ(ToText({0x05, 'A', 0xE4, 0x1B, ' ', ' ', ' ', ' ', 'X', 0x00, ' '}), "?A??.X?");
}

std::string LabelOf(std::string_view text) {
  ShortName label{};
  const Result result = ToLabel(text, label);
  return result.ok() ? std::string(label.begin(), label.end()) : result.failure;
}

TEST(Label, UpToElevenCharacters_IsPaddedAndInCapitals) {
  EXPECT_EQ(LabelOf("x"), "X          ");
  EXPECT_EQ(LabelOf("my disk 2"), "MY DISK 2  ");
  EXPECT_EQ(LabelOf("ELEVENCHARS"), "ELEVENCHARS");
}

TEST(Label, OfTwelveCharacters_IsTooLong) { EXPECT_THAT(LabelOf("TWELVE_CHARS"), HasSubstr("longer than 11")); }

TEST(Label, EmptyOrWithALeadingBlank_IsRefused) {
  EXPECT_THAT(LabelOf(""), HasSubstr("must begin"));
  EXPECT_THAT(LabelOf(" A"), HasSubstr("must begin"));
}

TEST(Label, WithAForbiddenCharacter_IsRefused) {
  for (const std::string text : {"A.B", "A/B", "A\\B", "A:B", "A*B", "A?B", "A+B", "A,B", "A;B", "A=B", "A[B", "A]B",
                                 "A|B", "A<B", "A>B", "A\"B", "A\tB", "\xC3\x84"}) {
    EXPECT_THAT(LabelOf(text), HasSubstr("cannot have")) << text;
  }
}

}  // namespace
}  // namespace discwright::tools
