// Gives random bytes to the loader's reader of floppies, as the first sectors. It must end, must not touch memory
// outside of its buffers, and must read what it has found or say why not.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "boot/loader/fat12.h"
#include "tests/fuzz/fuzzed_sectors.h"

namespace {

using discwright::loader::FatVolume;
using discwright::loader::kFloppySectorSize;
using discwright::loader::VolumeEntry;
using discwright::loader::VolumeError;
using discwright::testing::FuzzedSectors;
using discwright::testing::Require;

void ReadSome(FatVolume& volume, const VolumeEntry& file) {
  std::vector<std::uint8_t> room(std::min<std::size_t>(file.size, 5 * kFloppySectorSize + 1));
  const std::uint32_t latest = file.size - static_cast<std::uint32_t>(room.size());
  for (const std::uint32_t offset : {0u, 1u, latest}) {
    const VolumeError error = volume.Read(file, offset, room);
    if (file.is_folder) Require(error == VolumeError::kNotAFile);
    if (offset > latest && !room.empty()) Require(error != VolumeError::kNone);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedSectors sectors({data, size}, kFloppySectorSize, 0);
  std::vector<std::uint8_t> buffer(FatVolume::kLeastBuffer + size % 3 * kFloppySectorSize);
  FatVolume volume(sectors, buffer);
  if (volume.Open() != VolumeError::kNone) return 0;
  for (const char* path : {"", "LOADER.BIN", "boot", "boot/scripts/main.cds", "BOOT\\A", "a", "a/b", "a/b/a.b/c"}) {
    VolumeEntry entry;
    if (volume.Find(path, entry) == VolumeError::kNone) ReadSome(volume, entry);
  }
  return 0;
}
