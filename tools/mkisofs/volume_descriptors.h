// Makes the volume descriptors (ECMA-119 8). They hold the disc's identifiers, its size, and the places of its root and
// of its path tables. The image writer stores a primary descriptor, an enhanced one and a terminator.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "tools/mkisofs/dates.h"
#include "tools/mkisofs/directory_records.h"
#include "tools/mkisofs/layout.h"
#include "tools/mkisofs/options.h"
#include "tools/mkisofs/sector.h"

namespace discwright::tools::mkisofs {

// The sizes, in bytes, of the text fields that the command line sets.
inline constexpr std::size_t kVolumeIdSize = 32;
inline constexpr std::size_t kTextSize = 128;

// The start of every volume descriptor (ECMA-119 8.1).
struct DescriptorHead {
  std::array<std::uint8_t, 1> type;
  std::array<std::uint8_t, 5> standard_id;  // "CD001"
  std::array<std::uint8_t, 1> version;
};
static_assert(sizeof(DescriptorHead) == 7);

// The primary descriptor (ECMA-119 8.4) and the enhanced one (ISO 9660:1999 8.5), which differ in type and version
// only.
struct VolumeDescriptor {
  DescriptorHead head;
  std::array<std::uint8_t, 1> volume_flags;
  std::array<std::uint8_t, 32> system_id;
  std::array<std::uint8_t, kVolumeIdSize> volume_id;
  std::array<std::uint8_t, 8> unused_73;
  std::array<std::uint8_t, 8> volume_space_size;  // both-endian sectors
  std::array<std::uint8_t, 32> escape_sequences;
  std::array<std::uint8_t, 4> volume_set_size;
  std::array<std::uint8_t, 4> volume_number;
  std::array<std::uint8_t, 4> block_size;
  std::array<std::uint8_t, 8> path_table_size;
  std::array<std::uint8_t, 4> path_table_l;
  std::array<std::uint8_t, 4> optional_path_table_l;
  std::array<std::uint8_t, 4> path_table_m;
  std::array<std::uint8_t, 4> optional_path_table_m;
  DirectoryRecordHead root;
  std::array<std::uint8_t, 1> root_name;
  std::array<std::uint8_t, 128> volume_set_id;
  std::array<std::uint8_t, kTextSize> publisher;
  std::array<std::uint8_t, kTextSize> preparer;
  std::array<std::uint8_t, kTextSize> application_id;
  std::array<std::uint8_t, 37> copyright_file;
  std::array<std::uint8_t, 37> abstract_file;
  std::array<std::uint8_t, 37> bibliographic_file;
  VolumeTime created;
  VolumeTime modified;
  VolumeTime expires;
  VolumeTime effective;
  std::array<std::uint8_t, 1> file_structure_version;
  std::array<std::uint8_t, 1> reserved_883;
  std::array<std::uint8_t, 512> application_use;
  std::array<std::uint8_t, 653> reserved_1396;
};
static_assert(sizeof(VolumeDescriptor) == kSectorSize);

enum class DescriptorKind { kPrimary, kEnhanced };

// The enhanced descriptor describes the same tree as the primary one. It tells readers that the names are long ones.
// `created` is the volume's date in seconds since 1970-01-01 00:00 UTC.
VolumeDescriptor MakeVolumeDescriptor(DescriptorKind kind, const Options& options, const Tree& tree,
                                      const Layout& layout, std::int64_t created, TimeLimit limit);

struct TerminatorDescriptor {
  DescriptorHead head;
  std::array<std::uint8_t, kSectorSize - sizeof(DescriptorHead)> reserved;
};
static_assert(sizeof(TerminatorDescriptor) == kSectorSize);

TerminatorDescriptor MakeTerminator();

DescriptorHead MakeDescriptorHead(std::uint8_t type, std::uint8_t version);

}  // namespace discwright::tools::mkisofs
