// Defines the sector, the unit in which an image is laid out. BytesOf turns a record struct into the bytes on the disc.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <type_traits>

namespace discwright::tools::mkisofs {

// In bytes. Both the logical sector and the logical block have this size (ECMA-119 6.1.2, 6.2.2).
inline constexpr std::uint32_t kSectorSize = 2048;

constexpr std::uint64_t SectorsFor(std::uint64_t bytes) { return (bytes + kSectorSize - 1) / kSectorSize; }

// Returns the bytes of a record. `Record` is a struct of byte arrays in the order of the standard.
template <class Record>
std::array<std::uint8_t, sizeof(Record)> BytesOf(const Record& record) {
  static_assert(alignof(Record) == 1 && std::is_trivially_copyable_v<Record>);
  return std::bit_cast<std::array<std::uint8_t, sizeof(Record)>>(record);
}

}  // namespace discwright::tools::mkisofs
