// The main function, which entry.asm and loader_main.cpp reach when the machine is ready. The loader of the CD, the
// loader of floppies and a program of the tests each have their own.
#pragma once

#include "boot/loader/pc/bios_disk.h"
#include "boot/loader/pc/console.h"

namespace discwright::loader {

// `drive` is the one that the machine was started from. Does not return.
[[noreturn]] void Main(Console& console, BiosDisk::Drive drive);

}  // namespace discwright::loader
