// Waking, and text for whoever reads it. Ctrl-C is tried with whole programs.
#include "host/console.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>

#include "host/threads.h"
#include "host/win32/ansi.h"

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
  Thread other([] {
    Sleep(20);
    SetWakeUp();
  });
  EXPECT_TRUE(EndsEarly(kFarTooLong));
  other.Join();
}

TEST_F(Console, FlagSetSeveralTimes_EndsOneWaitOnly) {
  for (int i = 0; i < 3; ++i) SetWakeUp();
  WaitForWakeUp(kFarTooLong);
  const auto start = Clock::now();
  WaitForWakeUp(50);
  EXPECT_GE(Clock::now() - start, 40ms);
}

TEST_F(Console, Zero_OnlyLooks) {
  const auto start = Clock::now();
  WaitForWakeUp(0);
  WaitForWakeUp(-1);
  EXPECT_LT(Clock::now() - start, 30s);
}

TEST_F(Console, TerminalWidth_IsPositiveWhateverStandardErrorIs) { EXPECT_GT(TerminalWidth(), 0); }

TEST(NearestInCodePage, TextsThatThePageHolds_AreItsBytes) {
  EXPECT_EQ(NearestInCodePage("Größe", 1252),
            "Gr\xF6\xDF"
            "e");
  EXPECT_EQ(NearestInCodePage("Größe", 850),
            "Gr\x94\xE1"
            "e");
  EXPECT_EQ(NearestInCodePage("", 1252), "");
}

TEST(NearestInCodePage, WhatThePageLacks_IsAQuestionMark) {
  EXPECT_EQ(NearestInCodePage("日", 1252), "?");
  EXPECT_EQ(NearestInCodePage("a\xFF"
                              "b",
                              1252),
            "a?b");
}

}  // namespace
}  // namespace discwright::host
