// Computes the size of a directory (ECMA-119 6.8) and makes its records, one for each entry of a folder. The sizing
// pass calls DirectorySize, the writing pass calls AppendDirectory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs {

// The first two records of a directory are the folder itself and its parent, under these names (ECMA-119 6.8.2.2).
inline constexpr std::string_view kSelf("\0", 1);
inline constexpr std::string_view kParent("\1", 1);

// The fixed part of a directory record; the name follows it (ECMA-119 9.1).
struct DirectoryRecordHead {
  std::array<std::uint8_t, 1> length;
  std::array<std::uint8_t, 1> extended_attribute_length;
  std::array<std::uint8_t, 8> extent;       // both-endian sector
  std::array<std::uint8_t, 8> data_length;  // both-endian bytes
  std::array<std::uint8_t, 7> recorded;
  std::array<std::uint8_t, 1> flags;
  std::array<std::uint8_t, 1> unit_size;  // unit and gap are for interleaved files; 0 in these images
  std::array<std::uint8_t, 1> gap_size;
  std::array<std::uint8_t, 4> volume_number;  // both-endian
  std::array<std::uint8_t, 1> name_length;
};
static_assert(sizeof(DirectoryRecordHead) == 33);

// Returns the length of a record in bytes, including the padding byte that makes it even (ECMA-119 9.1.12).
constexpr std::size_t DirectoryRecordLength(std::size_t name_length) {
  return sizeof(DirectoryRecordHead) + name_length + (name_length % 2 == 0 ? 1 : 0);
}

// The latest date that a record may show. SOURCE_DATE_EPOCH sets it, so that copies of a tree give the same image.
using TimeLimit = std::int64_t;  // seconds since 1970-01-01 00:00 UTC
inline constexpr TimeLimit kNoTimeLimit = std::numeric_limits<TimeLimit>::max();

DirectoryRecordHead MakeDirectoryRecordHead(const Node& node, std::size_t name_length, TimeLimit limit);

// Returns the size of a folder's directory in bytes. It is a number of whole sectors, because no record may cross the
// border between two sectors.
std::uint64_t DirectorySize(const Tree& tree, const Folder& folder);

// Appends the directory of `folder` to `bytes`: its records, padded with zeros to whole sectors. No record shows a
// later date than `limit`. PlaceEverything must have set all extents before.
void AppendDirectory(const Tree& tree, const Folder& folder, TimeLimit limit, std::vector<std::uint8_t>& bytes);

}  // namespace discwright::tools::mkisofs
