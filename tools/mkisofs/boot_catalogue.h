// Makes the structures by which a BIOS boots from the disc (El Torito 1.0). The boot record in sector 17 names the
// sector of the boot catalogue, and the catalogue names the sector of the boot image. The image writer stores what
// MakeBootRecord and MakeBootCatalogue return.
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
  std::array<std::uint8_t, 4> catalogue;  // the sector of the boot catalogue
  std::array<std::uint8_t, 1973> unused_4bh;
};
static_assert(sizeof(BootRecord) == kSectorSize);

BootRecord MakeBootRecord(std::uint32_t catalogue);

// El Torito 2.1, figure 2.
struct ValidationEntry {
  std::array<std::uint8_t, 1> header_id;
  std::array<std::uint8_t, 1> platform;  // 0: 80x86
  std::array<std::uint8_t, 2> reserved;
  std::array<std::uint8_t, 24> id;        // manufacturer or developer of the disc
  std::array<std::uint8_t, 2> checksum;   // makes the sum of all 16-bit words of the entry zero
  std::array<std::uint8_t, 2> key_bytes;  // 55h AAh
};
static_assert(sizeof(ValidationEntry) == 32);

// El Torito 2.2, figure 3.
struct DefaultEntry {
  std::array<std::uint8_t, 1> boot_indicator;  // 88h: bootable
  std::array<std::uint8_t, 1> media;           // 0: no emulation
  std::array<std::uint8_t, 2> load_segment;    // 0 stands for the traditional 07C0h
  std::array<std::uint8_t, 1> system_type;
  std::array<std::uint8_t, 1> unused_5;
  std::array<std::uint8_t, 2> load_sectors;  // the number of sectors of 512 bytes that the BIOS loads
  std::array<std::uint8_t, 4> boot_image;    // the first sector of the boot image
  std::array<std::uint8_t, 20> unused_12;
};
static_assert(sizeof(DefaultEntry) == 32);

struct BootCatalogue {
  ValidationEntry validation;
  DefaultEntry entry;
  std::array<std::uint8_t, kSectorSize - sizeof(ValidationEntry) - sizeof(DefaultEntry)> unused;
};
static_assert(sizeof(BootCatalogue) == kSectorSize);

// Returns how many 512-byte sectors of the boot image a BIOS loads: the number in `options`, or the whole image if they
// have no number. `size` is the size of the image in bytes, at least 1.
std::uint16_t BootLoadSectors(const Options& options, std::uint32_t size);

// Returns the catalogue of a disc with one boot image, which begins at the sector `boot_image`. An `id` of more than 24
// bytes is cut.
BootCatalogue MakeBootCatalogue(std::string_view id, std::uint16_t load_sectors, std::uint32_t boot_image);

}  // namespace discwright::tools::mkisofs
