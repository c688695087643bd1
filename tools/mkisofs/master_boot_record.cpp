// Finds the loader's program for disks, and fills in the partition table.
#include "tools/mkisofs/master_boot_record.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "base/byte_order.h"

namespace discwright::tools::mkisofs {
namespace {

constexpr std::uint32_t kDiskSectorsPerSector = kSectorSize / 512;

// Places in our loader, see boot/loader/pc/stage1.asm and scripts/join_loader.py.
constexpr std::string_view kMark = "DWLOADER";
constexpr std::size_t kMarkPlace = 64;
constexpr std::size_t kRestSectorsPlace = 72;  // 16 bits
constexpr std::size_t kProgramSizePlace = 74;  // 16 bits; the program is in the sector behind the rest
constexpr std::size_t kHeadSize = 76;
// The last 4 bytes of the program take the sector of the loader, in sectors of 512 bytes.
constexpr std::size_t kSectorFieldSize = 4;

// Returns an empty span if the boot image is not our loader, or if its values cannot be right.
std::span<const std::uint8_t> FindProgram(std::span<const std::uint8_t> loader) {
  if (loader.size() < kHeadSize) return {};
  if (!std::equal(kMark.begin(), kMark.end(), loader.begin() + kMarkPlace)) return {};
  const std::size_t place =
      (std::size_t{1} + base::LoadLe16(loader.subspan<kRestSectorsPlace, 2>())) * std::size_t{kSectorSize};
  const std::size_t size = base::LoadLe16(loader.subspan<kProgramSizePlace, 2>());
  if (size <= kSectorFieldSize || size > sizeof(MasterBootRecord::program)) return {};
  if (place > loader.size() || size > loader.size() - place) return {};
  return loader.subspan(place, size);
}

// Returns the address of a sector by cylinder, head and sector, as the UEFI Specification and every partition program
// count them: with 255 heads and 63 sectors. Sectors beyond the last such address get that address.
std::array<std::uint8_t, 3> ChsAddress(std::uint32_t disk_sector) {
  constexpr std::uint32_t kHeads = 255;
  constexpr std::uint32_t kSectorsPerTrack = 63;
  constexpr std::uint32_t kCylinders = 1024;
  const std::uint32_t most = kCylinders * kHeads * kSectorsPerTrack - 1;
  const std::uint32_t track = std::min(disk_sector, most) / kSectorsPerTrack;
  const std::uint32_t sector = std::min(disk_sector, most) % kSectorsPerTrack + 1;
  const std::uint32_t cylinder = track / kHeads;
  return {static_cast<std::uint8_t>(track % kHeads), static_cast<std::uint8_t>(sector | (cylinder >> 8) << 6),
          static_cast<std::uint8_t>(cylinder & 0xFF)};
}

// Returns a number that differs for images of different dates or sizes, with few exceptions. It depends on nothing
// else, so the image is the same on every host. Systems take 0 for a disk without a signature.
std::uint32_t DiskSignature(std::uint32_t sectors, std::int64_t created) {
  constexpr std::uint32_t kOddFactor = 0x9E3779B1;  // spreads small differences over all bits
  const auto date = static_cast<std::uint64_t>(created);
  const auto low = static_cast<std::uint32_t>(date & 0xFFFFFFFF);
  const auto high = static_cast<std::uint32_t>(date >> 32);
  const std::uint32_t signature = (low ^ high) + sectors * kOddFactor;
  return signature != 0 ? signature : kOddFactor;
}

// The type "hidden NTFS". Other tools that make images for CDs and sticks choose it, too.
constexpr std::uint8_t kHiddenType = 0x17;
constexpr std::uint8_t kActive = 0x80;

PartitionRecord MakePartition(std::uint32_t sectors) {
  constexpr std::uint64_t kLargestSize = std::numeric_limits<std::uint32_t>::max();
  const auto size = static_cast<std::uint32_t>(std::min(std::uint64_t{sectors} * kDiskSectorsPerSector, kLargestSize));
  PartitionRecord partition{};
  partition.boot_indicator = {kActive};
  partition.start = ChsAddress(0);
  partition.type = {kHiddenType};
  partition.end = ChsAddress(size - 1);
  base::StoreLe32(partition.sectors, size);
  return partition;
}

}  // namespace

// Fills in the sector as the UEFI Specification describes it in 5.2.1.
std::optional<MasterBootRecord> MakeMasterBootRecord(std::span<const std::uint8_t> loader, std::uint32_t loader_sector,
                                                     std::uint32_t sectors, std::int64_t created) {
  const std::span<const std::uint8_t> program = FindProgram(loader);
  constexpr std::uint32_t kLastReachable = std::numeric_limits<std::uint32_t>::max() / kDiskSectorsPerSector;
  if (program.empty() || loader_sector > kLastReachable) return std::nullopt;
  MasterBootRecord record{};
  std::copy(program.begin(), program.end(), record.program.begin());
  base::StoreLe32(std::span(record.program).subspan(program.size() - kSectorFieldSize).first<kSectorFieldSize>(),
                  loader_sector * kDiskSectorsPerSector);
  base::StoreLe32(record.disk_signature, DiskSignature(sectors, created));
  record.partitions[0] = MakePartition(sectors);
  record.signature = {0x55, 0xAA};
  return record;
}

}  // namespace discwright::tools::mkisofs
