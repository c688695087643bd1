// Waking and Ctrl-C.
#include "host/console.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

namespace discwright::host {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr int kFarTooLong = 60000;  // milliseconds; only a test that fails waits this long

bool EndsEarly(int milliseconds) {
  const auto start = Clock::now();
  WaitForWakeUp(milliseconds);
  return Clock::now() - start < std::chrono::milliseconds(milliseconds) / 2;
}

class Console : public ::testing::Test {
 protected:
  Console() { WaitForWakeUp(0); }  // whatever another test has set
};

TEST_F(Console, FlagSetBefore_EndsTheWaitAtOnce) {
  SetWakeUp();
  EXPECT_TRUE(EndsEarly(kFarTooLong));
}

TEST_F(Console, FlagSetByAnotherThread_EndsTheWait) {
  std::thread other([] {
    std::this_thread::sleep_for(20ms);
    SetWakeUp();
  });
  EXPECT_TRUE(EndsEarly(kFarTooLong));
  other.join();
}

TEST_F(Console, FlagSetSeveralTimes_EndsOneWaitOnly) {
  for (int i = 0; i < 3; ++i) SetWakeUp();
  WaitForWakeUp(kFarTooLong);
  const auto start = Clock::now();
  WaitForWakeUp(50);
  EXPECT_GE(Clock::now() - start, 49ms);
}

TEST_F(Console, Zero_OnlyLooks) {
  EXPECT_TRUE([] {
    const auto start = Clock::now();
    WaitForWakeUp(0);
    WaitForWakeUp(-1);
    return Clock::now() - start < 30s;
  }());
}

TEST_F(Console, InterruptsAndRequestsToTerminate_AreCountedAndWake) {
  CatchInterrupts();
  const int before = InterruptCount();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    std::raise(signal);
    EXPECT_TRUE(EndsEarly(kFarTooLong)) << signal;
  }
  EXPECT_EQ(InterruptCount(), before + 3);
}

TEST_F(Console, InterruptDuringAWait_EndsIt) {
  CatchInterrupts();
  std::thread other([] {
    std::this_thread::sleep_for(20ms);
    kill(getpid(), SIGINT);
  });
  EXPECT_TRUE(EndsEarly(kFarTooLong));
  other.join();
}

TEST_F(Console, TerminalWidth_IsPositiveWhateverStandardErrorIs) { EXPECT_GT(TerminalWidth(), 0); }

}  // namespace
}  // namespace discwright::host
