// Takes the parameter block, the file allocation table and the folders of FAT12 apart. Every number of the floppy is
// checked before it is used, because the floppy may be damaged. The names in comments are those of Microsoft's
// document.
#include "boot/loader/fat12.h"

#include <algorithm>
#include <array>

#include "boot/loader/bytes.h"
#include "boot/loader/text.h"

namespace discwright::loader {

namespace {

constexpr std::uint32_t kFatSector = kFloppySectorSize;  // for computations in 32 bits
constexpr std::uint32_t kFirstCluster = 2;
constexpr std::uint32_t kMostClusters = 4084;  // more clusters make a FAT16

constexpr std::size_t kRecordSize = 32;  // of an entry of a folder
constexpr std::uint8_t kLastRecord = 0x00;
constexpr std::uint8_t kDeletedRecord = 0xE5;
constexpr std::uint8_t kStandsForE5 = 0x05;
constexpr std::uint8_t kLabelFlag = 0x08;  // long names have this flag, too
constexpr std::uint8_t kFolderFlag = 0x10;

// What the parameter block in the first sector says.
struct Block {
  std::uint32_t cluster_sectors = 0;
  std::uint32_t table_sector = 0;  // of the first file allocation table
  std::uint32_t table_copies = 0;
  std::uint32_t table_sectors = 0;
  std::uint32_t root_sectors = 0;
  std::uint32_t sector_count = 0;  // of the volume

  [[nodiscard]] std::uint32_t RootSector() const { return table_sector + table_copies * table_sectors; }
  [[nodiscard]] std::uint32_t DataSector() const { return RootSector() + root_sectors; }
};

VolumeError ParseBlock(std::span<const std::uint8_t> sector, Block& block) {
  const std::uint32_t sector_size = Number16(sector, 11);  // BPB_BytsPerSec
  const std::uint8_t media = sector[21];                   // BPB_Media
  block.cluster_sectors = sector[13];                      // BPB_SecPerClus
  block.table_sector = Number16(sector, 14);               // BPB_RsvdSecCnt
  block.table_copies = sector[16];                         // BPB_NumFATs
  block.table_sectors = Number16(sector, 22);              // BPB_FATSz16; FAT32 has 0 here
  const std::uint32_t root_bytes = Number16(sector, 17) * static_cast<std::uint32_t>(kRecordSize);  // BPB_RootEntCnt
  block.root_sectors = (root_bytes + kFatSector - 1) / kFatSector;
  block.sector_count = Number16(sector, 19);                               // BPB_TotSec16
  if (block.sector_count == 0) block.sector_count = Number32(sector, 32);  // BPB_TotSec32
  const bool is_power_of_two = (block.cluster_sectors & (block.cluster_sectors - 1)) == 0;
  if (block.cluster_sectors == 0 || !is_power_of_two || media < 0xF0) return VolumeError::kNoVolume;
  if (block.table_sector == 0 || block.table_copies == 0 || block.table_sectors == 0 || root_bytes == 0) {
    return VolumeError::kNoVolume;
  }
  return sector_size == kFatSector ? VolumeError::kNone : VolumeError::kBlockSize;
}

using ShortName = std::array<char, 11>;  // as a folder has it: without the period, filled up with blanks

// Puts a part of a name into its place. Returns false if it is too long.
bool PutPart(std::string_view part, std::span<char> place) {
  if (part.size() > place.size()) return false;
  for (std::size_t at = 0; at < place.size(); ++at) place[at] = at < part.size() ? UpperOf(part[at]) : ' ';
  return true;
}

// Returns false if no short name can be written like this.
bool ToShortName(std::string_view name, ShortName& result) {
  constexpr std::size_t kStem = 8;
  std::size_t period = 0;
  while (period < name.size() && name[period] != '.') ++period;
  return PutPart(Part(name, 0, period), std::span(result).first(kStem)) &&
         PutPart(Part(name, period + 1), std::span(result).subspan(kStem));
}

bool HasName(std::span<const std::uint8_t> record, const ShortName& name) {
  for (std::size_t at = 0; at < name.size(); ++at) {
    const std::uint8_t byte = at == 0 && record[0] == kStandsForE5 ? kDeletedRecord : record[at];
    if (UpperOf(static_cast<char>(byte)) != name[at]) return false;
  }
  return true;
}

}  // namespace

struct FatVolume::Search {
  ShortName name{};
  bool folders_only = false;
  VolumeEntry found;
  bool has_found = false;
  bool is_over = false;  // the entry was found, or the folder has ended

