// Tests of waking a wait, and of facts about the console.
#include "host/console.h"

#include "host/threads.h"
#include "tests/host/waking.h"

namespace discwright::host {
namespace {

using testing::EndsEarly;
using testing::kFarTooLong;
using Console = testing::Waking;
using namespace std::chrono_literals;

TEST_F(Console, FlagSetBefore_EndsTheWaitAtOnce) {
  SetWakeUp();
  EXPECT_TRUE(EndsEarly(kFarTooLong));
}

TEST_F(Console, FlagSetByAnotherThread_EndsTheWait) {
  Thread other([] {
    testing::Pause(20);
    SetWakeUp();
  });
  EXPECT_TRUE(EndsEarly(kFarTooLong));
  other.Join();
}

TEST_F(Console, FlagSetSeveralTimes_EndsOneWaitOnly) {
  for (int i = 0; i < 3; ++i) SetWakeUp();
  WaitForWakeUp(kFarTooLong);
  const auto start = std::chrono::steady_clock::now();
  WaitForWakeUp(50);
  EXPECT_GE(std::chrono::steady_clock::now() - start, 40ms);  // some systems count in ticks
}

TEST_F(Console, Zero_OnlyLooks) {
  const auto start = std::chrono::steady_clock::now();
  WaitForWakeUp(0);
  WaitForWakeUp(-1);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 30s);
}

TEST_F(Console, TerminalWidth_IsPositiveWithOrWithoutATerminal) { EXPECT_GT(TerminalWidth(), 0); }

}  // namespace
}  // namespace discwright::host
