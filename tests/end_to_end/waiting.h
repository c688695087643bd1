// Waiting for what other processes do: generous, because a machine may be slow, and never without an end.
#pragma once

#include <chrono>
#include <thread>

namespace discwright::testing {

inline constexpr auto kPatience = std::chrono::seconds(120);

// Looks every millisecond until `happened` is true; false when kPatience was not enough.
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
