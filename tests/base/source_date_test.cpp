// Tests of reading SOURCE_DATE_EPOCH: no date in an image is later than this time.
#include "base/source_date.h"

#include <gtest/gtest.h>

namespace discwright::base {
namespace {

TEST(SourceDate, NumbersOfSeconds_AreTaken) {
  EXPECT_EQ(ParseSourceDate("0"), 0);
  EXPECT_EQ(ParseSourceDate("1000000000"), 1000000000);
  EXPECT_EQ(ParseSourceDate("253402300799"), 253402300799);
}

TEST(SourceDate, TextThatIsAPartOfALongerOne_IsReadToItsEnd) {
  EXPECT_EQ(ParseSourceDate(std::string_view("12345", 2)), 12);
}

TEST(SourceDate, AnythingElse_IsRefused) {
  for (const char* text : {"", " 1", "1 ", "-1", "+1", "1.5", "0x1", "now", "253402300800", "99999999999999999999"})
    EXPECT_EQ(ParseSourceDate(text), std::nullopt) << text;
}

TEST(SourceDate, ThatIsNotSetOrANumber_IsAccepted) {
  EXPECT_EQ(WhyNoSourceDate(nullptr), "");
  EXPECT_EQ(WhyNoSourceDate("0"), "");
  EXPECT_EQ(WhyNoSourceDate("1000000000"), "");
}

TEST(SourceDate, ThatIsNoNumber_IsNamedWithItsVariable) {
  EXPECT_EQ(WhyNoSourceDate("yesterday"),
            "SOURCE_DATE_EPOCH in the environment takes a number of seconds since 1970, up to the year 9999, not "
            "'yesterday'");
  EXPECT_TRUE(WhyNoSourceDate("").ends_with("not ''"));
}

}  // namespace
}  // namespace discwright::base
