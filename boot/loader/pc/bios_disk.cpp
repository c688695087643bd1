// Reads through INT 13h, function 42h, and the bounce buffer.
#include "boot/loader/pc/bios_disk.h"

#include <algorithm>
#include <cstring>

#include "boot/loader/pc/bios.h"
#include "boot/loader/pc/places.h"

namespace discwright::loader {

namespace {

constexpr std::uint8_t kDisk = 0x13;  // the interrupt
constexpr int kTries = 4;

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

bool BiosDisk::Read(std::uint32_t sector, std::span<std::uint8_t> to) {
  static_assert(kBounceBufferSize == 16 * kSectorSize);
  while (!to.empty()) {
    const std::size_t count = std::min(piece_, to.size() / kSectorSize);
    if (count == 0 || sector > UINT32_MAX - count) return false;
    if (!ReadPiece(sector, count)) {
      if (piece_ == 1) return false;
      piece_ = 1;  // some drives read a bad disc sector by sector only
      continue;
    }
    std::memcpy(to.data(), bounce_buffer, count * kSectorSize);
    to = to.subspan(count * kSectorSize);
    sector += static_cast<std::uint32_t>(count);
  }
  return true;
}

bool BiosDisk::ReadPiece(std::uint32_t sector, std::size_t count) {
  for (int turn = 0; turn < kTries; ++turn) {
    if (TryPiece(sector, count)) return true;
    Reset();
  }
  return false;
}

bool BiosDisk::TryPiece(std::uint32_t sector, std::size_t count) {
  static Packet packet;
  const std::uint64_t first = std::uint64_t{sector} << drive_.shift;
  const auto sectors = static_cast<std::uint16_t>(count << drive_.shift);
  packet = {.size = sizeof packet,
            .count = sectors,
            .offset = bios::Offset(bounce_buffer),
            .segment = bios::Segment(bounce_buffer),
            .sector = static_cast<std::uint32_t>(first),
            .sector_high = static_cast<std::uint32_t>(first >> 32)};
  bios::Registers registers{
      .eax = 0x4200, .edx = drive_.number, .esi = bios::Offset(&packet), .ds = bios::Segment(&packet)};
  bios::Call(kDisk, registers);
  const bool failed = registers.Has(bios::kCarry);
  if (!failed && packet.count == sectors) return true;
  last_error_ = failed ? static_cast<std::uint8_t>(registers.eax >> 8) : kShortRead;
  return false;
}

void BiosDisk::Reset() const {
  bios::Registers registers{.edx = drive_.number};
  bios::Call(kDisk, registers);
}

}  // namespace discwright::loader
