// Installs new numbers of the hard disks for the system that is started next.
#pragma once

#include "boot/loader/drive_numbers.h"

namespace discwright::loader {

// Takes 1 KB from the end of base memory, which stays reserved. Call it once, when nothing can fail any more.
void InstallDriveMap(const DriveNumbers& numbers);

}  // namespace discwright::loader
