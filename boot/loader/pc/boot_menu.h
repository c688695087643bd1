// The menu of a CD or floppy, from its script to what the user starts.
#pragma once

#include <cstdint>

#include "boot/loader/menu.h"
#include "boot/loader/pc/console.h"
#include "boot/loader/volume.h"

namespace discwright::loader {

// Opens `volume`, which is in `drive`, and runs its menu. `obstacles` says what
// cannot be started from this drive. Says why when the volume cannot be opened. Does not return.
[[noreturn]] void ShowBootMenu(Console& console, Volume& volume, BiosDisk::Drive drive, const Obstacles& obstacles);

}  // namespace discwright::loader
