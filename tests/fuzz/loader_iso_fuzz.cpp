// Gives random bytes to the loader's reader of CDs, as the sectors from the first volume descriptor on. It must end,
// must not touch memory outside of its buffers, and must read what it has found.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "boot/loader/iso9660.h"
#include "tests/fuzz/fuzzed_sectors.h"

namespace {

using discwright::loader::IsoVolume;
using discwright::loader::kSectorSize;
using discwright::loader::VolumeEntry;
using discwright::loader::VolumeError;
using discwright::testing::FuzzedSectors;
using discwright::testing::Require;

constexpr std::uint32_t kFirstSector = 16;
constexpr std::size_t kMostEntries = 64;  // of each folder

// Remembers the first entries of a folder, and reads every byte of each name.
class Entries final : public discwright::loader::IsoVisitor {
 public:
  bool Visit(std::string_view name, const VolumeEntry& entry) override {
    Require(!name.empty());
    if (std::find(name.begin(), name.end(), '/') == name.end() &&
        std::find(name.begin(), name.end(), '\\') == name.end())
      names.emplace_back(name);
    entries.push_back(entry);
    return entries.size() < kMostEntries;
  }

  std::vector<std::string> names;
  std::vector<VolumeEntry> entries;
};

void ReadSome(IsoVolume& volume, const VolumeEntry& entry) {
  std::vector<std::uint8_t> room(std::min<std::size_t>(entry.size, 3 * kSectorSize + 1));
  const std::uint32_t latest = entry.size - static_cast<std::uint32_t>(room.size());
  for (const std::uint32_t offset : {0u, 1u, latest}) {
    const VolumeError error = volume.Read(entry, offset, room);
    if (entry.is_folder) Require(error == VolumeError::kNotAFile);
    if (offset > latest) Require(error != VolumeError::kNone);
  }
}

// Every listed name is found. `path` leads to the folder, and `folders` is how many more may be walked.
void Walk(IsoVolume& volume, const VolumeEntry& folder, const std::string& path, int& folders) {
  Entries found;
  (void)volume.List(folder, found);  // a damaged folder shows what stands before the damage
  for (const VolumeEntry& entry : found.entries) ReadSome(volume, entry);
  for (const std::string& name : found.names) {
    VolumeEntry entry;
    Require(volume.Find(path + name, entry) == VolumeError::kNone);
    if (entry.is_folder && folders-- > 0) Walk(volume, entry, path + name + "/", folders);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedSectors sectors({data, size}, kSectorSize, kFirstSector);
  const std::size_t buffer_sectors = size % 3 + 1;
  std::vector<std::uint8_t> buffer(buffer_sectors * kSectorSize);
  IsoVolume volume(sectors, buffer);
  if (volume.Open() != VolumeError::kNone) return 0;
  VolumeEntry entry;
  Require(volume.Find("", entry) == VolumeError::kNone);
  int folders = 20;
  Walk(volume, entry, "", folders);
  std::vector<std::uint8_t> room(65536);
  std::uint32_t length = 0;
  if (volume.ReadFile("/Boot\\loader.BIN;1", room, length) == VolumeError::kNone) Require(length <= room.size());
  return 0;
}
