// Gives the hard disks other numbers for the system that is started next.
#pragma once

#include "boot/loader/drive_numbers.h"

namespace discwright::loader {

// Takes 1 KB from the end of base memory, which stays reserved. Call it once, right before the system is started.
void InstallDriveMap(const DriveNumbers& numbers);

}  // namespace discwright::loader
