// The menu of a CD or floppy, from its script to what the user starts.
#pragma once

#include <cstdint>
#include <string_view>

#include "boot/loader/menu.h"
#include "boot/loader/pc/console.h"
#include "boot/loader/volume.h"

namespace discwright::loader {

// Why a boot sector for CDs cannot be started from another drive.
inline constexpr std::string_view kNeedsACdDrive = "This can only start from a CD drive.";

// Opens `volume`, which is in the drive with the number `drive` for INT 13h, and runs its menu. `obstacles` says what
// cannot be started from this drive. Says why when the volume cannot be opened. Does not return.
[[noreturn]] void ShowBootMenu(Console& console, Volume& volume, std::uint8_t drive, const Obstacles& obstacles);

}  // namespace discwright::loader
