// The main function of the loader of floppies.
#include <array>

#include "boot/loader/fat12.h"
#include "boot/loader/pc/boot_menu.h"
#include "boot/loader/pc/floppy_disk.h"
#include "boot/loader/pc/loader_main.h"

namespace discwright::loader {

void Main(Console& console, BiosDisk::Drive drive) {
  constexpr std::size_t kFolderSectors = 14;  // the root folder of a usual floppy
  static std::array<std::uint8_t, FatVolume::kLeastBuffer + kFolderSectors * kFloppySectorSize> buffer;
  FloppyDisk disk(drive.number);
  disk.LearnGeometry();
  FatVolume volume(disk, buffer);
  Obstacles obstacles{};
  obstacles[static_cast<std::size_t>(CommandKind::kCdSector)] = kNeedsACdDrive;
  ShowBootMenu(console, volume, drive.number, obstacles);
}

}  // namespace discwright::loader
