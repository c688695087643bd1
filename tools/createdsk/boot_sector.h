// Describes the boot sector of a FAT12 floppy and its BIOS parameter block (BPB), and makes a boot sector for disks
// without a system. LoadParameterBlock and StoreParameterBlock move the block between a struct and the bytes of a
// sector.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "tools/createdsk/disk_format.h"
#include "tools/createdsk/short_name.h"

namespace discwright::tools {

using BootSector = std::array<std::uint8_t, kSectorBytes>;

// Bytes 3 to 61 of the boot sector, after the field BS_jmpBoot (FAT specification 1.03, "Boot Sector and BPB").
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

inline constexpr std::uint8_t kExtendedSignature = 0x29;  // the serial number, the label and the file system are valid

// Returns the parameter block of an empty disk. Its serial number is 0, and its label is "NO NAME".
ParameterBlock MakeParameterBlock(const DiskFormat& format);

// Sets the fields after BPB_TotSec32 in the block of an old system, which lacks them. Leaves a complete block
// unchanged.
void CompleteParameterBlock(ParameterBlock& block);

// This function and the two below need a `sector` of at least 512 bytes. StoreParameterBlock changes only the block,
// not the jump and the code around it.
ParameterBlock LoadParameterBlock(std::span<const std::uint8_t> sector);
void StoreParameterBlock(const ParameterBlock& block, std::span<std::uint8_t> sector);

// Whether the sector ends with the signature 55 AA.
bool HasBootSignature(std::span<const std::uint8_t> sector);

// Returns a boot sector for a disk without a system: its code shows a message, waits for a key and restarts the
// machine. All bytes of its parameter block are zero.
BootSector NoSystemBootSector();

// Returns a serial number for a volume. It is a hash (FNV-1a) of `bytes`, so that equal bytes give equal disks.
std::uint32_t SerialOf(std::span<const std::uint8_t> bytes);

}  // namespace discwright::tools