  void Look(std::span<const std::uint8_t> record) {
    const std::uint8_t flags = record[11];  // DIR_Attr
    is_over = record[0] == kLastRecord;
    if (is_over || record[0] == kDeletedRecord || (flags & kLabelFlag) != 0 || !HasName(record, name)) return;
    const bool is_folder = (flags & kFolderFlag) != 0;
    if (folders_only && !is_folder) return;
    const std::uint32_t size = Number32(record, 28);                                                // DIR_FileSize
    found = {.start = Number16(record, 26), .size = is_folder ? 0 : size, .is_folder = is_folder};  // DIR_FstClusLO
    has_found = is_over = true;
  }
};

FatVolume::FatVolume(Sectors& sectors, std::span<std::uint8_t> buffer) : sectors_(sectors) {
  if (buffer.size() < kLeastBuffer) return;
  table_ = buffer.first(kTableSectors * kFloppySectorSize);
  buffer_ = buffer.subspan(table_.size());
  buffer_ = buffer_.first(buffer_.size() / kFloppySectorSize * kFloppySectorSize);
}

VolumeError FatVolume::Open() {
  cluster_count_ = 0;
  if (buffer_.empty()) return VolumeError::kNotEnoughRoom;
  if (!sectors_.Read(0, buffer_.first(kFloppySectorSize))) return VolumeError::kUnreadable;
  Block block;
  if (const VolumeError error = ParseBlock(buffer_, block); error != VolumeError::kNone) return error;
  if (block.DataSector() > block.sector_count) return VolumeError::kBadVolume;
  const std::uint32_t clusters = (block.sector_count - block.DataSector()) / block.cluster_sectors;
  if (clusters == 0) return VolumeError::kBadVolume;
  if (clusters > kMostClusters) return VolumeError::kNoVolume;
  if ((clusters + kFirstCluster) * 3 > block.table_sectors * kFatSector * 2) return VolumeError::kBadVolume;
  root_sector_ = block.RootSector();
  root_sectors_ = block.root_sectors;
  data_sector_ = block.DataSector();
  cluster_sectors_ = block.cluster_sectors;
  const VolumeError error = ReadTable(block.table_sector, block.table_copies, block.table_sectors);
  if (error == VolumeError::kNone) cluster_count_ = clusters;
  return error;
}

// Reads the first copy of the table that the drive can read. A table may be longer than FAT12 needs.
VolumeError FatVolume::ReadTable(std::uint32_t first, std::uint32_t copies, std::uint32_t sectors_per_copy) {
  const std::size_t size = std::min<std::size_t>(table_.size(), sectors_per_copy * kFloppySectorSize);
  for (std::uint32_t copy = 0; copy < copies; ++copy) {
    if (sectors_.Read(first + copy * sectors_per_copy, table_.first(size))) return VolumeError::kNone;
  }
  return VolumeError::kUnreadable;
}

bool FatVolume::IsCluster(std::uint32_t number) const {
  return number >= kFirstCluster && number - kFirstCluster < cluster_count_;
}

// Returns what the table has for a cluster: the next cluster of its chain, or a mark, which is no cluster.
std::uint32_t FatVolume::Next(std::uint32_t cluster) const {
  const std::uint32_t two = Number16(table_, cluster + cluster / 2);
  return cluster % 2 == 0 ? two & 0xFFF : two >> 4;
}

// Returns the number of clusters of a chain; 0 if it is damaged.
std::uint32_t FatVolume::ChainLength(std::uint32_t first) const {
  constexpr std::uint32_t kFirstEndMark = 0xFF8;
  std::uint32_t length = 0;
  std::uint32_t cluster = first;
  for (; IsCluster(cluster); cluster = Next(cluster)) {
    if (length++ == cluster_count_) return 0;  // the chain leads in a circle
  }
  return cluster >= kFirstEndMark ? length : 0;
}

std::uint32_t FatVolume::SectorOf(std::uint32_t cluster) const {
  return data_sector_ + (cluster - kFirstCluster) * cluster_sectors_;
}

std::uint32_t FatVolume::ClusterBytes() const { return cluster_sectors_ * kFatSector; }

VolumeError FatVolume::Find(std::string_view path, VolumeEntry& found) {
  VolumeEntry here{.is_folder = true};  // the root, which has no cluster
  for (std::string_view name = TakeName(path); !name.empty(); name = TakeName(path)) {
    Search search;
    search.folders_only = !path.empty();  // what stands before a separator is a folder
    if (!ToShortName(name, search.name)) return VolumeError::kNotFound;
    if (const VolumeError error = SearchFolder(here, search); error != VolumeError::kNone) return error;
    if (!search.has_found) return VolumeError::kNotFound;
    here = search.found;
    if (here.is_folder && here.start == 0) return VolumeError::kBadFolder;
  }
  found = here;
  return VolumeError::kNone;
}

VolumeError FatVolume::SearchFolder(const VolumeEntry& folder, Search& search) {
  if (folder.start == 0) return SearchSectors(root_sector_, root_sectors_, search);
  if (ChainLength(folder.start) == 0) return VolumeError::kBadFolder;
  for (std::uint32_t cluster = folder.start; IsCluster(cluster) && !search.is_over; cluster = Next(cluster)) {
    const VolumeError error = SearchSectors(SectorOf(cluster), cluster_sectors_, search);
    if (error != VolumeError::kNone) return error;
  }
  return VolumeError::kNone;
}

VolumeError FatVolume::SearchSectors(std::uint32_t sector, std::uint32_t count, Search& search) {
  while (count != 0 && !search.is_over) {
    const std::uint32_t most = std::min(count, static_cast<std::uint32_t>(buffer_.size() / kFloppySectorSize));
    const std::span<std::uint8_t> piece = buffer_.first(most * kFloppySectorSize);
    if (!sectors_.Read(sector, piece)) return VolumeError::kUnreadable;
    for (std::size_t at = 0; at < piece.size() && !search.is_over; at += kRecordSize) {
      search.Look(piece.subspan(at, kRecordSize));
    }
    sector += most;
    count -= most;
  }
  return VolumeError::kNone;
}

// Follows the chain from its start for each call. The table is in memory, so that costs little compared with the reads.
VolumeError FatVolume::Read(const VolumeEntry& file, std::uint32_t offset, std::span<std::uint8_t> to) {
  if (file.is_folder) return VolumeError::kNotAFile;
  if (offset > file.size || to.size() > file.size - offset) return VolumeError::kPastTheEnd;
  if (to.empty()) return VolumeError::kNone;
  if ((file.size - 1) / ClusterBytes() >= ChainLength(file.start)) return VolumeError::kBadChain;
  std::uint32_t cluster = file.start;
  for (std::uint32_t skipped = offset / ClusterBytes(); skipped != 0; --skipped) cluster = Next(cluster);
  std::uint32_t from = offset % ClusterBytes();
  while (!to.empty()) {
    const std::uint32_t first = cluster;
    std::uint32_t run = 0;  // the bytes of clusters that follow one another
    do {
      run += ClusterBytes();
      cluster = Next(cluster);
    } while (run - from < to.size() && cluster == first + run / ClusterBytes());
    const std::size_t size = std::min<std::size_t>(to.size(), run - from);
    const bool is_read = ReadBytes(sectors_, SectorOf(first), from, to.first(size), buffer_.first(kFloppySectorSize));
    if (!is_read) return VolumeError::kUnreadable;
    to = to.subspan(size);
    from = 0;
  }
  return VolumeError::kNone;
}

}  // namespace discwright::loader
