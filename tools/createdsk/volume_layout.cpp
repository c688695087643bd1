// Reads and checks the layout fields of the parameter block.
#include "tools/createdsk/volume_layout.h"

#include <bit>

#include "base/byte_order.h"

namespace discwright::tools {
namespace {

constexpr std::size_t kLargestFat12 = 4084;  // clusters; with more the volume is FAT16

// Returns why a field cannot be used. The text is empty when the sizes can safely be computed from all fields.
std::string WrongField(const ParameterBlock& block, const VolumeLayout& layout) {
  if (base::LoadLe16(block.bytes_per_sector) != kSectorBytes) return "BPB_BytsPerSec is not 512";
  if (!std::has_single_bit(layout.sectors_per_cluster)) return "BPB_SecPerClus is not a power of two";
  if (layout.reserved_sectors == 0) return "BPB_RsvdSecCnt is 0";
  if (layout.fat_count == 0) return "BPB_NumFATs is 0";
  if (layout.fat_sectors == 0) return "BPB_FATSz16 is 0";
  if (layout.root_entries == 0) return "BPB_RootEntCnt is 0";
  if (layout.media < 0xF0) return "BPB_Media is below F0h";
  return "";
}

// Returns why the sizes do not fit together. The text is empty when they do.
std::string WrongSize(const VolumeLayout& layout, std::size_t image_bytes) {
  if (layout.total_sectors * kSectorBytes != image_bytes) return "its number of sectors is not that of the image";
  if (layout.FirstDataSector() + layout.sectors_per_cluster > layout.total_sectors) return "it has no room for files";
  if (layout.ClusterCount() > kLargestFat12) return "it has too many clusters";
  if (layout.FatBytes() * 2 < (layout.ClusterCount() + 2) * 3) return "its FAT is too short for its clusters";
  return "";
}

}  // namespace

std::size_t VolumeLayout::FirstDataSector() const {
  const std::size_t root_sectors = (root_entries * kRecordBytes + kSectorBytes - 1) / kSectorBytes;
  return reserved_sectors + fat_count * fat_sectors + root_sectors;
}

std::size_t VolumeLayout::ClusterCount() const { return (total_sectors - FirstDataSector()) / sectors_per_cluster; }

Result ReadLayout(std::span<const std::uint8_t> image, VolumeLayout& layout) {
  if (image.size() < kSectorBytes || !HasBootSignature(image)) {
    return Result::Failure("is not a FAT12 floppy: the boot sector does not end with 55 AA");
  }
  const ParameterBlock block = LoadParameterBlock(image);
  const std::uint16_t total_sectors = base::LoadLe16(block.total_sectors_16);
  layout.sectors_per_cluster = block.sectors_per_cluster;
  layout.reserved_sectors = base::LoadLe16(block.reserved_sectors);
  layout.fat_count = block.fat_count;
  layout.fat_sectors = base::LoadLe16(block.fat_sectors);
  layout.root_entries = base::LoadLe16(block.root_entries);
  layout.total_sectors = total_sectors != 0 ? total_sectors : base::LoadLe32(block.total_sectors_32);
  layout.media = block.media;

  std::string wrong = WrongField(block, layout);
  if (wrong.empty()) wrong = WrongSize(layout, image.size());
  return wrong.empty() ? Result::Success() : Result::Failure("is not a FAT12 floppy: " + wrong);
}

}  // namespace discwright::tools
