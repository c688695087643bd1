// Directories: the records of what stands in a folder.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

#include "tools/mkisofs/tree.h"

namespace discwright::tools::mkisofs {

inline constexpr std::string_view kSelf("\0", 1);  // what a folder and its parent are called in its own directory
inline constexpr std::string_view kParent("\1", 1);

// ECMA-119 9.1, up to the name.
struct DirectoryRecordHead {
  std::array<std::uint8_t, 1> length;
  std::array<std::uint8_t, 1> extended_attribute_length;
  std::array<std::uint8_t, 8> extent;       // both-endian sector
  std::array<std::uint8_t, 8> data_length;  // both-endian bytes
  std::array<std::uint8_t, 7> recorded;
  std::array<std::uint8_t, 1> flags;
  std::array<std::uint8_t, 1> unit_size;  // of interleaved files, as is the gap
  std::array<std::uint8_t, 1> gap_size;
  std::array<std::uint8_t, 4> volume_number;  // both-endian
  std::array<std::uint8_t, 1> name_length;
};
static_assert(sizeof(DirectoryRecordHead) == 33);

// ECMA-119 9.1.12: with the byte that makes the length even.
constexpr std::size_t DirectoryRecordLength(std::size_t name_length) {
  return sizeof(DirectoryRecordHead) + name_length + (name_length % 2 == 0 ? 1 : 0);
}

// The latest time that a record may have, so that images do not depend on when their files were copied.
using TimeLimit = std::int64_t;  // seconds since 1970-01-01 00:00 UTC
inline constexpr TimeLimit kNoTimeLimit = std::numeric_limits<TimeLimit>::max();

DirectoryRecordHead MakeDirectoryRecordHead(const Node& node, std::size_t name_length, TimeLimit limit);

// Bytes of a folder's directory: whole sectors, no record crosses from one into the next.
std::uint64_t DirectorySize(const Tree& tree, const Folder& folder);

// Appends a folder's directory, padded to whole sectors. Everything must have been placed.
void AppendDirectory(const Tree& tree, const Folder& folder, TimeLimit limit, std::vector<std::uint8_t>& bytes);

}  // namespace discwright::tools::mkisofs
