// Waits for other processes: WaitUntil() with a limit that is long enough for slow machines.
#pragma once

#include <chrono>
#include <thread>

namespace discwright::testing {

inline constexpr auto kPatience = std::chrono::seconds(120);

// Calls `happened` every millisecond until it returns true. Returns false after kPatience.
template <typename Condition>
bool WaitUntil(const Condition& happened) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!happened()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

}  // namespace discwright::testing
