// Counts the ticks of the PC's clock across midnight, when the clock of the BIOS begins at 0 again.
#pragma once

#include <cstdint>

namespace discwright::loader {

class TickCount {
 public:
  // `clock`: the ticks since midnight.
  explicit TickCount(std::uint32_t clock) : last_(clock) {}

  // Returns the ticks since the count began. Call it at least once a day. At midnight it counts the new day's ticks
  // only.
  std::uint32_t At(std::uint32_t clock) {
    count_ += clock >= last_ ? clock - last_ : clock;
    last_ = clock;
    return count_;
  }

 private:
  std::uint32_t last_;
  std::uint32_t count_ = 0;
};

}  // namespace discwright::loader
