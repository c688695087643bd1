// Random bytes as the sectors of a volume, for the fuzz targets of the loader's readers.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "boot/loader/sectors.h"

namespace discwright::testing {

// Ends the fuzzing with an error if a promise is broken.
inline void Require(bool promise) {
  if (!promise) std::abort();
}

class FuzzedSectors final : public loader::Sectors {
 public:
  // `bytes` begin at the sector `first`. All other sectors are unreadable.
  FuzzedSectors(std::span<const std::uint8_t> bytes, std::size_t sector_size, std::uint32_t first)
      : bytes_(bytes), sector_size_(sector_size), first_(first) {}

  bool Read(std::uint32_t sector, std::span<std::uint8_t> to) override {
    Require(!to.empty() && to.size() % sector_size_ == 0);
    if (sector < first_) return false;
    const std::size_t from = std::size_t{sector - first_} * sector_size_;
    if (from > bytes_.size() || to.size() > bytes_.size() - from) return false;
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(from), to.size(), to.begin());
    return true;
  }

 private:
  std::span<const std::uint8_t> bytes_;
  std::size_t sector_size_;
  std::uint32_t first_;
};

}  // namespace discwright::testing
