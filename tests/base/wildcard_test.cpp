// Tests of DOS wildcards.
#include "base/wildcard.h"

#include <gtest/gtest.h>

namespace discwright::base {
namespace {

TEST(Wildcard, StarAndStarDotStar_MatchEveryName) {
  for (const char* name : {"name", "name.txt", ".hidden", "a.b.c", "dot."}) {
    EXPECT_TRUE(MatchesWildcard(name, "*")) << name;
    EXPECT_TRUE(MatchesWildcard(name, "*.*")) << name;
  }
}

TEST(Wildcard, ExtensionStar_AlsoMatchesANameWithoutDot) {
  EXPECT_TRUE(MatchesWildcard("win51ip", "win51*.*"));
  EXPECT_TRUE(MatchesWildcard("win51", "win51*.*"));
  EXPECT_TRUE(MatchesWildcard("win51ip.sp1", "win51*.*"));
  EXPECT_TRUE(MatchesWildcard("name", "name.*"));
  EXPECT_FALSE(MatchesWildcard("names", "name.*"));
  EXPECT_FALSE(MatchesWildcard("cdrom_ip.5", "win51*.*"));
}

TEST(Wildcard, Extension_MustMatch) {
  EXPECT_TRUE(MatchesWildcard("setup.inf", "*.inf"));
  EXPECT_TRUE(MatchesWildcard("a.b.inf", "*.inf"));
  EXPECT_FALSE(MatchesWildcard("setup.info", "*.inf"));
  EXPECT_FALSE(MatchesWildcard("inf", "*.inf"));
}

TEST(Wildcard, QuestionMark_IsOneCharacterOrNoneAtTheEndOfAPart) {
  EXPECT_TRUE(MatchesWildcard("disk1.img", "disk?.img"));
  EXPECT_TRUE(MatchesWildcard("disk.img", "disk?.img"));
  EXPECT_TRUE(MatchesWildcard("disk\xC3\xA4.img", "disk?.img"));
  EXPECT_FALSE(MatchesWildcard("disk12.img", "disk?.img"));
  EXPECT_FALSE(MatchesWildcard("dusk.img", "d?k.img"));
  EXPECT_TRUE(MatchesWildcard("a", "a??"));
}

TEST(Wildcard, TrailingDot_MeansNoExtension) {
  EXPECT_TRUE(MatchesWildcard("readme", "r*."));
  EXPECT_FALSE(MatchesWildcard("readme.txt", "r*."));
}

TEST(Wildcard, NoWildcard_IsTheNameItself) {
  EXPECT_TRUE(MatchesWildcard("setup.exe", "setup.exe"));
  EXPECT_FALSE(MatchesWildcard("setup.exe", "setup"));
  EXPECT_FALSE(MatchesWildcard("setup", "setup.exe"));
}

TEST(Wildcard, SeveralStars_TryEveryPlace) {
  EXPECT_TRUE(MatchesWildcard("abcbcd", "a*bc*d"));
  EXPECT_TRUE(MatchesWildcard("aaaaaaaaab", "*a*a*b"));
  EXPECT_FALSE(MatchesWildcard("aaaaaaaaaa", "*a*a*b"));
}

TEST(Wildcard, EmptyPattern_MatchesNoName) { EXPECT_FALSE(MatchesWildcard("name", "")); }

}  // namespace
}  // namespace discwright::base
