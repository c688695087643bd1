// Sectors, the unit in which an image is laid out, and the bytes of a record.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <type_traits>

namespace discwright::tools::mkisofs {

inline constexpr std::uint32_t kSectorSize = 2048;  // bytes; logical sector and logical block: ECMA-119 6.1.2, 6.2.2

constexpr std::uint64_t SectorsFor(std::uint64_t bytes) { return (bytes + kSectorSize - 1) / kSectorSize; }

// A record made of byte arrays, as it stands on the disc.
template <class Record>
std::array<std::uint8_t, sizeof(Record)> BytesOf(const Record& record) {
  static_assert(alignof(Record) == 1 && std::is_trivially_copyable_v<Record>);
  return std::bit_cast<std::array<std::uint8_t, sizeof(Record)>>(record);
}

}  // namespace discwright::tools::mkisofs
