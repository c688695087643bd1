// What the start of the loader calls when the machine is ready. The loader itself and the tests' program implement it.
#pragma once

#include "boot/loader/pc/bios_disk.h"
#include "boot/loader/pc/console.h"

namespace discwright::loader {

// Does not return.
[[noreturn]] void Main(Console& console, BiosDisk& disk);

}  // namespace discwright::loader
