// Finds and reads the files of a floppy (FAT12, as Microsoft's "FAT: General Overview of On-Disk Format" describes it).
// The sectors of the volume have kFloppySectorSize bytes.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "boot/loader/sectors.h"
#include "boot/loader/volume.h"

namespace discwright::loader {

// The files of one floppy. This reader knows short names (8.3) only; it skips long names and volume labels.
class FatVolume final : public Volume {
 public:
  // The largest file allocation table of FAT12.
  static constexpr std::size_t kTableSectors = 12;
  static constexpr std::size_t kLeastBuffer = (kTableSectors + 1) * kFloppySectorSize;

  // `buffer` has kLeastBuffer bytes or more and must outlive the volume, which keeps the file allocation table in it.
  // The larger it is, the more sectors of a folder are read at once.
  FatVolume(Sectors& sectors, std::span<std::uint8_t> buffer);

  [[nodiscard]] Medium medium() const override { return Medium::kFloppy; }
  [[nodiscard]] VolumeError Open() override;
  [[nodiscard]] VolumeError Find(std::string_view path, VolumeEntry& found) override;
  [[nodiscard]] VolumeError Read(const VolumeEntry& file, std::uint32_t offset, std::span<std::uint8_t> to) override;

 private:
  struct Search;

  VolumeError ReadTable(std::uint32_t first, std::uint32_t copies, std::uint32_t sectors_per_copy);
  [[nodiscard]] bool IsCluster(std::uint32_t number) const;
  [[nodiscard]] std::uint32_t Next(std::uint32_t cluster) const;
  [[nodiscard]] std::uint32_t ChainLength(std::uint32_t first) const;
  [[nodiscard]] std::uint32_t SectorOf(std::uint32_t cluster) const;
  [[nodiscard]] std::uint32_t ClusterBytes() const;
  VolumeError SearchFolder(const VolumeEntry& folder, Search& search);
  VolumeError SearchSectors(std::uint32_t sector, std::uint32_t count, Search& search);

  Sectors& sectors_;
  std::span<std::uint8_t> table_;   // the file allocation table
  std::span<std::uint8_t> buffer_;  // whole sectors
  std::uint32_t root_sector_ = 0;   // of the root folder
  std::uint32_t root_sectors_ = 0;
  std::uint32_t data_sector_ = 0;    // of the first cluster
  std::uint32_t cluster_count_ = 0;  // 0 as long as the volume is not open
  std::uint32_t cluster_sectors_ = 0;
};

}  // namespace discwright::loader
