// Describes the directory entry of a FAT volume, which has 32 bytes. MakeRecord and SetContent fill in an entry, KindOf
// classifies one.
#pragma once

#include <array>
#include <cstdint>

#include "tools/createdsk/fat_table.h"
#include "tools/createdsk/short_name.h"
#include "tools/createdsk/volume_layout.h"

namespace discwright::tools {

// The bytes of an entry (FAT specification 1.03, "FAT Directory Structure").
struct DirectoryRecord {
  ShortName name;                                  // DIR_Name
  std::uint8_t attributes;                         // DIR_Attr
  std::uint8_t reserved;                           // DIR_NTRes
  std::uint8_t creation_tenths;                    // DIR_CrtTimeTenth
  std::array<std::uint8_t, 2> creation_time;       // DIR_CrtTime
  std::array<std::uint8_t, 2> creation_date;       // DIR_CrtDate
  std::array<std::uint8_t, 2> access_date;         // DIR_LstAccDate
  std::array<std::uint8_t, 2> first_cluster_high;  // DIR_FstClusHI, unused on FAT12
  std::array<std::uint8_t, 2> write_time;          // DIR_WrtTime
  std::array<std::uint8_t, 2> write_date;          // DIR_WrtDate
  std::array<std::uint8_t, 2> first_cluster;       // DIR_FstClusLO
  std::array<std::uint8_t, 4> size;                // DIR_FileSize
};
static_assert(sizeof(DirectoryRecord) == kRecordBytes);

inline constexpr std::uint8_t kSystemFileAttributes = 0x07;  // read-only, hidden and system
inline constexpr std::uint8_t kVolumeLabelAttribute = 0x08;
inline constexpr std::uint8_t kFolderAttribute = 0x10;
inline constexpr std::uint8_t kArchiveAttribute = 0x20;

// The date of every entry that CreateDsk writes: 2000-01-01 0:00. A fixed date makes equal profiles give equal images.
inline constexpr std::uint16_t kRecordDate = 20 << 9 | 1 << 5 | 1;

inline constexpr ShortName kDot = {'.', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '};
inline constexpr ShortName kDotDot = {'.', '.', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '};

enum class RecordKind {
  kEnd,  // the first entry that was never used; all after it are unused, too
  kDeleted,
  kFile,
  kFolder,
  kLabel,
  kLongName,  // a part of the long name of a later entry
};
RecordKind KindOf(const DirectoryRecord& record);

// Returns a record of size 0 that has no clusters.
DirectoryRecord MakeRecord(const ShortName& name, std::uint8_t attributes);

// Sets the first cluster and the size in bytes. `first` is 0 for an empty file and for the root folder, `size` is 0 for
// every folder.
void SetContent(DirectoryRecord& record, Cluster first, std::uint32_t size);

}  // namespace discwright::tools
