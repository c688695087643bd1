// El Torito 1.0: the boot record, which leads to the boot catalogue, which leads to the boot image.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "tools/mkisofs/options.h"
#include "tools/mkisofs/sector.h"
#include "tools/mkisofs/volume_descriptors.h"

namespace discwright::tools::mkisofs {

// El Torito 2.0, figure 7; ECMA-119 8.2.
struct BootRecord {
  DescriptorHead head;
  std::array<std::uint8_t, 32> boot_system_id;  // "EL TORITO SPECIFICATION"
  std::array<std::uint8_t, 32> unused_27h;
  std::array<std::uint8_t, 4> catalogue;  // sector
  std::array<std::uint8_t, 1973> unused_4bh;
};
static_assert(sizeof(BootRecord) == kSectorSize);

BootRecord MakeBootRecord(std::uint32_t catalogue);

// El Torito 2.1, figure 2.
struct ValidationEntry {
  std::array<std::uint8_t, 1> header_id;
  std::array<std::uint8_t, 1> platform;  // 0: 80x86
  std::array<std::uint8_t, 2> reserved;
  std::array<std::uint8_t, 24> id;        // of who made the disc
  std::array<std::uint8_t, 2> checksum;   // makes the sum of all words zero
  std::array<std::uint8_t, 2> key_bytes;  // 55h AAh
};
static_assert(sizeof(ValidationEntry) == 32);

// El Torito 2.2, figure 3.
struct DefaultEntry {
  std::array<std::uint8_t, 1> boot_indicator;  // 88h: bootable
  std::array<std::uint8_t, 1> media;           // 0: no emulation
  std::array<std::uint8_t, 2> load_segment;    // 0: the usual one, 07C0h
  std::array<std::uint8_t, 1> system_type;
  std::array<std::uint8_t, 1> unused_5;
  std::array<std::uint8_t, 2> load_sectors;  // of 512 bytes
  std::array<std::uint8_t, 4> boot_image;    // sector
  std::array<std::uint8_t, 20> unused_12;
};
static_assert(sizeof(DefaultEntry) == 32);

struct BootCatalogue {
  ValidationEntry validation;
  DefaultEntry entry;
  std::array<std::uint8_t, kSectorSize - sizeof(ValidationEntry) - sizeof(DefaultEntry)> unused;
};
static_assert(sizeof(BootCatalogue) == kSectorSize);

// How many 512-byte sectors of a boot image of `size` bytes a BIOS loads: what the options say, or else all.
std::uint16_t BootLoadSectors(const Options& options, std::uint32_t size);

// `id` is cut to the length of its field.
BootCatalogue MakeBootCatalogue(std::string_view id, std::uint16_t load_sectors, std::uint32_t boot_image);

}  // namespace discwright::tools::mkisofs
