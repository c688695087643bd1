// Makes path tables (ECMA-119 6.9). They list all folders, so that a reader finds a folder without walking the
// directories. The sizing pass calls PathTableSize, the writing pass calls MakePathTable for each byte order.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs {

enum class ByteOrder { kLittle, kBig };  // kLittle is for the L path table, kBig for the M path table

// The fixed part of a path table record; the name follows it (ECMA-119 9.4).
struct PathTableRecordHead {
  std::array<std::uint8_t, 1> name_length;
  std::array<std::uint8_t, 1> extended_attribute_length;
  std::array<std::uint8_t, 4> extent;
  std::array<std::uint8_t, 2> parent_number;
};
static_assert(sizeof(PathTableRecordHead) == 8);

// Returns the size of one table in bytes, without padding.
std::uint64_t PathTableSize(const Tree& tree);

// Returns one table, without padding. PlaceEverything must have set all extents before.
std::vector<std::uint8_t> MakePathTable(const Tree& tree, ByteOrder order);

}  // namespace discwright::tools::mkisofs
