// The boot sector of a FAT12 floppy: the parameter block, and the code of a disk that holds no system.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "tools/createdsk/disk_format.h"
#include "tools/createdsk/short_name.h"

namespace discwright::tools {

using BootSector = std::array<std::uint8_t, kSectorBytes>;

// Bytes 3 to 61 of the boot sector (FAT specification 1.03, "Boot Sector and BPB"), behind BS_jmpBoot.
struct ParameterBlock {
  std::array<std::uint8_t, 8> oem_name;           // BS_OEMName
  std::array<std::uint8_t, 2> bytes_per_sector;   // BPB_BytsPerSec
  std::uint8_t sectors_per_cluster;               // BPB_SecPerClus
  std::array<std::uint8_t, 2> reserved_sectors;   // BPB_RsvdSecCnt
  std::uint8_t fat_count;                         // BPB_NumFATs
  std::array<std::uint8_t, 2> root_entries;       // BPB_RootEntCnt
  std::array<std::uint8_t, 2> total_sectors_16;   // BPB_TotSec16
  std::uint8_t media;                             // BPB_Media
  std::array<std::uint8_t, 2> fat_sectors;        // BPB_FATSz16
  std::array<std::uint8_t, 2> sectors_per_track;  // BPB_SecPerTrk
  std::array<std::uint8_t, 2> heads;              // BPB_NumHeads
  std::array<std::uint8_t, 4> hidden_sectors;     // BPB_HiddSec
  std::array<std::uint8_t, 4> total_sectors_32;   // BPB_TotSec32
  std::uint8_t drive_number;                      // BS_DrvNum
  std::uint8_t reserved;                          // BS_Reserved1
  std::uint8_t extended_signature;                // BS_BootSig
  std::array<std::uint8_t, 4> volume_serial;      // BS_VolID
  ShortName volume_label;                         // BS_VolLab
  std::array<std::uint8_t, 8> file_system;        // BS_FilSysType
};
static_assert(sizeof(ParameterBlock) == 59);

inline constexpr std::uint8_t kExtendedSignature = 0x29;

// The parameter block of a fresh disk, without a serial number and with no label.
ParameterBlock MakeParameterBlock(const DiskFormat& format);

// Gives a block that ends with BPB_TotSec32 (disks of old systems) the fields behind it; any other stays as it is.
void CompleteParameterBlock(ParameterBlock& block);

// `sector` is at least 512 bytes here and below; the jump and the code around the block stay as they are.
ParameterBlock LoadParameterBlock(std::span<const std::uint8_t> sector);
void StoreParameterBlock(const ParameterBlock& block, std::span<std::uint8_t> sector);

// True when the sector ends with the signature 55 AA.
bool HasBootSignature(std::span<const std::uint8_t> sector);

// A boot sector, its parameter block still zero, that says that the disk holds no system, waits for a key and starts
// the machine again.
BootSector NoSystemBootSector();

// A serial number that is the same for the same bytes (FNV-1a).
std::uint32_t SerialOf(std::span<const std::uint8_t> bytes);

}  // namespace discwright::tools
