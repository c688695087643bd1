// The fixture for tests of WaitForWakeUp().
#pragma once

#include <gtest/gtest.h>

#include <chrono>

#include "host/console.h"
#include "tests/host/waiting.h"

namespace discwright::host::testing {

inline bool EndsEarly(int milliseconds) {
  const auto start = std::chrono::steady_clock::now();
  WaitForWakeUp(milliseconds);
  return std::chrono::steady_clock::now() - start < std::chrono::milliseconds(milliseconds) / 2;
}

class Waking : public ::testing::Test {
 protected:
  Waking() { WaitForWakeUp(0); }  // whatever another test has set
};

}  // namespace discwright::host::testing
