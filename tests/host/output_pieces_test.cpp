// Cutting output into pieces.
#include "host/output_pieces.h"

#include <gmock/gmock.h>

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace std::chrono_literals;

constexpr OutputPieces::Clock::time_point kStart{};

TEST(OutputPieces, FinishedLines_ArePassedOnAndTheRestIsHeld) {
  OutputPieces pieces(100, 500ms);
  EXPECT_THAT(pieces.Add("one\ntwo\nthr", kStart), ElementsAre("one\ntwo\n"));
  EXPECT_TRUE(pieces.IsHolding());
  EXPECT_THAT(pieces.Add("ee\n", kStart), ElementsAre("three\n"));
  EXPECT_FALSE(pieces.IsHolding());
}

TEST(OutputPieces, MoreThanTheLargestPiece_IsCutAtTheLastLineEndThatFits) {
  OutputPieces pieces(10, 500ms);
  EXPECT_THAT(pieces.Add("1234\n6789\n1234\nab", kStart), ElementsAre("1234\n6789\n", "1234\n"));
  EXPECT_EQ(pieces.Rest(), "ab");
}

TEST(OutputPieces, LineLongerThanTheLargestPiece_IsCutAnywhere) {
  OutputPieces pieces(4, 500ms);
  EXPECT_THAT(pieces.Add("1234567890", kStart), ElementsAre("1234", "5678"));
  EXPECT_EQ(pieces.Rest(), "90");
}

TEST(OutputPieces, LineThatJustFills_IsNotHeld) {
  OutputPieces pieces(4, 500ms);
  EXPECT_THAT(pieces.Add("1234", kStart), ElementsAre("1234"));
  EXPECT_FALSE(pieces.IsHolding());
}

TEST(OutputPieces, UnfinishedLine_IsDueAfterItsTimeCountedFromItsFirstByte) {
  OutputPieces pieces(100, 500ms);
  EXPECT_THAT(pieces.Add("a", kStart), IsEmpty());
  EXPECT_THAT(pieces.Add("b", kStart + 400ms), IsEmpty());
  EXPECT_EQ(pieces.due_time(), kStart + 500ms);
  EXPECT_EQ(pieces.Due(kStart + 499ms), "");
  EXPECT_EQ(pieces.Due(kStart + 500ms), "ab");
  EXPECT_FALSE(pieces.IsHolding());
}

TEST(OutputPieces, RestBehindALine_StartsItsOwnTime) {
  OutputPieces pieces(100, 500ms);
  pieces.Add("a", kStart);
  pieces.Add("\nb", kStart + 400ms);
  EXPECT_EQ(pieces.Due(kStart + 899ms), "");
  EXPECT_EQ(pieces.Due(kStart + 900ms), "b");
}

}  // namespace
}  // namespace discwright::host
