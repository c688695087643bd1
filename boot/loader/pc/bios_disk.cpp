// Reads through INT 13h, function 42h.
#include "boot/loader/pc/bios_disk.h"

#include "boot/loader/pc/places.h"

namespace discwright::loader {

namespace {

// The disk address packet of function 42h.
struct Packet {
  std::uint16_t size;
  std::uint16_t count;
  std::uint16_t offset;
  std::uint16_t segment;
  std::uint32_t sector;
  std::uint32_t sector_high;
};
static_assert(sizeof(Packet) == 16);

}  // namespace

bool BiosDisk::TryPiece(std::uint32_t sector, std::size_t count) {
  static_assert(kBounceBufferSize == kMost * kSectorSize);
  static Packet packet;
  const std::uint64_t first = std::uint64_t{sector} << shift_;
  const auto sectors = static_cast<std::uint16_t>(count << shift_);
  packet = {.size = sizeof packet,
            .count = sectors,
            .offset = bios::Offset(bounce_buffer),
            .segment = bios::Segment(bounce_buffer),
            .sector = static_cast<std::uint32_t>(first),
            .sector_high = static_cast<std::uint32_t>(first >> 32)};
  bios::Registers registers{.eax = 0x4200, .esi = bios::Offset(&packet), .ds = bios::Segment(&packet)};
  if (!CallBios(registers)) return false;
  if (packet.count == sectors) return true;
  NoteError(kShortRead);
  return false;
}

}  // namespace discwright::loader
