// Which memory the machine has, as its BIOS tells it.
#pragma once

#include "boot/loader/memory_map.h"

namespace discwright::loader {

// On machines that do not know function E820h of INT 15h, the map has the memory below 640 KB and the one from 1 MB on,
// of at most 64 MB.
[[nodiscard]] MemoryMap ReadMemoryMap();

}  // namespace discwright::loader
