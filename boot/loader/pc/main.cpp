// The main function of the loader of the CD.
#include <array>

#include "boot/loader/iso9660.h"
#include "boot/loader/pc/boot_menu.h"
#include "boot/loader/pc/loader_main.h"

namespace discwright::loader {

void Main(Console& console, BiosDisk::Drive drive) {
  static std::array<std::uint8_t, 8 * kSectorSize> sectors;
  BiosDisk disk(drive);
  IsoVolume volume(disk, sectors);
  Obstacles obstacles{};
  if (drive.shift != 0) obstacles[static_cast<std::size_t>(CommandKind::kCdSector)] = kNeedsACdDrive;
  ShowBootMenu(console, volume, drive.number, obstacles);
}

}  // namespace discwright::loader
