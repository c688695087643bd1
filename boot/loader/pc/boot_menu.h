// The menu of a CD or floppy, from its script to what the user starts.
#pragma once

#include <string_view>

#include "boot/loader/menu.h"
#include "boot/loader/pc/bios_disk.h"
#include "boot/loader/pc/console.h"
#include "boot/loader/volume.h"

namespace discwright::loader {

// Why a boot sector for CDs cannot be started from another drive.
inline constexpr std::string_view kNeedsACdDrive = "This can only start from a CD drive.";

// Opens `volume`, which is in `drive`, and runs its menu. `obstacles` says what cannot be started from this drive. If
// the volume cannot be opened, it shows the reason and restarts the computer. Does not return.
[[noreturn]] void ShowBootMenu(Console& console, Volume& volume, BiosDisk::Drive drive, const Obstacles& obstacles);

}  // namespace discwright::loader
