// The memory of the machine as the BIOS describes it, and room in it for what the loader loads. Add every range, then
// ask HighestRoom.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace discwright::loader {

// One entry of the map, as INT 15h, function E820h, returns it.
struct MemoryRange {
  std::uint64_t base = 0;
  std::uint64_t length = 0;
  std::uint32_t type = 0;  // 1: free memory; every other value: not to be used
};

inline constexpr std::uint32_t kFreeMemory = 1;

// A piece of memory below 4 GB. `end` is the address behind its last byte.
struct Room {
  std::uint32_t begin = 0;
  std::uint32_t end = 0;
};

class MemoryMap {
 public:
  static constexpr std::size_t kCapacity = 64;

  // Ranges may overlap and come in any order. Returns false when the map is full. A range that is left out could only
  // be missed if it is free; so the caller must stop using the map when a range that is not free does not fit.
  bool Add(const MemoryRange& range);
  std::span<const MemoryRange> ranges() const { return {ranges_.data(), count_}; }

  // The highest piece of `size` bytes that lies in one free range, overlaps no range that is not free, begins at a
  // multiple of `alignment` (a power of two), and lies from `lowest` to below `end`. Empty when there is none.
  std::optional<Room> HighestRoom(std::uint32_t size, std::uint32_t alignment, std::uint32_t lowest,
                                  std::uint32_t end) const;

  // The free bytes of all ranges, rounded down to KB, for the overview. Overlapping ranges are counted twice.
  std::uint64_t FreeKilobytes() const;

 private:
  // The lowest address of what is not free and overlaps the piece; empty when nothing does.
  std::optional<std::uint64_t> FirstTaken(std::uint64_t begin, std::uint64_t end) const;

  std::array<MemoryRange, kCapacity> ranges_{};
  std::size_t count_ = 0;
};

}  // namespace discwright::loader
