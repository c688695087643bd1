// Finds free memory. Each free range is searched from its end downwards, past everything that is not free.
#include "boot/loader/memory_map.h"

#include <algorithm>

namespace discwright::loader {

namespace {

// The end of a range. A range that would reach past the last address ends there.
std::uint64_t EndOf(const MemoryRange& range) {
  const std::uint64_t end = range.base + range.length;
  return end < range.base ? ~std::uint64_t{0} : end;
}

}  // namespace

bool MemoryMap::Add(const MemoryRange& range) {
  if (range.length == 0) return true;
  if (count_ == kCapacity) return false;
  ranges_[count_++] = range;
  return true;
}

std::optional<std::uint64_t> MemoryMap::FirstTaken(std::uint64_t begin, std::uint64_t end) const {
  std::optional<std::uint64_t> first;
  for (const MemoryRange& range : ranges()) {
    if (range.type == kFreeMemory || range.base >= end || EndOf(range) <= begin) continue;
    if (!first || range.base < *first) first = range.base;
  }
  return first;
}

std::optional<Room> MemoryMap::HighestRoom(std::uint32_t size, std::uint32_t alignment, std::uint32_t lowest,
                                           std::uint32_t end) const {
  std::optional<Room> best;
  for (const MemoryRange& range : ranges()) {
    if (range.type != kFreeMemory || size == 0) continue;
    const std::uint64_t from = std::max<std::uint64_t>(range.base, lowest);
    std::uint64_t to = std::min<std::uint64_t>(EndOf(range), end);
    // Every pass ends below the first address that is taken, so there are at most as many passes as ranges.
    while (to >= from && to - from >= size) {
      const std::uint64_t begin = (to - size) & ~(std::uint64_t{alignment} - 1);
      if (begin < from) break;
      const std::optional<std::uint64_t> taken = FirstTaken(begin, begin + size);
      if (!taken) {
        if (!best || begin > best->begin) {
          best = Room{static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(begin + size)};
        }
        break;
      }
      to = *taken;
    }
  }
  return best;
}

std::uint64_t MemoryMap::FreeKilobytes() const {
  constexpr unsigned kBytesPerKilobyte = 10;  // as a power of two
  std::uint64_t bytes = 0;
  for (const MemoryRange& range : ranges()) {
    if (range.type == kFreeMemory) bytes += EndOf(range) - range.base;
  }
  return bytes >> kBytesPerKilobyte;
}

}  // namespace discwright::loader
