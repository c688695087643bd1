// Tests of splitting command lines.
#include "host/command_line.h"

#include <gmock/gmock.h>

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// "program|arguments" of each way to divide the line.
std::vector<std::string> Divide(std::string_view line) {
  std::vector<std::string> parts;
  for (const LeadingPart& part : LeadingParts(line))
    parts.push_back(std::string(part.program).append("|").append(part.arguments));
  return parts;
}

TEST(LeadingParts, ProgramWithoutQuotes_MayEndBeforeEachBlank) {
  EXPECT_THAT(Divide(" \tmy\ttool x"), ElementsAre("my|\ttool x", "my\ttool| x", "my\ttool x|"));
}

TEST(LeadingParts, ProgramInQuotes_EndsWithItsQuoteOrTheLine) {
  EXPECT_THAT(Divide(" \"my tool\" \"a b\""), ElementsAre("my tool| \"a b\""));
  EXPECT_THAT(Divide("\"my tool"), ElementsAre("my tool|"));
}

TEST(LeadingParts, EmptyLine_HasOneWithoutAName) {
  for (const char* line : {"", "  ", "\"", "\"\""}) EXPECT_THAT(Divide(line), ElementsAre("|")) << line;
}

TEST(SplitArguments, Blanks_Separate) { EXPECT_THAT(SplitArguments(" a\t b  "), ElementsAre("a", "b")); }

TEST(SplitArguments, Quotes_HoldTogetherAndMayBeEmpty) {
  EXPECT_THAT(SplitArguments("\"a b\" c\" d\"e \"\""), ElementsAre("a b", "c de", ""));
}

TEST(SplitArguments, BackslashesBeforeAQuote_Count) {
  EXPECT_THAT(SplitArguments("a\\\\b"), ElementsAre("a\\\\b"));
  EXPECT_THAT(SplitArguments("\\\"a"), ElementsAre("\"a"));
  EXPECT_THAT(SplitArguments("\"a\\\\\" b"), ElementsAre("a\\", "b"));
  EXPECT_THAT(SplitArguments("\"a\\\\\\\" b\""), ElementsAre("a\\\" b"));
}

TEST(SplitArguments, TwoQuotesInsideQuotes_AreAPlainOne) {
  EXPECT_THAT(SplitArguments("\"a\"\"b\" c"), ElementsAre("a\"b", "c"));
}

TEST(SplitArguments, UnfinishedQuoteOrTrailingBackslash_EndsWithTheText) {
  EXPECT_THAT(SplitArguments("\"a b"), ElementsAre("a b"));
  EXPECT_THAT(SplitArguments("a\\"), ElementsAre("a\\"));
}

TEST(SplitArguments, Nothing_IsNoArgument) { EXPECT_THAT(SplitArguments("  "), IsEmpty()); }

}  // namespace
}  // namespace discwright::host
