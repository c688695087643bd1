// Fills in, loads and stores the parameter block of a boot sector. Contains the boot code for disks without a system.
#include "tools/createdsk/boot_sector.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "base/byte_order.h"

namespace discwright::tools {
namespace {

constexpr std::size_t kBlockOffset = 3;
constexpr std::size_t kCodeOffset = kBlockOffset + sizeof(ParameterBlock);
constexpr std::size_t kSignatureOffset = 510;

constexpr std::string_view kMessage = "This disk holds no system. Remove it and press a key to restart.\r\n";

// 16-bit code, loaded at linear address 7C00h. Some BIOSes start it as 07C0:0000, others as 0000:7C00. So the code uses
// relative jumps only, and sets DS before it reads the message.
constexpr std::uint8_t kCode[] = {
    0x31, 0xC0,        // 3E        xor  ax, ax
    0x8E, 0xD8,        // 40        mov  ds, ax
    0x8E, 0xD0,        // 42        mov  ss, ax
    0xBC, 0x00, 0x7C,  // 44        mov  sp, 7C00h
    0xFC,              // 47        cld
    0xBE, 0x5D, 0x7C,  // 48        mov  si, 7C00h + message
    0xAC,              // 4B next:  lodsb
    0x84, 0xC0,        // 4C        test al, al
    0x74, 0x08,        // 4E        jz   wait
    0xB4, 0x0E,        // 50        mov  ah, 0Eh            ; teletype output
    0x31, 0xDB,        // 52        xor  bx, bx             ; page 0
    0xCD, 0x10,        // 54        int  10h
    0xEB, 0xF3,        // 56        jmp  next
    0x98,              // 58 wait:  cbw                     ; AL is 0: AH = 0, read a key
    0xCD, 0x16,        // 59        int  16h
    0xCD, 0x19,        // 5B        int  19h                ; restart
};                     // 5D message
static_assert(kCodeOffset + sizeof(kCode) == 0x5D);
static_assert(kCodeOffset + sizeof(kCode) + kMessage.size() < kSignatureOffset);

template <std::size_t size>
void PutText(std::string_view text, std::array<std::uint8_t, size>& field) {
  field.fill(' ');
  std::copy_n(text.begin(), std::min(text.size(), size), field.begin());
}

}  // namespace

ParameterBlock MakeParameterBlock(const DiskFormat& format) {
  ParameterBlock block{};
  PutText("DWRIGHT", block.oem_name);
  base::StoreLe16(block.bytes_per_sector, kSectorBytes);
  block.sectors_per_cluster = format.sectors_per_cluster;
  base::StoreLe16(block.reserved_sectors, kReservedSectors);
  block.fat_count = kFatCount;
  base::StoreLe16(block.root_entries, format.root_entries);
  base::StoreLe16(block.total_sectors_16, format.total_sectors);
  block.media = kMedia;
  base::StoreLe16(block.fat_sectors, kFatSectors);
  base::StoreLe16(block.sectors_per_track, format.sectors_per_track);
  base::StoreLe16(block.heads, kHeads);
  CompleteParameterBlock(block);
  return block;
}

void CompleteParameterBlock(ParameterBlock& block) {
  if (block.extended_signature == kExtendedSignature) return;
  block.drive_number = 0;
  block.reserved = 0;
  block.extended_signature = kExtendedSignature;
  block.volume_serial.fill(0);
  block.volume_label = kNoLabel;
  PutText("FAT12", block.file_system);
}

ParameterBlock LoadParameterBlock(std::span<const std::uint8_t> sector) {
  ParameterBlock block;
  std::memcpy(&block, sector.subspan(kBlockOffset, sizeof block).data(), sizeof block);
  return block;
}

void StoreParameterBlock(const ParameterBlock& block, std::span<std::uint8_t> sector) {
  std::memcpy(sector.subspan(kBlockOffset, sizeof block).data(), &block, sizeof block);
}

bool HasBootSignature(std::span<const std::uint8_t> sector) {
  return sector[kSignatureOffset] == 0x55 && sector[kSignatureOffset + 1] == 0xAA;
}

BootSector NoSystemBootSector() {
  BootSector sector{};
  sector[0] = 0xEB;  // jmp short 3Eh
  sector[1] = kCodeOffset - 2;
  sector[2] = 0x90;
  const auto message = std::copy(std::begin(kCode), std::end(kCode), sector.begin() + kCodeOffset);
  std::copy(kMessage.begin(), kMessage.end(), message);
  sector[kSignatureOffset] = 0x55;
  sector[kSignatureOffset + 1] = 0xAA;
  return sector;
}

std::uint32_t SerialOf(std::span<const std::uint8_t> bytes) {
  std::uint32_t hash = 0x811C9DC5;
  for (const std::uint8_t byte : bytes) hash = (hash ^ byte) * 0x01000193;
  return hash;
}

}  // namespace discwright::tools
