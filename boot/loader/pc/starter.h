// Does what the entries of the menu say: starts boot sectors, kernels, floppy images and disks. Construct one Starter,
// and call Start for each chosen entry.
#pragma once

#include <string_view>

#include "boot/loader/iso9660.h"
#include "boot/loader/linux_kernel.h"
#include "boot/loader/memory_map.h"
#include "boot/loader/pc/bios_disk.h"
#include "boot/loader/pc/console.h"
#include "boot/loader/script.h"

namespace discwright::loader {

class Starter {
 public:
  Starter(IsoVolume& volume, const BiosDisk& disk, const MemoryMap& memory, Console& console)
      : volume_(volume), disk_(disk), memory_(memory), console_(console) {}

  // Returns only when nothing was started: with the reason in words, or with an empty text when the command is done.
  std::string_view Start(const Command& command);

 private:
  std::string_view StartCdSector(std::string_view path);
  std::string_view StartHardDisk(std::size_t place);  // 0: the first one
  std::string_view StartLinux(std::string_view path, std::string_view options, std::string_view ram_disk);
  std::string_view ShowOverview();
  IsoError Load(const IsoEntry& file, std::uint32_t offset, std::uint32_t size, std::uint32_t address,
                std::string_view name);

  IsoVolume& volume_;
  const BiosDisk& disk_;
  const MemoryMap& memory_;
  Console& console_;
};

}  // namespace discwright::loader
