// Waits in tests of the host: Eventually() for another thread or program, Pause() for a time.
#pragma once

#include <chrono>
#include <mutex>

#include "host/threads.h"

namespace discwright::host::testing {

inline constexpr int kFarTooLong = 60000;  // milliseconds; only a test that fails waits this long

// At least about so long.
inline void Pause(int milliseconds) {
  Mutex mutex;
  Condition never;
  const std::lock_guard lock(mutex);
  never.WaitFor(mutex, milliseconds);
}

// Waits for something that another program does and that nothing tells about.
template <typename Wanted>
bool Eventually(Wanted wanted) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kFarTooLong);
  while (!wanted()) {
    if (std::chrono::steady_clock::now() > end) return false;
    Pause(5);
  }
  return true;
}

}  // namespace discwright::host::testing
