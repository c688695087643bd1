// Reads through INT 13h, function 02h. A read ends with its track, because some BIOSes do not go on with the next one.
#include "boot/loader/pc/floppy_disk.h"

#include <array>

#include "boot/loader/bytes.h"
#include "boot/loader/pc/places.h"

namespace discwright::loader {

void FloppyDisk::LearnGeometry() {
  static std::array<std::uint8_t, kFloppySectorSize> first;
  if (!Read(0, first)) return;
  const std::uint32_t track_sectors = Number16(first, 24);  // BPB_SecPerTrk
  const std::uint32_t heads = Number16(first, 26);          // BPB_NumHeads
  if (track_sectors == 0 || track_sectors > kMost || heads == 0 || heads > 0xFF) return;
  track_sectors_ = track_sectors;
  heads_ = heads;
}

// Returns 0 behind the last cylinder that INT 13h can address.
std::size_t FloppyDisk::MostAt(std::uint32_t sector) const {
  constexpr std::uint32_t kCylinders = 256;
  return sector / track_sectors_ / heads_ < kCylinders ? track_sectors_ - sector % track_sectors_ : 0;
}

bool FloppyDisk::TryPiece(std::uint32_t sector, std::size_t count) {
  static_assert(kMost * kFloppySectorSize <= kBounceBufferSize);
  const std::uint32_t track = sector / track_sectors_;
  const std::uint32_t cylinder = track / heads_;
  bios::Registers registers{.eax = 0x0200 | static_cast<std::uint32_t>(count),
                            .ebx = bios::Offset(bounce_buffer),
                            .ecx = cylinder << 8 | (sector % track_sectors_ + 1),
                            .edx = track % heads_ << 8,
                            .es = bios::Segment(bounce_buffer)};
  return CallBios(registers);
}

}  // namespace discwright::loader
