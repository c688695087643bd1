// Path tables: every folder in one list, so that a reader finds one without walking the directories.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs {

enum class ByteOrder { kLittle, kBig };  // the L and the M path table

// ECMA-119 9.4, up to the name.
struct PathTableRecordHead {
  std::array<std::uint8_t, 1> name_length;
  std::array<std::uint8_t, 1> extended_attribute_length;
  std::array<std::uint8_t, 4> extent;
  std::array<std::uint8_t, 2> parent_number;
};
static_assert(sizeof(PathTableRecordHead) == 8);

// Bytes of one table, without padding.
std::uint64_t PathTableSize(const Tree& tree);

// One table, without padding. Everything must have been placed.
std::vector<std::uint8_t> MakePathTable(const Tree& tree, ByteOrder order);

}  // namespace discwright::tools::mkisofs
