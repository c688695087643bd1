// Copies drive_map.asm to the end of base memory and puts it in front of the BIOS.
#include "boot/loader/pc/drive_map.h"

#include <cstring>

#include "boot/loader/pc/places.h"

// clang-tidy takes these declarations for variables that this file defines.
// NOLINTBEGIN(bugprone-dynamic-static-initializers)
extern "C" {
extern const std::uint8_t drive_map[];
extern const std::uint8_t drive_map_bios[];
extern const std::uint8_t drive_map_numbers[];
extern const std::uint8_t drive_map_end[];
}
// NOLINTEND(bugprone-dynamic-static-initializers)

namespace discwright::loader {

void InstallDriveMap(const DriveNumbers& numbers) {
  constexpr std::size_t kMemorySize = 0x13;  // the BIOS variable that INT 12h returns: 16 bits, in KB
  std::uint16_t kilobytes = 0;
  std::memcpy(&kilobytes, bios_variables + kMemorySize, sizeof kilobytes);
  --kilobytes;
  std::memcpy(bios_variables + kMemorySize, &kilobytes, sizeof kilobytes);
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the BIOS tells the end of memory as a number
  auto* const place = reinterpret_cast<std::uint8_t*>(std::uint32_t{kilobytes} << 10);
  std::memcpy(place, drive_map, static_cast<std::size_t>(drive_map_end - drive_map));
  std::memcpy(place + (drive_map_bios - drive_map), disk_vector, sizeof(std::uint32_t));
  std::memcpy(place + (drive_map_numbers - drive_map), numbers.data(), numbers.size());
  const std::uint32_t handler = std::uint32_t{kilobytes} << 22;  // segment:offset; a segment has 16 bytes
  std::memcpy(disk_vector, &handler, sizeof handler);
}

}  // namespace discwright::loader
