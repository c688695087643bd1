// Does what the entries of the menu say: starts boot sectors, kernels, floppy images and disks. Construct one Starter,
// and call Start for each chosen entry.
#pragma once

#include <cstdint>
#include <string_view>

#include "boot/loader/linux_kernel.h"
#include "boot/loader/memory_map.h"
#include "boot/loader/pc/bios_disk.h"
#include "boot/loader/pc/console.h"
#include "boot/loader/script.h"
#include "boot/loader/volume.h"

namespace discwright::loader {

class Starter {
 public:
  // `drive`: the one that `volume` is in.
  Starter(Volume& volume, BiosDisk::Drive drive, const MemoryMap& memory, Console& console)
      : volume_(volume), drive_(drive), memory_(memory), console_(console) {}

  // Returns only when nothing was started: with the reason in words, or with an empty text when the command is done.
  std::string_view Start(const Command& command);

 private:
  static std::string_view Failed(std::string_view path, std::string_view sentence);
  std::string_view Failed(std::string_view path, VolumeError error) const {
    return Failed(path, Words(error, volume_.medium()));
  }
  std::string_view StartCdSector(std::string_view path);
  std::string_view StartHardDisk(std::size_t place);
  std::string_view StartLinux(std::string_view path, std::string_view options, std::string_view ram_disk);
  std::string_view ShowOverview();
  VolumeError Load(const VolumeEntry& file, std::uint32_t offset, std::uint32_t size, std::uint32_t address,
                   std::string_view name);

  Volume& volume_;
  BiosDisk::Drive drive_;
  const MemoryMap& memory_;
  Console& console_;
};

}  // namespace discwright::loader
