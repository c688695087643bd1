// Makes the first sector of the image, by which a BIOS starts it from a USB stick or a hard disk: a program of the
// loader, and a partition table with one entry for the whole image (UEFI Specification 5.2.1, "Legacy Master Boot
// Record"). ISO 9660 leaves this sector to the system that starts the disc. The image writer stores what
// MakeMasterBootRecord returns.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "tools/mkisofs/sector.h"

namespace discwright::tools::mkisofs {

// UEFI Specification 5.2.1, table "Legacy MBR Partition Record".
struct PartitionRecord {
  std::array<std::uint8_t, 1> boot_indicator;  // 80h: active
  std::array<std::uint8_t, 3> start;           // cylinder, head and sector, see ChsAddress
  std::array<std::uint8_t, 1> type;
  std::array<std::uint8_t, 3> end;  // the last sector, as `start`
  std::array<std::uint8_t, 4> first_sector;
  std::array<std::uint8_t, 4> sectors;  // the size
};
static_assert(sizeof(PartitionRecord) == 16);

// UEFI Specification 5.2.1, table "Legacy MBR". Its sectors have 512 bytes.
struct MasterBootRecord {
  std::array<std::uint8_t, 440> program;
  std::array<std::uint8_t, 4> disk_signature;
  std::array<std::uint8_t, 2> unknown_444;
  std::array<PartitionRecord, 4> partitions;
  std::array<std::uint8_t, 2> signature;  // 55h AAh
};
static_assert(sizeof(MasterBootRecord) == 512);

// How much of the beginning of the boot image MakeMasterBootRecord looks at. Our loader is smaller.
inline constexpr std::size_t kLargestLoader = 64 * std::size_t{kSectorSize};

// Returns the first sector of an image if its boot image is our loader and has a program for this sector. Other boot
// images have no such program. `loader`: the beginning of the boot image, which begins at `loader_sector`. `sectors`:
// the size of the image. `created`: the date of the volume. The disk signature is made of the size and the date.
std::optional<MasterBootRecord> MakeMasterBootRecord(std::span<const std::uint8_t> loader, std::uint32_t loader_sector,
                                                     std::uint32_t sectors, std::int64_t created);

}  // namespace discwright::tools::mkisofs
