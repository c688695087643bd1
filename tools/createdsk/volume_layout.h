// Describes where every part of a FAT12 volume is in its image. ReadLayout takes the layout from the parameter block.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "tools/createdsk/boot_sector.h"
#include "tools/createdsk/disk_format.h"
#include "tools/result.h"

namespace discwright::tools {

inline constexpr std::size_t kRecordBytes = 32;  // size of a directory entry

// The fields count sectors, copies and entries. The offsets are in bytes from the start of the image.
struct VolumeLayout {
  std::size_t sectors_per_cluster = 0;
  std::size_t reserved_sectors = 0;
  std::size_t fat_count = 0;
  std::size_t fat_sectors = 0;
  std::size_t root_entries = 0;
  std::size_t total_sectors = 0;
  std::uint8_t media = 0;

  std::size_t ClusterBytes() const { return sectors_per_cluster * kSectorBytes; }
  std::size_t FatBytes() const { return fat_sectors * kSectorBytes; }
  std::size_t FatOffset(std::size_t copy) const { return (reserved_sectors + copy * fat_sectors) * kSectorBytes; }
  std::size_t RootOffset() const { return FatOffset(fat_count); }
  std::size_t FirstDataSector() const;
  std::size_t ClusterCount() const;
  // The first cluster of the data area has the number 2, as in the FAT.
  std::size_t ClusterOffset(std::size_t cluster) const {
    return (FirstDataSector() + (cluster - 2) * sectors_per_cluster) * kSectorBytes;
  }
};

// Reads the layout from the boot sector. Fails when the parameter block does not describe a FAT12 volume that fills
// `image` exactly. After success every offset above is inside the image. The sentence of a failure has no subject: the
// caller puts the name of the image before it.
Result ReadLayout(std::span<const std::uint8_t> image, VolumeLayout& layout);

}  // namespace discwright::tools
