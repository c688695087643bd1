// Sectors, the unit in which an image is laid out, and BytesOf, which turns a record struct into the bytes on the disc.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <type_traits>

namespace discwright::tools::mkisofs {

inline constexpr std::uint32_t kSectorSize =
    2048;  // bytes; both the logical sector and the logical block of ECMA-119 6.1.2, 6.2.2

constexpr std::uint64_t SectorsFor(std::uint64_t bytes) { return (bytes + kSectorSize - 1) / kSectorSize; }

// `Record` is a struct of byte arrays in the order of the standard.
template <class Record>
std::array<std::uint8_t, sizeof(Record)> BytesOf(const Record& record) {
  static_assert(alignof(Record) == 1 && std::is_trivially_copyable_v<Record>);
  return std::bit_cast<std::array<std::uint8_t, sizeof(Record)>>(record);
}

}  // namespace discwright::tools::mkisofs
