// Tests of the rules for names.
#include "tools/mkisofs/names.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

namespace discwright::tools::mkisofs {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(StorableNames, OrdinaryAndOddOnes_Are) {
  for (const std::string name : {"a", "README.TXT", "no ending", ".hidden", "trail.", "a;1", "two..dots", "\xC3\xA4",
                                 "\xE4", "-", "~", "\\", "\2", "tab\t"})
    EXPECT_EQ(WhyNotStorable(name), "") << name;
  EXPECT_EQ(WhyNotStorable(std::string(207, 'n')), "");
}

TEST(StorableNames, TooLongOrMeaningSelfOrParent_AreNot) {
  EXPECT_THAT(WhyNotStorable(std::string(208, 'n')), HasSubstr("longer than 207 bytes"));
  EXPECT_NE(WhyNotStorable("\1"), "");
  EXPECT_NE(WhyNotStorable(std::string(1, '\0')), "");
  EXPECT_NE(WhyNotStorable(""), "");
}

TEST(NameOrder, IsThatOfTheBytes) {
  std::vector<std::string> names = {"b", "a.txt", "a", "A", "a-b", "\xC3\xA4", "Z", "a b", "_", ".x", "ab"};
  std::sort(names.begin(), names.end(), ComesBefore);
  EXPECT_THAT(names, ElementsAre(".x", "A", "Z", "_", "a", "a b", "a-b", "a.txt", "ab", "b", "\xC3\xA4"));
}

TEST(FoldedNames, ThatDifferOnlyInCase_HaveOneHash) {
  const std::vector<std::pair<std::string, std::string>> pairs = {
      {"readme.txt", "README.TXT"}, {"\xC3\xA4.txt", "\xC3\x84.TXT"}, {"same", "same"}};
  for (const auto& [one, other] : pairs) {
    EXPECT_TRUE(DifferOnlyInCase(one, other)) << one;
    EXPECT_EQ(FoldedHash(one), FoldedHash(other)) << one;
  }
  EXPECT_FALSE(DifferOnlyInCase("a", "b"));
  EXPECT_FALSE(DifferOnlyInCase("\xC3\xA4", "a"));
  EXPECT_NE(FoldedHash("readme.txt"), FoldedHash("readme.tx"));
}

struct Pattern {
  std::string pattern, name;
  bool matches;
};

class Patterns : public ::testing::TestWithParam<Pattern> {};

TEST_P(Patterns, MatchAsInAShell) {
  EXPECT_EQ(MatchesPattern(GetParam().pattern, GetParam().name), GetParam().matches)
      << GetParam().pattern << " " << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    All, Patterns,
    ::testing::Values(
        Pattern{"loader.bin", "loader.bin", true}, Pattern{"loader.bin", "LOADER.BIN", false},
        Pattern{"loader.bin", "loader.bin2", false}, Pattern{"loader.bin", "xloader.bin", false}, Pattern{"", "", true},
        Pattern{"", "a", false}, Pattern{"*", "", true}, Pattern{"*", ".hidden", true}, Pattern{"*.bin", "a.bin", true},
        Pattern{"*.bin", "a.bin.bin", true}, Pattern{"*.bin", "a.bi", false}, Pattern{"a*b*c", "aXbXbXc", true},
        Pattern{"a*b*c", "acb", false}, Pattern{"**", "x", true}, Pattern{"a**", "a", true}, Pattern{"?", "a", true},
        Pattern{"?", "", false}, Pattern{"a?c", "abc", true}, Pattern{"[abc]", "b", true}, Pattern{"[abc]", "d", false},
        Pattern{"[a-c]x", "bx", true}, Pattern{"[a-c]", "-", false}, Pattern{"[!a-c]", "d", true},
        Pattern{"[^a-c]", "b", false}, Pattern{"[]]", "]", true}, Pattern{"[]a]", "a", true},
        Pattern{"[a-]", "-", true}, Pattern{"[-a]", "-", true}, Pattern{"[!]]", "]", false},
        Pattern{"[\\]]", "]", true}, Pattern{"[a", "[a", true}, Pattern{"[a", "a", false}, Pattern{"[", "[", true},
        Pattern{"[!", "[!", true}, Pattern{"\\*", "*", true}, Pattern{"\\*", "a", false}, Pattern{"\\[a]", "[a]", true},
        Pattern{"a\\", "a\\", true}, Pattern{"*[0-9].t", "x7.t", true}, Pattern{"*[0-9].t", "7x.t", false},
        Pattern{"[\x80-\xFF]", "\xC3", true}));

TEST(Patterns, ManyStars_DoNotTakeForEver) {
  std::string pattern;
  for (int i = 0; i < 100; ++i) pattern += "*a";
  EXPECT_FALSE(MatchesPattern(pattern + "b", std::string(207, 'a')));
}

}  // namespace
}  // namespace discwright::tools::mkisofs
