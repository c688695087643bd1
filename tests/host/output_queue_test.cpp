// Tests of cutting output into pieces, and of passing the pieces from one thread to another.
#include "host/output_queue.h"

#include <gmock/gmock.h>

#include <new>

#include "tests/host/waiting.h"

namespace discwright::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace std::chrono_literals;

constexpr OutputQueue::Clock::time_point kStart{};

class OutputQueueTest : public ::testing::Test {
 protected:
  void Make(std::size_t largest) {
    queue_ = std::make_unique<OutputQueue>(largest, 500ms, [this] { ++wakes_; });
  }
  std::vector<std::string> TakeAll() {
    std::vector<std::string> pieces;
    while (auto piece = queue_->Take()) pieces.push_back(*piece);
    return pieces;
  }
  bool IsHolding() const { return queue_->MillisecondsToWait(kStart + 1ms) < 500; }

  std::unique_ptr<OutputQueue> queue_;
  std::atomic<int> wakes_ = 0;
};

TEST_F(OutputQueueTest, FinishedLines_ArePassedOnAndTheRestIsHeld) {
  Make(100);
  queue_->Add("one\ntwo\nthr", kStart);
  EXPECT_THAT(TakeAll(), ElementsAre("one\ntwo\n"));
  EXPECT_TRUE(IsHolding());
  queue_->Add("ee\n", kStart);
  EXPECT_THAT(TakeAll(), ElementsAre("three\n"));
  EXPECT_FALSE(IsHolding());
}

TEST_F(OutputQueueTest, MoreThanTheLargestPiece_IsCutAtTheLastLineEndThatFits) {
  Make(10);
  queue_->Add("1234\n6789\n1234\nab", kStart);
  EXPECT_THAT(TakeAll(), ElementsAre("1234\n6789\n", "1234\n"));
  queue_->AddEnd({});
  EXPECT_THAT(TakeAll(), ElementsAre("ab"));
}

TEST_F(OutputQueueTest, LineLongerThanTheLargestPiece_IsCutAnywhere) {
  Make(4);
  queue_->Add("1234567890", kStart);
  queue_->AddEnd({});
  EXPECT_THAT(TakeAll(), ElementsAre("1234", "5678", "90"));
}

TEST_F(OutputQueueTest, FailureOfTheReadingThread_IsThrownAfterTheLastPiece) {
  Make(4);
  queue_->Add("1234", kStart);
  queue_->AddFailure(std::make_exception_ptr(std::bad_alloc()));
  EXPECT_FALSE(queue_->TakeEnd().has_value());
  EXPECT_THAT(TakeAll(), ElementsAre("1234"));
  EXPECT_THROW(queue_->TakeEnd(), std::bad_alloc);
}

TEST_F(OutputQueueTest, LineThatJustFills_IsNotHeld) {
  Make(4);
  queue_->Add("1234", kStart);
  EXPECT_THAT(TakeAll(), ElementsAre("1234"));
  EXPECT_FALSE(IsHolding());
}

TEST_F(OutputQueueTest, UnfinishedLine_IsDueAfterItsTimeCountedFromItsFirstByte) {
  Make(100);
  queue_->Add("a", kStart);
  queue_->Add("b", kStart + 400ms);
  EXPECT_EQ(queue_->MillisecondsToWait(kStart + 400ms), 100);
  EXPECT_EQ(queue_->MillisecondsToWait(kStart + 600ms), 0);
  queue_->Add("", kStart + 499ms);
  EXPECT_THAT(TakeAll(), IsEmpty());
  queue_->Add("", kStart + 500ms);
  EXPECT_THAT(TakeAll(), ElementsAre("ab"));
  EXPECT_FALSE(IsHolding());
}

TEST_F(OutputQueueTest, RestBehindALine_StartsItsOwnTime) {
  Make(100);
  queue_->Add("a", kStart);
  queue_->Add("\nb", kStart + 400ms);
  EXPECT_THAT(TakeAll(), ElementsAre("a\n"));
  queue_->Add("", kStart + 899ms);
  EXPECT_THAT(TakeAll(), IsEmpty());
  queue_->Add("", kStart + 900ms);
  EXPECT_THAT(TakeAll(), ElementsAre("b"));
}

TEST_F(OutputQueueTest, EachPieceAndTheEnd_Wake) {
  Make(4);
  queue_->Add("1234", kStart);
  EXPECT_EQ(wakes_, 1);
  queue_->Add("a", kStart);
  EXPECT_EQ(wakes_, 1);
  queue_->AddEnd({});
  EXPECT_EQ(wakes_, 3);
}

TEST_F(OutputQueueTest, End_ComesOnceAndAfterTheLastPiece) {
  Make(4);
  EXPECT_FALSE(queue_->TakeEnd());
  queue_->Add("1234", kStart);
  queue_->AddEnd({3, ""});
  EXPECT_FALSE(queue_->TakeEnd());
  TakeAll();
  const std::optional<ProcessEnd> end = queue_->TakeEnd();
  ASSERT_TRUE(end);
  EXPECT_EQ(end->exit_code, 3);
  EXPECT_FALSE(queue_->TakeEnd());
}

TEST_F(OutputQueueTest, FullQueue_WaitsUntilAPieceIsTaken) {
  Make(1);
  Thread reader([this] { queue_->Add(std::string(65, 'x'), kStart); });
  EXPECT_TRUE(testing::Eventually([this] { return queue_->PieceCount() == 64; }));
  testing::Pause(20);
  EXPECT_EQ(wakes_, 64);
  EXPECT_TRUE(queue_->Take());
  reader.Join();
  EXPECT_EQ(queue_->PieceCount(), 64U);
}

TEST_F(OutputQueueTest, ReleaseOfAFullQueue_LetsTheReaderGoAndDropsAll) {
  Make(1);
  Thread reader([this] {
    queue_->Add(std::string(100, 'x'), kStart);
    queue_->AddEnd({});
  });
  EXPECT_TRUE(testing::Eventually([this] { return queue_->PieceCount() == 64; }));
  queue_->Release();
  reader.Join();
  EXPECT_EQ(wakes_, 64);
  EXPECT_THAT(TakeAll(), IsEmpty());
  EXPECT_FALSE(queue_->TakeEnd());
}

}  // namespace
}  // namespace discwright::host
