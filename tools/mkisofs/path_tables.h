// Path tables (ECMA-119 6.9): all folders in one list, with which a reader finds a folder without walking the
// directories. The sizing pass calls PathTableSize, the writing pass MakePathTable for each byte order.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs {

enum class ByteOrder { kLittle, kBig };  // of the L and the M path table

// The fixed part of a path table record; the name follows it (ECMA-119 9.4).
struct PathTableRecordHead {
  std::array<std::uint8_t, 1> name_length;
  std::array<std::uint8_t, 1> extended_attribute_length;
  std::array<std::uint8_t, 4> extent;
  std::array<std::uint8_t, 2> parent_number;
};
static_assert(sizeof(PathTableRecordHead) == 8);

// Bytes of one table, without padding.
std::uint64_t PathTableSize(const Tree& tree);

// One table, without padding. PlaceEverything must have set all extents.
std::vector<std::uint8_t> MakePathTable(const Tree& tree, ByteOrder order);

}  // namespace discwright::tools::mkisofs
