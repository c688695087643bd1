// Which memory the machine has, as its BIOS tells it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace discwright::loader {

// A piece of memory, as function E820h of INT 15h describes it.
struct MemoryRange {
  static constexpr std::uint32_t kUsable = 1;

  std::uint64_t start;
  std::uint64_t size;  // bytes
  std::uint32_t kind;  // kUsable, or memory that is not free
};

// Stores the ranges and returns how many there are; what does not fit is left out. On machines that do not know E820h,
// these are the memory below 640 KB and the one from 1 MB on, of at most 64 MB.
[[nodiscard]] std::size_t ReadMemoryMap(std::span<MemoryRange> to);

}  // namespace discwright::loader
